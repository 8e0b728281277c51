// The pane's four buttons, and the line below them that says what a press would do. The hand asks
// for one thing at a time: a press is dropped while an earlier one is at work.
#pragma once

#include <span>
#include <vector>

#include "frames/control_pos.h"
#include "framework/pane_dialog.h"
#include "workbench/checker_lists.h"
#include "workbench/model/workbench.h"
#include "workbench/press_line_window.h"

namespace mc {

class DecisionButtons {
public:
    // Both must outlive the object. Nothing is done before open().
    DecisionButtons(fw::CPaneDialog& pane, CheckerLists& lists) : m_pane(pane), m_lists(lists) {}

    // In the pane's dialog: first the line, and the buttons when it is known which of them show.
    // The workbench must outlive the object.
    void open(Workbench& workbench);
    void addButtons();

    // The buttons as windows, from left to right, and the keys that press them.
    std::vector<HWND> windows() const;
    static std::span<const fw::ActionKey> keys();

    // Places the buttons and the line at the top of the pane; returns the room for the lists.
    RECT arrange();
    void followDpi() { m_line.followDpi(); }

    // Something that the line says may have changed.
    void stale() { m_line.stale(); }

    // ---- What the hand asks for ----

    void accept();
    void reject();
    void update();
    void recover();

    // Anything else. It is dropped likewise, and while the text of an edit is refused.
    template <class Decision>
    void decide(Decision decision) {
        if (m_deciding || m_workbench == nullptr) return;
        struct Scope {
            bool& flag;
            explicit Scope(bool& set) : flag(set) { flag = true; }
            ~Scope() { flag = false; }
        } const scope(m_deciding);
        // An edit that is under way ends first; while its text is refused, nothing is decided.
        if (!m_lists.details().leaveEditor()) return;
        decision(*m_workbench);
    }

private:
    template <class Decision>
    void press(PressButton button, Decision decision);
    bool pressedInSight(PressButton button);
    bool typedFilterKeepsSelection();
    PressLine describe(PressButton button) const;

    fw::CPaneDialog& m_pane;
    CheckerLists& m_lists;
    Workbench* m_workbench = nullptr;
    CControlPos m_buttons;
    CPressLine m_line{[this](PressButton button) { return describe(button); },
                      [this] { m_workbench->sight().painted(); }};
    bool m_deciding = false;  // what the hand asked for is under way, perhaps behind a message box
};

}  // namespace mc
