// The host's receive controls and the notifier that a plug-in hands them.
//
// A receive control is one end of the host's messaging connection. The plug-in gets it from the
// host service GetQuonRxControl (host_services.h) for a notifier of its own, sends and subscribes
// through it, and gives it back through the same service. The host owns every control; the plug-in
// owns its notifiers and keeps each alive until the control bound to it is released; the host calls
// none after that.
//
// Thread: the user-interface thread for every operation and every callback.
// Neither class has a virtual destructor: the slots below are the whole table of operations, in
// this order, and each side destroys its own objects through their concrete type.
#pragma once

// The callbacks of a receiver, implemented by the plug-in.
class CQuonRxNotifierBase {
public:
    // The connection's status changed. The plug-in does nothing with it.
    virtual void onStatus(int, int, void*) = 0;

    // A message answers one of this receiver's requests. `message` belongs to the host and lives
    // until the call returns; read it with the messaging library (connectvosk.h). The other
    // arguments are not used.
    virtual void onMessage(int, int, void* message, void*) = 0;

protected:
    ~CQuonRxNotifierBase() = default;
};

// The operations of a control, implemented by the host. `error` is an out-parameter for the
// library's error context, which the plug-in does not examine; it is never null.
class CQuonRxControl {
public:
    // Sends the message under construction. The host copies what it needs before it returns.
    // `requestId` receives an id of the host's. Returns non-zero when sent.
    virtual int send(int& requestId, void* message, int zero, void** error) = 0;

    // Subscribes to publications that carry, for each of the `pairs` pairs, the field
    // `mnemonics[i]` with the text `values[i]`; an empty text matches every value. `self` is the
    // control itself; the three numbers are 0, 0 and 1. The host copies the pairs before it
    // returns. `subscriptionId` receives an id of the host's. Returns non-zero when subscribed.
    virtual int subscribe(int& subscriptionId, const int* mnemonics, const char* const* values,
                          int pairs, CQuonRxControl* self, int, int, int, void** error) = 0;

    // Ends every subscription of this control. `zero` is 0. Returns non-zero when unsubscribed.
    virtual int unsubscribe(int zero) = 0;

protected:
    ~CQuonRxControl() = default;
};

// Each is a table of operations and nothing else.
static_assert(sizeof(CQuonRxNotifierBase) == sizeof(void*));
static_assert(sizeof(CQuonRxControl) == sizeof(void*));
