// CToolTip: a tool-tip window and its tools, which watch the mouse by themselves.
//
// Texts are shown as they are: "&" marks no letter. The font is the system's for tips, at the dots
// per inch of the owner.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "framework/handles.h"

namespace fw {

class CToolTip {
public:
    CToolTip() = default;
    ~CToolTip() { destroy(); }
    CToolTip(const CToolTip&) = delete;
    CToolTip& operator=(const CToolTip&) = delete;

    // Makes the window, owned by `owner`'s top-level window; once. With TTS_ALWAYSTIP the tips
    // show while that window is inactive, too.
    void create(HWND owner, DWORD style = TTS_ALWAYSTIP);
    bool created() const { return m_handle != nullptr; }
    void destroy();

    // The owner has other dots per inch.
    void followDpi();

    void setTextColor(COLORREF color) const;
    // Longer texts wrap.
    void setMaxWidth(int pixels) const;

    // A tip for a whole child of `window`.
    void add(HWND window, HWND child, const std::string& text) const;
    // A tip for a part of `window`, by an id that is not 0. False when it cannot be made.
    bool add(HWND window, UINT_PTR id, const RECT& area, const std::string& text) const;
    void remove(HWND window, UINT_PTR id) const;

private:
    HWND m_handle = nullptr;
    HWND m_owner = nullptr;
    Font m_font;
};

}  // namespace fw
