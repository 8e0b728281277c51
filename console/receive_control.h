// The host's ends of the messaging connection: the receive controls that GetQuonRxControl hands to
// plug-ins, each one connection to the authorization server.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "console/exchange.h"
#include "sdk/receive_control.h"

namespace zek {

class ReceiveControl final : public CQuonRxControl {
public:
    // Answers go to `receiver`, publications to `onPublished`.
    ReceiveControl(CExchange& exchange, CQuonRxNotifierBase& receiver,
                   std::function<void(void* message)> onPublished);
    ~ReceiveControl();
    ReceiveControl(const ReceiveControl&) = delete;
    ReceiveControl& operator=(const ReceiveControl&) = delete;

    int send(int& requestId, void* message, int zero, void** error) override;
    int subscribe(int& subscriptionId, const int* mnemonics, const char* const* values, int pairs,
                  CQuonRxControl* self, int, int, int, void** error) override;
    int unsubscribe(int zero) override;

    bool isSubscribed() const { return m_subscriptions > 0; }

private:
    CExchange& m_exchange;
    int m_connection = 0;
    int m_subscriptions = 0;
};

// All controls that are out.
class ReceiveControls {
public:
    ReceiveControls(CExchange& exchange, std::function<void(void* message)> onPublished);

    // Null for a kind that the host does not have, or without a receiver.
    CQuonRxControl* make(int kind, CQuonRxNotifierBase* receiver);
    // Does nothing for a control that is not out.
    void release(CQuonRxControl* control);
    // Releases what is still out; returns how many that were.
    std::size_t releaseAll();

    std::size_t count() const { return m_controls.size(); }
    bool isSubscribed() const;

private:
    CExchange& m_exchange;
    std::function<void(void* message)> m_onPublished;
    std::vector<std::unique_ptr<ReceiveControl>> m_controls;
};

}  // namespace zek
