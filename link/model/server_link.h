// The server link: the messaging handles, the host's receive controls and the receivers bound to
// them, and what goes through them.
//
// Order of life: the pane makes one when its dialog is initialised (constructor), tells what could
// not be had, subscribes when the hot key made the pane, sends, unsubscribes at shut-down, and
// closes it with its window. The object may outlive that, while a request is under way behind a
// message box. What a link does not have, or has no longer, fails where it is needed.
#pragma once

#include <vector>

#include "link/model/host.h"
#include "link/model/receiver.h"

namespace mc {

class serverLink {
public:
    // Opens the handles and obtains the controls, as many as there are to be had. `host` and
    // `answers` must outlive the link.
    serverLink(Host& host, AnswerHandler& answers);
    ~serverLink() { close(); }

    serverLink(const serverLink&) = delete;
    serverLink& operator=(const serverLink&) = delete;

    // Shows what the constructor could not have, each in a message box of its own.
    void tellFailures();

    // Releases the controls and closes the handles, once; without the host's control service it
    // reports that and leaves them.
    void close();
    bool closed() const { return m_closed; }

    // Subscribes to the authorization traffic that the checker's privilege level may see; a level
    // without a subscription is not subscribed. Returns 1 in every case; a failure is reported.
    int subscribe();
    bool subscribed() const { return m_subscribed; }

    // Ends the subscription. Returns 1, or 0 after reporting the failure.
    int unsubscribe();

    // The steps of a request: start an empty message, append fields, send it. Each is false when
    // the messaging library or the control refuses, or is not there.
    bool startMessage();
    bool append(int mnemonic, const char* value);
    bool send();

private:
    Host& m_host;
    std::vector<const char*> m_failures;
    bool m_closed = false;
    bool m_subscribed = false;
    struct {  // of the messaging library; null: it could not be had
        void* message = nullptr;
        void* buffer = nullptr;
        void* timeBuffer = nullptr;
        void* time = nullptr;
    } m_handles;
    CMCRxr m_receiverA;
    CMCRxr m_receiverB;
    CQuonRxControl* m_controlB = nullptr;  // kind 3: only obtained and released
    CQuonRxControl* m_controlA = nullptr;  // kind 0: everything goes through it
};

}  // namespace mc
