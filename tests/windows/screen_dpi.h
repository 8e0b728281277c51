// The dots per inch of the screen, as the plug-in finds them: the emulator has one screen, so the
// plug-in's question is answered here, and its windows get the system's messages in their
// documented order.
#pragma once

#include "tests/windows/replaced_import.h"
#include "tests/windows/test_host.h"

class ScreenDpi {
public:
    // For a plug-in that is loaded and not initialized yet.
    explicit ScreenDpi(int dpi) { s_dpi = dpi; }

    static UINT WINAPI answer(HWND) { return static_cast<UINT>(s_dpi); }
    static int now() { return s_dpi; }

    // As the system tells a window that came to another monitor: the window itself, with the
    // rectangle it may take, then its children from the top.
    static void moveTo(int dpi, HWND top, const RECT& suggested) {
        s_dpi = dpi;
        SendMessageA(top, WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                     reinterpret_cast<LPARAM>(&suggested));
        EnumChildWindows(
            top,
            [](HWND child, LPARAM) -> BOOL {
                SendMessageA(child, WM_DPICHANGED_AFTERPARENT, 0, 0);
                return TRUE;
            },
            0);
        pump();
    }

private:
    // The emulator's frames are those of its one screen.
    static FARPROC WINAPI findFunction(HMODULE module, LPCSTR name) {
        const std::string wanted = HIWORD(name) != 0 ? name : "";
        if (wanted == "GetDpiForWindow")
            return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(answer));
        return wanted != "AdjustWindowRectExForDpi" ? GetProcAddress(module, name) : nullptr;
    }

    static inline int s_dpi = 96;
    const ReplacedImport m_functions{"GetProcAddress", findFunction};
};
