// CMultiLineEditListCtrl: the list of change details, Field / Value / Old Value, in which values
// can be edited.
//
// F2 or a double-click opens the editor that the row's attribute names over its Value cell: the
// price editor for a number, the combo editor for a choice. Enter commits, Esc cancels, Tab and
// Shift+Tab commit and go on with the next row that can be edited. Losing the focus commits, and so
// does everything that moves cells; a text that is refused keeps the editor open over its cell, and
// cells where they are. What was typed goes to the edit owner (kEndOfEdit, kEndOfChoice), which
// changes the row. A text that did not change is no edit.
#pragma once

#include <string>
#include <vector>

#include "details/detail_editing.h"
#include "details/multi_line_list_ctrl.h"

namespace mc {

class CMultiLineEditListCtrl final : public CMultiLineListCtrl {
public:
    // Both must outlive the list.
    CMultiLineEditListCtrl(ListServices& services, LineGroups& lines);

    // The window that is notified of ended edits. Without one nothing can be edited.
    void setEditOwner(HWND owner) { m_editing.setOwner(owner); }
    bool offersEditing() const { return m_editing.isEnabled(); }

    void setEditRules(EditRules rules) { m_editing.setRules(std::move(rules)); }

    // Ends an edit in which nothing was typed, then shows the groups; any other edit goes on over
    // its field, if that is among them.
    void replace(std::vector<DetailGroup> groups) override;

    // Ends an edit without its text, and removes and frees every group.
    void empty() override;

    // Ends an edit under way as if the focus went elsewhere: it commits. False: the text is
    // refused, the editor stays open, and the user hears why.
    bool leaveEditor() { return m_editing.leave(); }
    // What that would do with the text that is being typed.
    TypedValue typed() const { return m_editing.typed(); }

    // The edited values have been sent: their marks go.
    void editsSent();

    // The edited values are dropped: what was received shows again.
    void editsDropped();

    // Enter, Esc or Tab while an editor has the focus. False: the key is the control's.
    bool editorKey(UINT key, bool repeated) { return m_editing.onDialogKey(key, repeated); }

    bool claims(UINT key) const override;

    // Whether `focus` is in the editor.
    bool editing(HWND focus) const { return m_editing.owns(focus); }

protected:
    const fw::MessageMap& messageMap() const override;

private:
    bool beforeCellsMove() override { return leaveEditor(); }
    RowState rowState(std::size_t row) const override;
    void cellsMove() override { m_editing.cellsMove(); }
    void leaveParts() override {
        CMultiLineListCtrl::leaveParts();
        m_editing.focusTaken();
    }
    void fontChanged() override {
        CMultiLineListCtrl::fontChanged();
        m_editing.fontChanged();
    }
    bool scrollRefused() { return !leaveEditor(); }
    void onScrolled(NMHDR&) { cellsMove(); }
    void onResized(int, int) { cellsMove(); }
    void onDoubleClick(POINT client);

    CDetailEditing m_editing;
};

}  // namespace mc
