// Keys and presses of a modeless pane inside a host whose message loop knows nothing of it.
//
// A host's loop calls no IsDialogMessage for a plug-in's pane, so Tab, Enter and Esc would do
// nothing there, and its accelerators come before the keys of the pane's controls. CKeyFilter
// watches the thread's message queue with a hook, and readdresses the pane's keys, when they are
// meant for a child of the pane, to the pane itself as kPaneKey. The host then dispatches that like
// any other message; the hook itself presses nothing.
//
// The pane's keys are: Tab, Enter, Esc, F6 and the arrows; those that press its buttons; and those
// that the control with the focus claims. While Alt is down none is, because AltGr is Ctrl and Alt
// and types characters. While a drop-down is open only Tab, Enter and Esc are, and while a menu is
// open or a window is moved or sized none is. Esc comes from any window of the thread while the
// mouse is held by the pane or a window in it, so that it ends a drag.
//
// The filter also drops what would press a button of the pane twice: the further presses of a
// double-click, a repeated space, and the repetitions of a pane's key that a window opened by it
// would get.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <span>

#include "framework/handles.h"
#include "framework/message_map.h"
#include "framework/model/press_guard.h"

namespace fw {

// Posted by CKeyFilter's hook to the pane, at once before the host dispatches it. wParam: the key.
// lParam: that of WM_KEYDOWN. The control that had the key is the one with the focus.
inline constexpr UINT kPaneKey = WM_APP + 0x1C4F;
template <>
struct Crack<kPaneKey> : Crack<WM_KEYDOWN> {};

// A key that presses a button of the pane, from anywhere in it. Ctrl and Shift are both down, or
// neither is.
struct ActionKey {
    UINT key;
    bool ctrlShift;
    int button;
    const char* tip;  // what the button's tool tip says
};
bool isPressed(const ActionKey& action, UINT key);

// Opens the menu of the pane's caption.
inline constexpr ActionKey kCaptionMenuKey{'D', true, 0, ""};

// Whether the pane or a window in it has captured the mouse.
bool holdsMouse(HWND pane);

// One per process at most: a second one, while the first lives, watches nothing.
class CKeyFilter {
public:
    // Whether a control of the pane claims a key, with the modifiers that are down now.
    using ClaimedBy = std::function<bool(HWND control, UINT key)>;

    // `actions` must outlive the filter.
    explicit CKeyFilter(HWND pane, std::span<const ActionKey> actions = {}, ClaimedBy claimed = {});
    ~CKeyFilter();
    CKeyFilter(const CKeyFilter&) = delete;
    CKeyFilter& operator=(const CKeyFilter&) = delete;

    // How long ago, in milliseconds, the key or mouse button went down that presses a button of the
    // pane. None when the last one did something else, but for keys that go down while a button is
    // held down, or was taken: then no hand makes the press.
    std::optional<unsigned> takePressAge();

private:
    static LRESULT CALLBACK hookProc(int code, WPARAM wParam, LPARAM lParam) noexcept;

    void filterKey(MSG& message);
    void filterPress(MSG& message);
    bool takes(HWND target, UINT key) const;
    bool isActionButton(HWND window) const;
    bool pressesButton(HWND target, UINT key) const;
    void notePress(const MSG& message);

    HWND m_pane;
    std::span<const ActionKey> m_actions;
    ClaimedBy m_claimed;
    UINT m_held = 0;                   // the key that was pressed last, if the pane took it
    MousePress m_press;                // of the mouse, in any window of the thread
    std::optional<DWORD> m_pressTime;  // of a button of the pane, in ticks
    Hook m_hook;
    static CKeyFilter* s_current;  // a hook procedure has no parameter of ours
};

}  // namespace fw
