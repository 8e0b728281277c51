// Modal dialogs, message boxes and menus.
#pragma once

#include <windows.h>

#include <functional>
#include <span>
#include <string>

#include "framework/hwnd.h"
#include "framework/window.h"

namespace fw {

// While a modal window is open, the thread's other top-level windows take no input, floating tool
// windows included, so that nothing can be pressed behind it. One is opened over the thread's
// active window; while another program is in front, over what setModalHome() named.

// Names the window whose root is the owner of modal windows while the thread has no active window;
// where that root is hidden, what owns it. Null: none.
void setModalHome(HWND window) noexcept;

// The windows of this module end, behind whatever is open: its modal windows and menus close, what
// they disabled is enabled again, and the calls under way show no more of them (callEnded).
void endWindows() noexcept;

// Runs `show`, which is given the owner, opens a dialog over it and returns when that is closed.
// 0 when nothing may be shown any more, or the dialog was closed by endWindows().
INT_PTR runModal(const std::function<INT_PTR(HWND owner)>& show);

// Shows `text` without a caption and with an OK button; returns when it is closed.
void showMessageBox(const std::string& text);

// Asks a question with "Yes" and "No"; true for "Yes". "No" is the default, and Esc is none.
bool askYesNo(const std::string& question);

// Has `window` open one of its menus at `screen`, by kOpenMenu, when the message that asked for it
// is answered: while a menu is open anything may end, and then no platform code that sent that
// message returns to a window that is gone. `which` is the window's own number of the menu.
void postMenu(HWND window, UINT which, POINT screen) noexcept;

// Shows a menu at `screen` for `owner`; returns the command that was chosen, or 0.
UINT trackMenu(HMENU menu, POINT screen, HWND owner);

// A modal dialog made from a template of this module. A derived class is used by one function from
// plain arguments to a plain result, which constructs it, runs it and reads what it holds.
class CDialog : public CWindow {
protected:
    // Runs the dialog. Returns what was given to end(), or `failed` when it could not be made or
    // its module's windows ended.
    INT_PTR run(UINT templateId, INT_PTR failed);

    void end(INT_PTR result) { EndDialog(handle(), result); }

    // Puts the dialog over the middle of `window`, as far as its monitor has room.
    void centerOver(HWND window);
    // Gives the dialog another height; it stays on its monitor.
    void setHeight(int pixels);

    // Which button Enter presses.
    void setDefaultButton(int id) const;
    // Gives the control the focus as Tab does: its text is selected.
    void focusItem(int id) const;
    void moveItemsDown(std::span<const int> ids, int pixels) const;

    HWND item(int id) const { return GetDlgItem(handle(), id); }
    std::string itemText(int id) const { return textOf(item(id)); }
    void setItemText(int id, const std::string& text) { SetWindowTextA(item(id), text.c_str()); }
};

}  // namespace fw
