#include "link/model/server_link.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <utility>
#include <vector>

#include "link/model/mnemonics.h"
#include "sdk/connectvosk.h"

namespace mc {
namespace {

constexpr int kScratchBytes = 4096;
constexpr int kControlKindA = 0;
constexpr int kControlKindB = 3;

// A value of a subscription pair: nothing (any value matches), or who is logged in.
enum class PairValue { any, userId, brokerId };

struct SubscriptionPair {
    int mnemonic;
    PairValue value;
};

constexpr SubscriptionPair kLevel0[] = {{MNM_BROKER, PairValue::any},
                                        {MNM_FUNCTIONALITY, PairValue::any},
                                        {MNM_AUTHORIZATION_KEY, PairValue::any}};
// Levels 1 and 4 ask for any functionality, too: an empty value matches every change.
constexpr SubscriptionPair kLevel1[] = {{MNM_FUNCTIONALITY, PairValue::any},
                                        {MNM_BROKER, PairValue::userId},
                                        {MNM_AUTHORIZATION_KEY, PairValue::any}};
constexpr SubscriptionPair kLevel2[] = {{MNM_BROKER, PairValue::brokerId},
                                        {MNM_FUNCTIONALITY, PairValue::any},
                                        {MNM_BRANCH, PairValue::userId},
                                        {MNM_AUTHORIZATION_KEY, PairValue::any}};
constexpr SubscriptionPair kLevel4[] = {{MNM_FUNCTIONALITY, PairValue::any},
                                        {MNM_USER, PairValue::userId},
                                        {MNM_AUTHORIZATION_KEY, PairValue::any}};

struct LevelSubscription {
    int level;
    std::span<const SubscriptionPair> pairs;
};
constexpr LevelSubscription kSubscriptions[] = {
    {0, kLevel0}, {1, kLevel1}, {2, kLevel2}, {4, kLevel4}};

std::span<const SubscriptionPair> pairsOfLevel(int level) {
    for (const LevelSubscription& each : kSubscriptions)
        if (each.level == level) return each.pairs;
    return {};
}

const char* pairText(PairValue value, const Host& host) {
    switch (value) {
        case PairValue::userId:
            return host.peerUserId().c_str();
        case PairValue::brokerId:
            return host.peerBrokerId().c_str();
        default:
            return "";
    }
}

}  // namespace

serverLink::serverLink(Host& host, AnswerHandler& answers)
    : m_host(host), m_receiverA(answers), m_receiverB(answers) {
    void* error = nullptr;
    if (otp_ctor_primecb(&m_handles.message, &error) == 0)
        m_failures.push_back("MnmHndl Open failed in Market Context");
    if (otp_open_scratch(&m_handles.buffer, kScratchBytes, &error) == 0)
        m_failures.push_back("BufHndl Open failed in Market Context");
    if (otp_open_scratch(&m_handles.timeBuffer, kScratchBytes, &error) == 0)
        m_failures.push_back("TimeBufHndl Open failed in Market Context");
    if (sys_open_time_hndl(&m_handles.time, &error) == 0)
        m_failures.push_back("TmHndl Open failed in Market Context");

    if (auto* getControl = host.receiveControlService()) {
        m_controlA = getControl(kControlKindA, &m_receiverA, nullptr);
        m_controlB = getControl(kControlKindB, &m_receiverB, nullptr);
    } else {
        m_failures.push_back("From ZEK Connection to quon failed");
    }
}

void serverLink::tellFailures() {
    for (const char* failure : std::exchange(m_failures, {})) m_host.showMessage(failure);
}

void serverLink::close() {
    if (std::exchange(m_closed, true)) return;
    CQuonRxControl* const controlA = std::exchange(m_controlA, nullptr);
    CQuonRxControl* const controlB = std::exchange(m_controlB, nullptr);
    void* const message = std::exchange(m_handles.message, nullptr);
    auto* getControl = m_host.receiveControlService();
    if (getControl == nullptr) {
        m_host.reportToUser("Destroying Quon Connection Failed", kReportMessage);
        return;
    }
    for (CQuonRxControl* control : {controlB, controlA})
        if (control != nullptr) getControl(0, nullptr, control);
    void* error = nullptr;
    if (m_handles.buffer != nullptr) otp_close_scratch(m_handles.buffer, &error);
    if (message != nullptr) otp_dtor_primecb(message, &error);
    if (m_handles.timeBuffer != nullptr) otp_close_scratch(m_handles.timeBuffer, &error);
    if (m_handles.time != nullptr) sys_close_time_hndl(m_handles.time, &error);
}

int serverLink::subscribe() {
    const auto pairs = pairsOfLevel(m_host.privilegeLevel());
    if (pairs.empty()) return 1;
    std::vector<int> mnemonics;
    std::vector<const char*> values;
    for (const SubscriptionPair& pair : pairs) {
        mnemonics.push_back(pair.mnemonic);
        values.push_back(pairText(pair.value, m_host));
    }
    int subscriptionId = 0;
    void* error = nullptr;
    if (m_controlA == nullptr ||
        m_controlA->subscribe(subscriptionId, mnemonics.data(), values.data(),
                              static_cast<int>(pairs.size()), m_controlA, 0, 0, 1, &error) == 0)
        m_host.reportToUser("Failed to subscribe ", kReportMessage);
    else
        m_subscribed = true;
    return 1;
}

int serverLink::unsubscribe() {
    if (m_controlA != nullptr && m_controlA->unsubscribe(0) != 0) return 1;
    m_host.reportToUser("Failed to Unsubscribe", kReportMessage);
    return 0;
}

bool serverLink::startMessage() {
    if (m_handles.message == nullptr || m_handles.buffer == nullptr) return false;
    const std::uint32_t empty = 0;
    std::memcpy(m_handles.buffer, &empty, sizeof empty);
    void* error = nullptr;
    return otp_start_msg(m_handles.message, m_handles.buffer, &error) != 0;
}

bool serverLink::append(int mnemonic, const char* value) {
    void* error = nullptr;
    return m_handles.message != nullptr &&
           otp_add_data_as_cstring(m_handles.message, mnemonic, 1, value, &error) != 0;
}

bool serverLink::send() {
    int requestId = 0;
    void* error = nullptr;
    return m_controlA != nullptr && m_controlA->send(requestId, m_handles.message, 0, &error) != 0;
}

}  // namespace mc
