// The server link: the messaging handles, the host's receive controls and the receivers bound to
// them, and what goes through them.
//
// Order of life: the pane makes one when its dialog is initialised (constructor), subscribes when
// the hot key made the pane, sends, unsubscribes at shut-down, and destroys it with itself. A link
// whose handles or controls could not be had stays in place; what needs them then fails.
#pragma once

#include "link/model/host.h"
#include "link/model/receiver.h"

class serverLink {
public:
    // Opens the handles and obtains the controls. Each failure is shown in a message box of its own
    // and the rest goes on. `host` and `answers` must outlive the link.
    serverLink(Host& host, AnswerHandler& answers);

    // Releases the controls and closes the handles; without the host's control service it reports
    // that and releases nothing else but its own receivers.
    ~serverLink();

    serverLink(const serverLink&) = delete;
    serverLink& operator=(const serverLink&) = delete;

    // Subscribes to the authorization traffic that the checker's privilege level may see; a level
    // without a subscription is not subscribed. Returns 1 in every case; a failure is reported.
    int subscribe();

    // Ends the subscription. Returns 1, or 0 after reporting the failure.
    int unsubscribe();

    // The steps of a request: start an empty message, append fields, send it. Each is false when
    // the messaging library or the control refuses, or is not there.
    bool startMessage();
    bool append(int mnemonic, const char* value);
    bool send();

private:
    Host& m_host;
    void* m_message = nullptr;
    void* m_timeHandle = nullptr;
    void* m_buffer = nullptr;
    void* m_timeBuffer = nullptr;
    CMCRxr m_receiverA;
    CMCRxr m_receiverB;
    CQuonRxControl* m_controlB = nullptr;  // kind 3: only obtained and released
    CQuonRxControl* m_controlA = nullptr;  // kind 0: everything goes through it
};
