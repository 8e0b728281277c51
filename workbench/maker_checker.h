// CMakerChecker: the checker's workbench, one docking pane in the host's main frame.
//
// A row of decision buttons, and the line that says what a press would do, lie above two lists: one
// row per pending change, and below it the details of the change that is looked at. The pane draws,
// asks the Workbench and tells it what the checker did; every rule is there. Its parts:
//
//   DecisionButtons   the buttons and the line
//   CheckerLists      the two lists in their frame
//   ListActions       what the checker does in them
//   DecisionsPanel    the list of the session's own decisions
#pragma once

#include <memory>

#include "frames/model/dialog_bar.h"
#include "framework/pane_dialog.h"
#include "link/model/host.h"
#include "workbench/checker_lists.h"
#include "workbench/decision_buttons.h"
#include "workbench/decisions_panel.h"
#include "workbench/list_actions.h"
#include "workbench/model/pane_commands.h"
#include "workbench/model/workbench.h"

namespace mc {

class CMakerChecker final : public fw::CPaneDialog {
public:
    // Both must outlive the pane. The window is made by createPane().
    CMakerChecker(Host& host, ListServices& lists);
    ~CMakerChecker() override { destroy(); }

    // Creates the pane's window, and with it the link, in the frame, and shows what the link could
    // not have. False when there is no window, or none any more. Once only: when the window goes
    // the rules are closed, and the object stays for the calls that are under way in it.
    bool createPane(HWND frame);

    // The rules behind the window; null while there is no window.
    Workbench* workbench() const { return handle() != nullptr ? m_workbench.get() : nullptr; }

    // Lays the pane out and docks it again: start-up found it there.
    void layOutAgain();

protected:
    const fw::MessageMap& messageMap() const override;
    HWND initialFocus() const override { return m_lists.mainWindow(); }
    void onDialogKey(UINT key, bool repeated) override;
    std::vector<HWND> tabStops() const override;
    bool controlClaims(HWND control, UINT key) const override;
    std::span<const fw::ActionKey> actionKeys() const override;
    void onHidden() override { keepFloatSize(); }
    void onColorsChanged() override;
    void onDpiChanged() override;
    SIZE leastSize() const override { return {scaled(220), scaled(320)}; }
    SIZE firstFloatSize() const override;

private:
    LRESULT onInitDialog();
    void onDestroy();
    void keepFloatSize();
    void onCancel() {}
    void run(PaneCommand command);
    void showKeys();
    void toggleDecisions();
    void layOut() { m_lists.move(m_decisions.takeRoom(m_buttons.arrange())); }

    Host& m_host;
    CVoskDialogBar m_bar;  // the pane while it floats
    std::unique_ptr<Workbench> m_workbench;
    bool m_initialized = false;  // onInitDialog() came to its end
    CheckerLists m_lists;        // on the rows of the workbench, and so behind it here
    DecisionButtons m_buttons{*this, m_lists};
    ListActions m_actions{m_lists, m_buttons};
    DecisionsPanel m_decisions;  // on the log of the workbench
};

}  // namespace mc
