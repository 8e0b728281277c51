#include "console/receive_control.h"

#include <algorithm>
#include <utility>

namespace zek {
namespace {

// The kinds of controls that there are. Both are plain connections here.
constexpr int kControlKinds[] = {0, 3};

// Runs `operation`, which answers a number; 0 when it throws.
template <class Operation>
int guarded(Operation operation) noexcept {
    try {
        return operation();
    } catch (...) {
        return 0;
    }
}

}  // namespace

ReceiveControl::ReceiveControl(CExchange& exchange, CQuonRxNotifierBase& receiver,
                               std::function<void(void* message)> onPublished)
    : m_exchange(exchange) {
    auto onAnswer = [&receiver](void* message) { receiver.onMessage(0, 0, message, nullptr); };
    m_connection =
        exchange.server().connections().connect({std::move(onAnswer), std::move(onPublished)});
}

ReceiveControl::~ReceiveControl() {
    m_exchange.server().connections().disconnect(m_connection);
}

int ReceiveControl::send(int& requestId, void* message, int, void**) {
    return guarded([&] {
        requestId = m_exchange.server().handle(m_connection, message);
        m_exchange.touch();
        return requestId;
    });
}

int ReceiveControl::subscribe(int& subscriptionId, const int* mnemonics, const char* const* values,
                              int pairs, CQuonRxControl*, int, int, int, void**) {
    return guarded([&] {
        std::vector<SubscriptionPair> wanted;
        for (int i = 0; i < pairs; ++i)
            wanted.push_back({mnemonics[i], values[i] != nullptr ? values[i] : ""});
        subscriptionId =
            m_exchange.server().connections().subscribe(m_connection, std::move(wanted));
        if (subscriptionId != 0) ++m_subscriptions;
        m_exchange.touch();
        return subscriptionId;
    });
}

int ReceiveControl::unsubscribe(int) {
    return guarded([&] {
        m_subscriptions = 0;
        m_exchange.touch();
        return m_exchange.server().connections().unsubscribe(m_connection) ? 1 : 0;
    });
}

ReceiveControls::ReceiveControls(CExchange& exchange,
                                 std::function<void(void* message)> onPublished)
    : m_exchange(exchange), m_onPublished(std::move(onPublished)) {}

CQuonRxControl* ReceiveControls::make(int kind, CQuonRxNotifierBase* receiver) {
    if (receiver == nullptr || std::ranges::find(kControlKinds, kind) == std::end(kControlKinds))
        return nullptr;
    m_controls.push_back(std::make_unique<ReceiveControl>(m_exchange, *receiver, m_onPublished));
    return m_controls.back().get();
}

void ReceiveControls::release(CQuonRxControl* control) {
    std::erase_if(m_controls, [&](const auto& each) { return each.get() == control; });
    m_exchange.touch();
}

std::size_t ReceiveControls::releaseAll() {
    const std::size_t count = m_controls.size();
    m_controls.clear();
    m_exchange.touch();
    return count;
}

bool ReceiveControls::isSubscribed() const {
    return std::ranges::any_of(m_controls, [](const auto& each) { return each->isSubscribed(); });
}

}  // namespace zek
