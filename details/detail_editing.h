// CDetailEditing: the one open editor over a value of the details, and what becomes of its text.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "details/model/line_groups.h"
#include "details/model/typed_value.h"
#include "details/multi_line_list_ctrl.h"
#include "editors/cell_editor.h"

namespace mc {

struct EditRules {
    std::string allowed;               // the characters that can be typed into values
    std::vector<std::string> choices;  // the entries of choice cells
};

class CDetailEditing final : private CellEditorOwner {
public:
    // Both must outlive the object.
    CDetailEditing(CMultiLineListCtrl& list, LineGroups& lines) : m_list(list), m_lines(lines) {}

    // As CMultiLineEditListCtrl says.
    void setOwner(HWND owner) { m_owner = owner; }
    void setRules(EditRules rules) { m_rules = std::move(rules); }

    bool isEnabled() const { return m_owner != nullptr; }
    bool canEdit(const LineGroups::Line& line) const {
        return isEnabled() && line.row->attribute != RowAttribute::readOnly;
    }

    enum class OpenedBy { key, mouse };
    // Opens the editor over the Value cell of a row that can be edited, and selects the row.
    void open(std::size_t row, OpenedBy by);
    bool owns(HWND window) const { return m_editor != nullptr && m_editor->owns(window); }
    bool onDialogKey(UINT key, bool repeated);
    // Ends an edit as if the focus went elsewhere. False: the text is refused, and the user hears.
    bool leave() { return m_editor == nullptr || m_editor->leave(); }
    // Ends an edit without its text.
    void close();

    // What leave() would do with the text that is being typed.
    TypedValue typed() const;

    // Ends an edit as the focus going elsewhere does: what is dropped down closes first.
    void focusTaken();
    // An editor that stays open has the list's new font.
    void fontChanged();

    // Cells move: an edit ends; only an editor whose text is refused stays, and follows its cell.
    void cellsMove();

    // The lines are replaced between these two: what is being typed stays in its editor, which
    // follows its field, the result of the first, into the new lines.
    int detachLine();
    void attachLine(int field);

    bool onKeyDown(UINT key, bool repeated);
    void onNextEditor(EditEnd how);
    void onFollowCell();

private:
    void editEnding(EditEnd end, const std::optional<std::string>& typed) override;
    void editRefused(const std::string& message) override { m_list.showMessage(message); }
    void editorFocusChanged() override { m_list.partFocusChanged(); }
    void editorTextChanged() override;

    void report(const std::string& typed);
    void dropText();

    CMultiLineListCtrl& m_list;
    LineGroups& m_lines;
    HWND m_owner = nullptr;
    EditRules m_rules;
    std::unique_ptr<CCellEditor> m_editor;
    LineGroups::Line* m_edited = nullptr;   // the line under the editor
    std::optional<std::string> m_lostText;  // why a text whose line went was refused
};

}  // namespace mc
