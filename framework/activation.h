// The manifest of this module (resource 2), which asks for version 6 of the common controls.
//
// A host without a manifest of its own gets version 5.82 for its windows. What this module makes is
// of version 6 in every host: it is made in the activation context of the module's manifest. The
// scope is around the making of windows, dialogs and message boxes only: a window keeps the context
// that it was made in, and the platform activates that while it calls the window's procedure.
//
// A module without that resource makes its windows as its program does.
#pragma once

#include <windows.h>

namespace fw {

class ActivationScope {
public:
    ActivationScope() noexcept;
    ~ActivationScope();
    ActivationScope(const ActivationScope&) = delete;
    ActivationScope& operator=(const ActivationScope&) = delete;

private:
    ULONG_PTR m_cookie = 0;  // 0: nothing was activated
};

// Gives the context back. Call before the module is unloaded, when its windows are gone.
void releaseActivationContext() noexcept;

}  // namespace fw
