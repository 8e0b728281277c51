// What the checker does in the pane's lists, and with the keys that go from change to change.
#pragma once

#include "workbench/checker_lists.h"
#include "workbench/decision_buttons.h"
#include "workbench/model/pane_commands.h"
#include "workbench/model/workbench.h"

namespace mc {

class ListActions {
public:
    // Both must outlive the object. Nothing is done before open().
    ListActions(CheckerLists& lists, DecisionButtons& buttons)
        : m_lists(lists), m_buttons(buttons) {}

    // The workbench must outlive the object.
    void open(Workbench& workbench) { m_workbench = &workbench; }

    // ---- Selecting and filtering ----

    void selectionMade();
    // False: Esc ended it, and the rows are as before.
    bool applyMainFilter();
    void chooseQuickFilter(PaneCommand command);

    // Selects the other halves of investors' pairs too. Filters that hide one are taken off.
    void selectPair();

    // ---- Opening details ----

    void showSelected();  // a double-click: of the first selected row
    void showFocused();   // Enter: of the focused row, selected or not
    void openNext();

    // The neighbour takes over the selection of a change that was selected alone, so that what is
    // read is what is decided; any other selection stays.
    void openNeighbour();

    // ---- Editing ----

    void endOfEdit(const EndOfEdit& edit);
    void endOfChoice(const EndOfEdit& edit);
    void editorClosed();
    void dropEdits();

private:
    CheckerLists& m_lists;
    DecisionButtons& m_buttons;
    Workbench* m_workbench = nullptr;
    bool m_selectionWaits = false;  // for the end of an edit, with what it does to the details
};

}  // namespace mc
