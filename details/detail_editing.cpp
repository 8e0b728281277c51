#include "details/detail_editing.h"

#include <utility>

#include "details/edit_messages.h"
#include "editors/combo_control.h"
#include "editors/price_control.h"
#include "framework/hwnd.h"

namespace mc {
namespace {

void nameEditor(HWND editor, const std::string& field) {
    const HWND label =
        fw::makeNameLabel(editor, field + ", " + kDetailColumns[toIndex(kValueColumn)].name);
    SetWindowPos(label, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

std::unique_ptr<CCellControl> controlFor(RowAttribute attribute, const EditRules& rules) {
    if (attribute == RowAttribute::choice) return std::make_unique<CComboControl>(rules.choices);
    return std::make_unique<CPriceControl>(rules.allowed);
}

}  // namespace

// ---- Opening ----

bool CDetailEditing::onKeyDown(UINT key, bool) {
    const auto focused = m_lines.rows().selection().focusedRow();
    if (key != VK_F2 || !focused) return false;
    open(*focused, OpenedBy::key);
    return true;
}

void CDetailEditing::open(std::size_t row, OpenedBy by) {
    if (!leave()) return;
    LineGroups::Line* line = m_lines.lineAt(row);
    if (line == nullptr || !canEdit(*line)) return;
    RecordStore& rows = m_lines.rows();
    rows.selection().clear();
    rows.selection().select(row, true);
    rows.selection().setFocus(row);
    m_list.storeChanged();
    CellEditorOwner& owner = *this;
    m_editor = std::make_unique<CCellEditor>(owner, controlFor(line->row->attribute, m_rules));
    m_edited = line;
    const HFONT font = fw::fontOf(m_list.handle());
    if (!m_editor->open(m_list.handle(), m_list.bringValueIntoView(row), font, line->row->value))
        close();
    if (m_editor != nullptr) nameEditor(m_editor->handle(), line->row->caption);
    if (m_editor != nullptr && by == OpenedBy::mouse) m_editor->openedWithMouse();
}

void CDetailEditing::onNextEditor(EditEnd how) {
    const RecordStore& rows = m_lines.rows();
    const auto focused = rows.selection().focusedRow();
    if (!focused) return;
    const auto step = how == EditEnd::previous ? std::size_t(-1) : 1;
    // Backwards the number wraps around below the first row, to one beyond the last.
    for (std::size_t row = *focused + step; row < rows.rowCount(); row += step)
        if (const auto* line = m_lines.lineAt(row); line != nullptr && canEdit(*line))
            return open(row, OpenedBy::key);
}

bool CDetailEditing::onDialogKey(UINT key, bool repeated) {
    return m_editor != nullptr && m_editor->dialogKey(key, fw::isDown(VK_SHIFT), repeated);
}

// ---- Ending ----

void CDetailEditing::editEnding(EditEnd end, const std::optional<std::string>& typed) {
    if (typed && m_edited != nullptr && *typed != m_edited->row->value) report(*typed);
    close();
    SendMessageA(m_owner, kEditorClosed, 0, 0);
    if (end == EditEnd::next || end == EditEnd::previous)
        PostMessageA(m_list.handle(), kNextEditor, static_cast<WPARAM>(end), 0);
}

void CDetailEditing::report(const std::string& typed) {
    const EndOfEdit edit{*m_edited->row, kDetailColumns[toIndex(kValueColumn)].name, typed};
    const bool choice = m_edited->row->attribute == RowAttribute::choice;
    SendMessageA(m_owner, choice ? kEndOfChoice : kEndOfEdit,
                 static_cast<WPARAM>(GetDlgCtrlID(m_list.handle())),
                 reinterpret_cast<LPARAM>(&edit));
    if (m_edited == nullptr) return;  // the owner emptied the list
    m_lines.rowChanged(*m_edited);
    m_list.storeChanged();
}

void CDetailEditing::close() {
    m_edited = nullptr;
    const std::unique_ptr<CCellEditor> closed = std::move(m_editor);
    if (closed != nullptr && closed->owns(GetFocus())) SetFocus(m_list.handle());
}

void CDetailEditing::editorTextChanged() {
    SendMessageA(m_owner, kValueTyped, 0, 0);
}

TypedValue CDetailEditing::typed() const {
    if (m_editor == nullptr || m_edited == nullptr || !m_editor->changed()) return {};
    if (m_editor->refused()) return {.refused = true};
    return {.field = m_edited->row->mnemonic};
}

// ---- Cells and lines that move ----

void CDetailEditing::focusTaken() {
    if (m_editor != nullptr) m_editor->closeDropped();
    leave();
}

void CDetailEditing::fontChanged() {
    if (m_editor != nullptr) m_editor->setFont(fw::fontOf(m_list.handle()));
}

void CDetailEditing::cellsMove() {
    if (m_editor != nullptr && !m_editor->leave(false))
        PostMessageA(m_list.handle(), kFollowCell, 0, 0);
}

// The user hears of a text whose line went, so that it does not vanish unseen.
void CDetailEditing::onFollowCell() {
    if (m_editor != nullptr) {
        if (const auto row = m_lines.rowOf(*m_edited))
            return m_editor->moveTo(m_list.bringValueIntoView(*row));
        dropText();
    }
    if (const auto lost = std::exchange(m_lostText, std::nullopt)) editRefused(*lost);
}

void CDetailEditing::dropText() {
    m_lostText = m_editor->refused();
    close();
}

int CDetailEditing::detachLine() {
    if (m_editor != nullptr && !m_editor->changed()) close();
    const int field = m_edited != nullptr ? m_edited->row->mnemonic : 0;
    m_edited = nullptr;
    return field;
}

void CDetailEditing::attachLine(int field) {
    if (m_editor == nullptr) return;
    m_edited = m_lines.lineOf(field);
    if (m_edited == nullptr) dropText();
    PostMessageA(m_list.handle(), kFollowCell, 0, 0);
}

}  // namespace mc
