// Owning handles for GDI objects, menus, hooks and image lists, and scopes for what is borrowed.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <utility>

namespace fw {

// Owns one handle and gives it to `destroy` at the end. Null is "none".
template <class Handle, auto destroy>
class UniqueHandle {
public:
    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) noexcept : m_handle(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept
        : m_handle(std::exchange(other.m_handle, nullptr)) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        reset(std::exchange(other.m_handle, nullptr));
        return *this;
    }
    ~UniqueHandle() { reset(); }

    // Gives the handle up to a new owner.
    Handle release() noexcept { return std::exchange(m_handle, nullptr); }
    void reset(Handle handle = nullptr) noexcept {
        if (m_handle != nullptr) destroy(m_handle);
        m_handle = handle;
    }
    Handle get() const noexcept { return m_handle; }
    explicit operator bool() const noexcept { return m_handle != nullptr; }

private:
    Handle m_handle = nullptr;
};

inline void destroyFont(HFONT font) noexcept {
    DeleteObject(font);
}
inline void destroyBitmap(HBITMAP bitmap) noexcept {
    DeleteObject(bitmap);
}
inline void destroyRegion(HRGN region) noexcept {
    DeleteObject(region);
}
inline void destroyMenu(HMENU menu) noexcept {
    DestroyMenu(menu);
}
inline void destroyHook(HHOOK hook) noexcept {
    UnhookWindowsHookEx(hook);
}
inline void destroyImages(HIMAGELIST images) noexcept {
    ImageList_Destroy(images);
}

using Font = UniqueHandle<HFONT, destroyFont>;
using Bitmap = UniqueHandle<HBITMAP, destroyBitmap>;
using Region = UniqueHandle<HRGN, destroyRegion>;
using Menu = UniqueHandle<HMENU, destroyMenu>;
using Hook = UniqueHandle<HHOOK, destroyHook>;
using ImageList = UniqueHandle<HIMAGELIST, destroyImages>;

// Selects an object into a device context for a scope.
class SelectScope {
public:
    SelectScope(HDC dc, HGDIOBJ object) noexcept : m_dc(dc), m_previous(SelectObject(dc, object)) {}
    ~SelectScope() { SelectObject(m_dc, m_previous); }
    SelectScope(const SelectScope&) = delete;
    SelectScope& operator=(const SelectScope&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_previous;
};

// The fonts of one device context for a scope. A font is selected only where it is another one,
// which saves the platform from looking it up for every text.
class FontScope {
public:
    explicit FontScope(HDC dc) noexcept
        : m_dc(dc), m_first(GetCurrentObject(dc, OBJ_FONT)), m_now(m_first) {}
    ~FontScope() { use(nullptr); }
    FontScope(const FontScope&) = delete;
    FontScope& operator=(const FontScope&) = delete;

    // Null: the one that the context came with.
    void use(HFONT font) noexcept {
        const HGDIOBJ wanted = font != nullptr ? font : m_first;
        if (wanted != m_now) SelectObject(m_dc, m_now = wanted);
    }

private:
    HDC m_dc;
    HGDIOBJ m_first, m_now;
};

// BeginPaint to EndPaint.
class PaintScope {
public:
    explicit PaintScope(HWND window) noexcept : m_window(window) { BeginPaint(window, &m_paint); }
    ~PaintScope() { EndPaint(m_window, &m_paint); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;

    HDC dc() const noexcept { return m_paint.hdc; }

private:
    HWND m_window;
    PAINTSTRUCT m_paint{};
};

// A device context of a window's client area, or the screen's (null), for a scope.
class DcScope {
public:
    explicit DcScope(HWND window) noexcept : DcScope(window, GetDC(window)) {}
    ~DcScope() { ReleaseDC(m_window, m_dc); }
    DcScope(const DcScope&) = delete;
    DcScope& operator=(const DcScope&) = delete;

    HDC dc() const noexcept { return m_dc; }

protected:
    DcScope(HWND window, HDC dc) noexcept : m_window(window), m_dc(dc) {}

private:
    HWND m_window;
    HDC m_dc;
};

// Of a whole window, borders included.
class WindowDcScope : public DcScope {
public:
    explicit WindowDcScope(HWND window) noexcept : DcScope(window, GetWindowDC(window)) {}
};

// Redrawing of a control is off for a scope.
class RedrawOffScope {
public:
    explicit RedrawOffScope(HWND window) noexcept : m_window(window) {
        SendMessageA(window, WM_SETREDRAW, FALSE, 0);
    }
    ~RedrawOffScope() { SendMessageA(m_window, WM_SETREDRAW, TRUE, 0); }
    RedrawOffScope(const RedrawOffScope&) = delete;
    RedrawOffScope& operator=(const RedrawOffScope&) = delete;

private:
    HWND m_window;
};

// The wait cursor shows for a scope.
class WaitCursorScope {
public:
    WaitCursorScope() noexcept : m_previous(SetCursor(LoadCursorA(nullptr, IDC_WAIT))) {}
    ~WaitCursorScope() { SetCursor(m_previous); }
    WaitCursorScope(const WaitCursorScope&) = delete;
    WaitCursorScope& operator=(const WaitCursorScope&) = delete;

private:
    HCURSOR m_previous;
};

}  // namespace fw
