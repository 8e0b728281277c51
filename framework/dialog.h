// Modal dialogs and message boxes.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "framework/window.h"

namespace fw {

// While it lives, the thread's top-level windows take no input, floating tool windows included, so
// that nothing can be pressed behind a modal window. It enables those that it disabled. `owner`,
// which may be null, is left to the modal window itself.
class CModalScope {
public:
    explicit CModalScope(HWND owner);
    ~CModalScope();
    CModalScope(const CModalScope&) = delete;
    CModalScope& operator=(const CModalScope&) = delete;

private:
    std::vector<HWND> m_disabled;
};

// Shows `text` without a caption and with an OK button; returns when it is closed.
void showMessageBox(const std::string& text);

// Asks a question with "Yes" and "No"; true for "Yes". "No" is the default, and Esc is none.
bool askYesNo(const std::string& question);

// A modal dialog made from a template of this module. A derived class is used by one function from
// plain arguments to a plain result, which constructs it, runs it and reads what it holds.
class CDialog : public CWindow {
protected:
    // Runs the dialog. Returns what was given to end(), or `failed` when it could not be made.
    INT_PTR run(UINT templateId, INT_PTR failed);

    void end(INT_PTR result) { EndDialog(handle(), result); }

    // Puts the dialog over the middle of `window`, as far as its monitor has room.
    void centerOver(HWND window);
    // Gives the dialog another height; it stays on its monitor.
    void setHeight(int pixels);

    HWND item(int id) const { return GetDlgItem(handle(), id); }
    std::string itemText(int id) const;
    void setItemText(int id, const std::string& text) { SetWindowTextA(item(id), text.c_str()); }
};

}  // namespace fw
