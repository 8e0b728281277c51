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

#include <memory>
#include <string>
#include <vector>

#include "details/multi_line_list_ctrl.h"
#include "editors/cell_editor.h"

namespace mc {

class CMultiLineEditListCtrl final : public CMultiLineListCtrl, private CellEditorOwner {
public:
    using CMultiLineListCtrl::CMultiLineListCtrl;

    // The window that is told of ended edits. Without one nothing can be edited.
    void setEditOwner(HWND owner) { m_editOwner = owner; }

    // The characters that can be typed into values.
    void setAllowedCharacters(std::string characters) { m_allowed = std::move(characters); }

    // The entries of choice cells.
    void setChoices(std::vector<std::string> choices) { m_choices = std::move(choices); }

    // Ends an edit as if the focus went elsewhere, then shows the groups.
    void replace(std::vector<DetailGroup> groups) override;

    // Ends an edit without taking its text, and removes and frees every group.
    void empty() override;

    // Ends an edit under way as if the focus went elsewhere: its text is taken. False: the text is
    // refused, the editor stays open, and the user is told.
    bool leaveEditor() { return m_editor == nullptr || m_editor->leave(); }

    // The edited values have been sent: their marks go.
    void editsSent();

    // The edited values are dropped: what was received shows again.
    void editsDropped();

    // Enter, Esc or Tab while an editor has the focus. False: the key is the control's.
    bool editorKey(UINT key, bool repeated);

    bool claims(UINT key) const override;

    // The editor's place in the order of tabs.
    bool editing(HWND focus) const { return m_editor != nullptr && m_editor->owns(focus); }

protected:
    const fw::MessageMap& messageMap() const override;
    CellLook cellLook(std::size_t row, int item) const override;
    void drawOver(HDC dc, std::size_t row, int item, const RECT& place) const override;

private:
    bool beforeCellsMove() override { return leaveEditor(); }
    void cellsMove() override;
    bool scrollRefused() { return !leaveEditor(); }
    void onScrolled(NMHDR&) { cellsMove(); }
    void onFollowCell();
    bool onEditKey(UINT key, bool repeated);
    void onEditDoubleClick(POINT client);
    void onResized(int, int) { cellsMove(); }
    void onNextEditor(WPARAM how);
    void editEnding(EditEnd end, const std::optional<std::string>& typed) override;
    void editRefused(const std::string& message) override;
    void editorFocusChanged() override;

    bool editable(const LineGroups::Line* line) const;
    void openEditor(std::size_t row);
    void closeEditor();
    void dropText();
    std::unique_ptr<CCellEditor> makeEditor(RowAttribute attribute);
    void tellOwner(const std::string& typed);
    RECT editPlace(std::size_t row) const;
    void drawFrame(HDC dc, RowAttribute attribute, const RECT& frame) const;

    HWND m_editOwner = nullptr;
    std::string m_allowed;
    std::vector<std::string> m_choices;
    std::unique_ptr<CCellEditor> m_editor;
    LineGroups::Line* m_edited = nullptr;   // the line that the editor stands on
    std::optional<std::string> m_lostText;  // why a text whose line went was refused
};

}  // namespace mc
