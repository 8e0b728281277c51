// What Windows versions after the least one (7 SP1) brought, looked up at run time.
//
// Importing such a function would keep the module from loading at all where it is missing, so each
// is called through here, with what older systems can do in its stead: there every window has the
// dots per inch of the system. tools/check_imports holds the modules to that.
//
// All are cheap: a look-up happens once.
#pragma once

#include <windows.h>

#include <string_view>

#include "framework/handles.h"

namespace fw {

// The functions that were found; null where this system has none. One per module; tests take some
// away.
struct NewerWindows {
    decltype(&::GetDpiForWindow) dpiForWindow;
    decltype(&::GetDpiForSystem) dpiForSystem;
    decltype(&::GetSystemMetricsForDpi) systemMetricsForDpi;
    decltype(&::SystemParametersInfoForDpi) systemParametersInfoForDpi;
    decltype(&::AdjustWindowRectExForDpi) adjustWindowRectExForDpi;
    decltype(&::SetProcessDpiAwarenessContext) setProcessDpiAwarenessContext;
    bool librarySearchFlags;  // LOAD_LIBRARY_SEARCH_ flags are known
};
NewerWindows& newerWindows() noexcept;

// Dots per inch: of the system, and of the monitor that a window is on; the system's for null and
// for what is no window.
int systemDpi() noexcept;
int dpiOf(HWND window) noexcept;

// GetSystemMetrics at `dpi`, for an `index` that is a size in pixels.
int metric(int index, int dpi) noexcept;

// One of the system's fonts at `dpi`: systemFont(&NONCLIENTMETRICSW::lfMessageFont, dpi). Null when
// it cannot be made.
Font systemFont(LOGFONTW NONCLIENTMETRICSW::*font, int dpi) noexcept;

// The window around `client`, for a window with these styles and no menu, at `dpi`.
RECT windowAround(RECT client, DWORD style, DWORD exStyle, int dpi) noexcept;

// Asks for windows that are drawn at the dots per inch of their monitor, or at the system's where
// that is all there is. For a program, before its first window; a manifest's word goes first.
void makeDpiAware() noexcept;

// The function that a loaded module exports under this name; null when it has none. Whether it is
// of this type only the caller knows.
template <class Function>
Function* exported(HMODULE module, const char* name) noexcept {
    // A detour over a plain function pointer, as compilers want it.
    return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

// Loads a library, named in ASCII, from the folder of the program; its own libraries are found in
// that folder and in the system's. Null when it is not there or cannot be loaded. The caller frees
// it.
HMODULE loadBesideProgram(std::string_view file);

}  // namespace fw
