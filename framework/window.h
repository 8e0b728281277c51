// CWindow binds one HWND to one object and feeds it through the class's message map.
//
// Order of life: create() or subclass() binds; messages run; WM_NCDESTROY unbinds and then calls
// onDetached(), in which an object may delete itself. An object destroyed before its window takes
// the window with it, without a message reaching the object any more.
//
// Exceptions end at the window procedure: the message then counts as answered with 0.
//
// A handler that shows a modal window or a menu may find its window gone when that returns, and
// handle() null; its object lives on if its owner retires it (framework/model/calls.h).
#pragma once

#include <windows.h>

#include <string>

#include "framework/message_map.h"

namespace fw {

// The module that this code is linked into: a DLL's resources and classes are its own.
HINSTANCE module() noexcept;

// `pixels` at 96 dots per inch, in the pixels of the window's monitor; as they are without a
// window.
int scaledFor(HWND window, int pixels) noexcept;

// Makes a control of one of the platform's classes, at the upper left corner of `parent` (or a
// popup that `parent` owns, without an id). Its version is the module's, whatever the host has
// (framework/activation.h). Null when it cannot be made.
HWND makeControl(const char* windowClass, const char* text, DWORD style, DWORD exStyle, SIZE size,
                 HWND parent, UINT id) noexcept;

// A label in `parent` that is never seen: the name, for screen readers, of the control that follows
// it in the order of windows. It goes with `parent`. Null when it cannot be made.
HWND makeNameLabel(HWND parent, const std::string& name) noexcept;

// A window class of this module, registered when its first window is created.
struct WindowClass {
    const char* name;
    UINT style;           // CS_ bits
    LPCSTR cursor;        // IDC_ value
    int backgroundColor;  // COLOR_ index, or -1 for a window that paints all of itself
};

// Unregisters every class that create() registered in this module. Call before it is unloaded, when
// its windows are gone.
void unregisterWindowClasses() noexcept;

class CWindow {
public:
    CWindow() = default;
    CWindow(const CWindow&) = delete;
    CWindow& operator=(const CWindow&) = delete;
    virtual ~CWindow();

    HWND handle() const noexcept { return m_handle; }

    // The client rectangle; empty without a window.
    RECT clientRect() const noexcept;

    // `pixels` at 96 dots per inch, in the pixels of this window's monitor.
    int scaled(int pixels) const noexcept { return scaledFor(m_handle, pixels); }

    // Feeds one message through the map. True when a handler answered it.
    bool dispatchMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

protected:
    virtual const MessageMap& messageMap() const = 0;

    // What happens to a message that no handler answered. Not used by subclassed controls.
    virtual LRESULT defaultProc(UINT message, WPARAM wParam, LPARAM lParam);

    // Runs when the window is gone and unbound. May delete the object.
    virtual void onDetached() {}

    // Creates a window of `windowClass`, bound to this object. False when it cannot be made.
    bool create(const WindowClass& windowClass, const char* text, DWORD style, DWORD exStyle,
                const RECT& rect, HWND parent, UINT id);

    // Binds an existing control; its own procedure is the default.
    bool subclass(HWND control);

    // The procedure of dialogs, modal and modeless; they are created with dialogParameter(). A
    // WM_INITDIALOG handler returns FALSE when it has set the focus.
    static INT_PTR CALLBACK dialogProc(HWND dialog, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept;
    LPARAM dialogParameter() { return reinterpret_cast<LPARAM>(this); }

    // What a subclassed control itself does with a message.
    LRESULT controlDefault(UINT message, WPARAM wParam, LPARAM lParam);

    // Hands a child's notification back to the child (kReflectedNotify).
    static LRESULT reflectNotify(WPARAM wParam, LPARAM lParam);
    // Has an owner-drawn child draw itself: its parent is asked to.
    static LRESULT reflectDrawItem(const DRAWITEMSTRUCT& draw);

    // Runs before any message is dispatched to a subclassed control.
    virtual void beforeMessage(UINT) {}

private:
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept;
    static LRESULT CALLBACK subclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR id, DWORD_PTR object) noexcept;

    enum class Binding { window, control, dialog };

    void unbind() noexcept;

    HWND m_handle = nullptr;
    Binding m_binding = Binding::window;
};

}  // namespace fw
