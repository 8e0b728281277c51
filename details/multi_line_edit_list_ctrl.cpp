#include "details/multi_line_edit_list_ctrl.h"

#include <algorithm>

#include "details/edit_messages.h"
#include "editors/combo_editor.h"
#include "editors/price_editor.h"
#include "listctrl/list_colors.h"

namespace mc {
namespace {

constexpr COLORREF kEditedColor = RGB(0, 72, 168);  // of a value that has not been sent

}  // namespace

const fw::MessageMap& CMultiLineEditListCtrl::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::offer<WM_KEYDOWN, &CMultiLineEditListCtrl::onEditKey>(),
        fw::on<WM_LBUTTONDBLCLK, &CMultiLineEditListCtrl::onEditDoubleClick>(),
        fw::on<kNextEditor, &CMultiLineEditListCtrl::onNextEditor>(),
        fw::on<kFollowCell, &CMultiLineEditListCtrl::onFollowCell>(),
        fw::offer<WM_VSCROLL, &CMultiLineEditListCtrl::scrollRefused>(),
        fw::offer<WM_HSCROLL, &CMultiLineEditListCtrl::scrollRefused>(),
        fw::offer<WM_MOUSEWHEEL, &CMultiLineEditListCtrl::scrollRefused>(),
        fw::offer<WM_MOUSEHWHEEL, &CMultiLineEditListCtrl::scrollRefused>(),
        fw::onReflected<LVN_ENDSCROLL, &CMultiLineEditListCtrl::onScrolled>(),
        fw::observe<WM_SIZE, &CMultiLineEditListCtrl::onResized>(),
        fw::observe<WM_DPICHANGED_AFTERPARENT, &CMultiLineEditListCtrl::cellsMove>(),
    };
    static const fw::MessageMap map{&CMultiLineListCtrl::baseMap(), entries};
    return map;
}

// ---- Editing ----

bool CMultiLineEditListCtrl::editable(const LineGroups::Line* line) const {
    return line != nullptr && m_editOwner != nullptr &&
           line->row->attribute != RowAttribute::readOnly && columns().placeOf(kValueColumn);
}

bool CMultiLineEditListCtrl::onEditKey(UINT key, bool) {
    const auto focused = store().focusedRow();
    if (key != VK_F2 || !focused) return false;
    openEditor(*focused);
    return true;
}

void CMultiLineEditListCtrl::onEditDoubleClick(POINT client) {
    if (!pressTwice(client)) return;
    const auto cell = cellAt(client);
    if (!cell || columnAt(cell->item) != kValueColumn) return;
    openEditor(cell->row);
    if (m_editor != nullptr) m_editor->openedWithMouse();
}

std::unique_ptr<CCellEditor> CMultiLineEditListCtrl::makeEditor(RowAttribute attribute) {
    CellEditorOwner& owner = *this;
    if (attribute == RowAttribute::choice) return std::make_unique<CComboEditor>(owner, m_choices);
    return std::make_unique<CPriceEditor>(owner, m_allowed);
}

// The row is brought into view, its Value cell too.
RECT CMultiLineEditListCtrl::editPlace(std::size_t row) const {
    const int item = static_cast<int>(*columns().placeOf(kValueColumn));
    SendMessageA(handle(), LVM_ENSUREVISIBLE, row, FALSE);
    const RECT client = clientRect();
    const RECT place = cellPlace(row, item);
    const LONG missing = std::min(place.left, std::max(place.right - client.right, 0L));
    if (missing != 0) SendMessageA(handle(), LVM_SCROLL, static_cast<WPARAM>(missing), 0);
    RECT inside{};
    const RECT moved = cellPlace(row, item);
    IntersectRect(&inside, &moved, &client);
    return inside;
}

void CMultiLineEditListCtrl::openEditor(std::size_t row) {
    if (!leaveEditor()) return;
    LineGroups::Line* line = lines().lineAt(row);
    if (!editable(line)) return;
    store().clearSelection();
    store().select(row, true);
    store().setFocus(row);
    storeChanged();
    m_editor = makeEditor(line->row->attribute);
    m_edited = line;
    const auto font = reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0));
    if (!m_editor->open(handle(), editPlace(row), font, line->row->value)) closeEditor();
}

void CMultiLineEditListCtrl::onNextEditor(WPARAM how) {
    const auto focused = store().focusedRow();
    if (!focused) return;
    const auto step = static_cast<EditEnd>(how) == EditEnd::previous ? std::size_t(-1) : 1;
    // Backwards the number wraps around below the first row, to one beyond the last.
    for (std::size_t row = *focused + step; row < store().rowCount(); row += step)
        if (editable(lines().lineAt(row))) return openEditor(row);
}

void CMultiLineEditListCtrl::editEnding(EditEnd end, const std::optional<std::string>& typed) {
    if (typed && m_edited != nullptr && *typed != m_edited->row->value) tellOwner(*typed);
    closeEditor();
    SendMessageA(m_editOwner, kEditorClosed, 0, 0);
    if (end == EditEnd::next || end == EditEnd::previous)
        PostMessageA(handle(), kNextEditor, static_cast<WPARAM>(end), 0);
}

void CMultiLineEditListCtrl::editRefused(const std::string& message) {
    services().showMessage(message);
}

void CMultiLineEditListCtrl::editorFocusChanged() {
    boxFocusChanged();
}

// Only an editor whose text is refused stays.
void CMultiLineEditListCtrl::cellsMove() {
    if (m_editor != nullptr && !m_editor->leave(false)) PostMessageA(handle(), kFollowCell, 0, 0);
}

// The text of an editor whose line went is told of, so that it does not vanish unseen.
void CMultiLineEditListCtrl::onFollowCell() {
    if (m_editor != nullptr) {
        if (const auto row = lines().rowOf(*m_edited)) return m_editor->moveTo(editPlace(*row));
        dropText();
    }
    if (const auto lost = std::exchange(m_lostText, std::nullopt)) editRefused(*lost);
}

void CMultiLineEditListCtrl::tellOwner(const std::string& typed) {
    const EndOfEdit edit{*m_edited->row, kDetailColumns[toIndex(kValueColumn)].name, typed};
    const bool choice = m_edited->row->attribute == RowAttribute::choice;
    SendMessageA(m_editOwner, choice ? kEndOfChoice : kEndOfEdit,
                 static_cast<WPARAM>(GetDlgCtrlID(handle())), reinterpret_cast<LPARAM>(&edit));
    if (m_edited == nullptr) return;  // the owner emptied the list
    lines().rowChanged(*m_edited);
    storeChanged();
}

void CMultiLineEditListCtrl::closeEditor() {
    m_edited = nullptr;
    const std::unique_ptr<CCellEditor> closed = std::move(m_editor);
    if (closed != nullptr && closed->owns(GetFocus())) SetFocus(handle());
}

// What is being typed stays in its editor, which follows its field into the new rows.
void CMultiLineEditListCtrl::replace(std::vector<DetailGroup> groups) {
    if (m_editor != nullptr && !m_editor->changed()) closeEditor();
    const int field = m_edited != nullptr ? m_edited->row->mnemonic : 0;
    m_edited = nullptr;
    CMultiLineListCtrl::replace(std::move(groups));
    if (m_editor == nullptr) return;
    m_edited = lines().lineOf(field);
    if (m_edited == nullptr) dropText();
    PostMessageA(handle(), kFollowCell, 0, 0);
}

void CMultiLineEditListCtrl::dropText() {
    m_lostText = m_editor->refused();
    closeEditor();
}

void CMultiLineEditListCtrl::empty() {
    closeEditor();
    CMultiLineListCtrl::empty();
}

void CMultiLineEditListCtrl::editsSent() {
    if (lines().editsSent()) storeChanged();
}

void CMultiLineEditListCtrl::editsDropped() {
    if (lines().editsDropped()) storeChanged();
}

bool CMultiLineEditListCtrl::editorKey(UINT key, bool repeated) {
    return m_editor != nullptr && m_editor->dialogKey(key, GetKeyState(VK_SHIFT) < 0, repeated);
}

bool CMultiLineEditListCtrl::claims(UINT key) const {
    return (key == VK_F2 && m_editOwner != nullptr) || CMultiLineListCtrl::claims(key);
}

// ---- Drawing ----

CellLook CMultiLineEditListCtrl::cellLook(std::size_t row, int item) const {
    CellLook look = CMultiLineListCtrl::cellLook(row, item);
    const LineGroups::Line* line = lines().lineAt(row);
    if (line != nullptr && line->row->edited && columnAt(item) == kValueColumn) {
        look.text = kEditedColor;
        look.font = boldFont();
        if (dimmed()) dim(look);
    }
    return look;
}

void CMultiLineEditListCtrl::drawFrame(HDC dc, RowAttribute attribute, const RECT& frame) const {
    SetDCBrushColor(dc, mixed(GetTextColor(dc), GetBkColor(dc), 90));
    FrameRect(dc, &frame, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    if (attribute != RowAttribute::choice) return;
    const int size = scaled(4);
    const POINT at{frame.right - scaled(9), (frame.top + frame.bottom) / 2};
    fillTriangle(dc, {{{at.x - size, at.y - size / 2},
                       {at.x + size, at.y - size / 2},
                       {at.x, at.y + size / 2}}});
}

// A value that can be edited has a frame, a choice an arrow at its end. An edit that has not been
// sent has its upper left corner folded down, and the right one too when it was typed over an older
// value.
void CMultiLineEditListCtrl::drawOver(HDC dc, std::size_t row, int item, const RECT& place) const {
    CMultiLineListCtrl::drawOver(dc, row, item, place);
    const LineGroups::Line* line = lines().lineAt(row);
    if (line == nullptr || columnAt(item) != kValueColumn) return;
    const RECT frame{place.left + scaled(2), place.top, place.right - scaled(2), place.bottom};
    if (editable(line)) drawFrame(dc, line->row->attribute, frame);
    if (line->row->edited) drawEditMark(dc, frame);
    const LONG size = scaled(8);
    if (line->row->overOlder)
        fillTriangle(dc, {{{frame.right, frame.top},
                           {frame.right - size, frame.top},
                           {frame.right, frame.top + size}}});
}

}  // namespace mc
