// A host whose services can fail or be missing, and which remembers what it was asked.
//
// One at a time: the services are plain functions, and find the host that lives now.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/model/owned_message.h"
#include "link/model/host.h"
#include "sdk/connectvosk.h"

namespace mc {

using Lines = std::vector<std::string>;
using SentMessage = std::vector<std::pair<int, std::string>>;

// The fields of a message under construction, in order of appending. What reaches a control is
// complete, so a fault that was set up for its building ends here.
inline SentMessage readBack(void* message) {
    otp_fail_call(0);
    SentMessage fields;
    for (const zek::Field& field : zek::readFields(message))
        for (const auto& text : field.occurrences)
            fields.emplace_back(field.id, text.value_or("(unreadable)"));
    return fields;
}

// The first text of a field; empty: there is none.
inline std::string valueOf(const SentMessage& message, int mnemonic) {
    for (const auto& [id, text] : message)
        if (id == mnemonic) return text;
    return {};
}

// What the host does in the life of one is its own: tests of faults let it succeed.
struct HostsOwn {
    HostsOwn() { change(true); }
    ~HostsOwn() { change(false); }
    HostsOwn(const HostsOwn&) = delete;
    HostsOwn& operator=(const HostsOwn&) = delete;
    static inline void (*change)(bool begins) = [](bool) {};
};

struct Subscription {
    SentMessage pairs;
    bool ofItself;             // names the control that it goes through
    std::vector<int> numbers;  // the three after it

    bool operator==(const Subscription&) const = default;
};

class FakeControl final : public CQuonRxControl {
public:
    FakeControl(int ofKind, CQuonRxNotifierBase* boundTo) : kind(ofKind), receiver(boundTo) {}

    const int kind;
    CQuonRxNotifierBase* const receiver;
    bool works = true;  // or every operation fails
    std::vector<SentMessage> sent;
    std::vector<Subscription> subscriptions;
    // Before a message is sent.
    std::function<void(const SentMessage& fields)> sending = [](const SentMessage&) {};

    int send(int& requestId, void* message, int, void**) override {
        const HostsOwn own;
        const SentMessage fields = readBack(message);
        sending(fields);
        if (!works) return 0;
        sent.push_back(fields);
        requestId = static_cast<int>(sent.size());
        return 1;
    }

    int subscribe(int& subscriptionId, const int* mnemonics, const char* const* values, int pairs,
                  CQuonRxControl* self, int first, int second, int third, void**) override {
        if (!works) return 0;
        const HostsOwn own;
        Subscription subscription{{}, self == this, {first, second, third}};
        for (int i = 0; i < pairs; ++i) subscription.pairs.emplace_back(mnemonics[i], values[i]);
        subscriptions.push_back(subscription);
        subscriptionId = static_cast<int>(subscriptions.size());
        return 1;
    }

    int unsubscribe(int) override { return works ? 1 : 0; }
};

class FakeHost final : public Host {
public:
    FakeHost() { s_current = this; }
    ~FakeHost() {
        otp_fail_call(0);
        s_current = nullptr;
    }
    FakeHost(const FakeHost&) = delete;

    std::string brokerId = "ZEKB";
    std::string userId = "CHECK01";
    int level = 0;

    struct {  // of who is logged in
        std::set<int> roles{kMenuItemSeeLimits, kMenuItemSeeUsers, kMenuItemSeeClientsAndInvestors};
        bool hasMenuItemService = true;
        std::vector<int> asked;     // menu items
        std::optional<int> modify;  // none: the host lacks the service
    } rights;

    struct {
        bool hasService = true;
        std::set<int> kinds{0, 3};                         // that the service makes
        std::map<int, std::unique_ptr<FakeControl>> made;  // by kind
        std::vector<int> released;                         // kinds, in order
    } controls;

    bool answersYes = false;  // to questions

    // Runs once, while the next message box is open.
    std::function<void()> whileBoxIsOpen;

    // Every line, in order: "box TEXT" of a bare message box, "error TEXT" and "log TEXT" of a
    // report by its level, "question TEXT".
    Lines said;
    int beeps = 0;

    FakeControl& control() { return *controls.made.at(0); }

    // What was said since the last call.
    Lines takeSaid() { return std::exchange(said, {}); }

    const std::string& peerBrokerId() const override { return brokerId; }
    const std::string& peerUserId() const override { return userId; }
    int privilegeLevel() const override { return level; }

    PuGetFindMenuItemInRoles* menuItemService() override {
        return rights.hasMenuItemService ? &holdsMenuItem : nullptr;
    }
    PuGetMakerCheckerModifyRight* modifyRightService() override {
        return rights.modify ? &mayModify : nullptr;
    }
    GetQuonRxControlService* receiveControlService() override {
        return controls.hasService ? &receiveControl : nullptr;
    }

    void reportToUser(std::string_view text, int reportLevel) override {
        const HostsOwn own;
        said.push_back((reportLevel == kReportError     ? "error "
                        : reportLevel == kReportMessage ? "log "
                                                        : "level? ") +
                       std::string(text));
        if (reportLevel == kReportError) boxIsOpen();
    }
    void showMessage(const std::string& text) override {
        const HostsOwn own;
        said.push_back("box " + text);
        boxIsOpen();
    }
    bool confirm(const std::string& question) override {
        const HostsOwn own;
        said.push_back("question " + question);
        const bool yes = answersYes;
        boxIsOpen();
        return yes;
    }
    void beep() override { ++beeps; }

private:
    void boxIsOpen() {
        if (const auto run = std::exchange(whileBoxIsOpen, nullptr)) run();
    }

    static int holdsMenuItem(int menuItem) {
        const HostsOwn own;
        s_current->rights.asked.push_back(menuItem);
        return s_current->rights.roles.contains(menuItem) ? 1 : 0;
    }

    static int mayModify() { return *s_current->rights.modify; }

    static CQuonRxControl* receiveControl(int kind, CQuonRxNotifierBase* receiver,
                                          CQuonRxControl* release) {
        const HostsOwn own;
        if (receiver == nullptr) {
            const auto* control = static_cast<FakeControl*>(release);
            s_current->controls.released.push_back(control != nullptr ? control->kind : -1);
            return nullptr;
        }
        if (!s_current->controls.kinds.contains(kind)) return nullptr;
        auto& control = s_current->controls.made[kind];
        control = std::make_unique<FakeControl>(kind, receiver);
        return control.get();
    }

    static inline FakeHost* s_current = nullptr;
};

}  // namespace mc
