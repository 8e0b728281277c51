// The calls into this module that are under way on the user-interface thread.
//
// A message box, a menu, a dialog or a service of the host's dispatches messages, and behind it
// anything may end: the frame, the plug-in, the library. So every way into the module (entry point,
// window procedure, receiver) opens a Call, and three rules follow:
//
// - what such a call may still be using is not destroyed but retired: it lives until the outermost
//   call returns;
// - a call that was under way when the windows ended has nothing more to say: it shows no window
//   and reports nothing (callEnded). Calls that come in later, nested in it, are not affected;
// - the library is freed only after the outermost call has returned (plugin/stay_loaded.h).
//
// All on the one user-interface thread.
#pragma once

#include <memory>

namespace fw {

class Call {
public:
    Call() noexcept;
    ~Call();  // the outermost destroys what was retired
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
};

// How many calls are under way, each nested in the one before.
int callsUnderWay() noexcept;

// Keeps `object` until the outermost call returns; without a call it goes at once.
void retire(std::shared_ptr<const void> object);

// The windows end: every call under way but the innermost has ended.
void endOuterCalls() noexcept;

// Whether the running code belongs to a call that has ended.
bool callEnded() noexcept;

}  // namespace fw
