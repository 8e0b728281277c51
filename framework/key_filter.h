// Dialog keys for a modeless pane inside a host whose message loop knows nothing of it.
//
// A host's loop calls no IsDialogMessage for a plug-in's pane, so Tab, Enter and Esc would do
// nothing there. CKeyFilter watches the thread's message queue with a hook, and readdresses those
// keys, when they are meant for a child of the pane, to the pane itself as kPaneKey. The host then
// dispatches that like any other message; nothing runs inside the hook. Esc comes from any window
// of the thread while the mouse is held by the pane or a window in it, so that it ends a drag.
#pragma once

#include <windows.h>

#include <span>

#include "framework/handles.h"
#include "framework/message_map.h"

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
    // `actions` must outlive the filter.
    explicit CKeyFilter(HWND pane, std::span<const ActionKey> actions = {});
    ~CKeyFilter();
    CKeyFilter(const CKeyFilter&) = delete;
    CKeyFilter& operator=(const CKeyFilter&) = delete;

private:
    static LRESULT CALLBACK hookProc(int code, WPARAM wParam, LPARAM lParam) noexcept;

    bool takes(const MSG& message) const;

    HWND m_pane;
    std::span<const ActionKey> m_actions;
    Hook m_hook;
    static CKeyFilter* s_current;  // a hook procedure is handed no object of ours
};

}  // namespace fw
