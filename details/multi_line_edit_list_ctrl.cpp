#include "details/multi_line_edit_list_ctrl.h"

#include <utility>

#include "details/edit_messages.h"
#include "details/model/row_state.h"

namespace mc {

CMultiLineEditListCtrl::CMultiLineEditListCtrl(ListServices& services, LineGroups& lines)
    : CMultiLineListCtrl(services, lines), m_editing(*this, lines) {
    looks().setEditable([this](const LineGroups::Line& line) { return m_editing.canEdit(line); });
}

const fw::MessageMap& CMultiLineEditListCtrl::messageMap() const {
    using C = CMultiLineEditListCtrl;
    static constexpr fw::MessageEntry entries[] = {
        fw::offer<WM_KEYDOWN, &C::m_editing, &CDetailEditing::onKeyDown>(),
        fw::on<WM_LBUTTONDBLCLK, &C::onDoubleClick>(),
        fw::on<kNextEditor, &C::m_editing, &CDetailEditing::onNextEditor>(),
        fw::on<kFollowCell, &C::m_editing, &CDetailEditing::onFollowCell>(),
        fw::offer<WM_VSCROLL, &C::scrollRefused>(),
        fw::offer<WM_HSCROLL, &C::scrollRefused>(),
        fw::offer<WM_MOUSEWHEEL, &C::scrollRefused>(),
        fw::offer<WM_MOUSEHWHEEL, &C::scrollRefused>(),
        fw::onReflected<LVN_ENDSCROLL, &C::onScrolled>(),
        fw::observe<WM_SIZE, &C::onResized>(),
    };
    static const fw::MessageMap map{&CMultiLineListCtrl::baseMap(), entries};
    return map;
}

RowState CMultiLineEditListCtrl::rowState(std::size_t row) const {
    const LineGroups::Line* const line = lines().lineAt(row);
    return line != nullptr ? stateOf(lines(), *line, m_editing.canEdit(*line)) : RowState{};
}

void CMultiLineEditListCtrl::onDoubleClick(POINT client) {
    if (!input().pressTwice(client)) return;
    const auto cell = header().cellAt(client);
    if (cell && content().columnAt(cell->item) == kValueColumn)
        m_editing.open(cell->row, CDetailEditing::OpenedBy::mouse);
}

void CMultiLineEditListCtrl::replace(std::vector<DetailGroup> groups) {
    const int field = m_editing.detachLine();
    CMultiLineListCtrl::replace(std::move(groups));
    m_editing.attachLine(field);
}

void CMultiLineEditListCtrl::empty() {
    m_editing.close();
    CMultiLineListCtrl::empty();
}

void CMultiLineEditListCtrl::editsSent() {
    if (lines().editsSent()) storeChanged();
}

void CMultiLineEditListCtrl::editsDropped() {
    if (lines().editsDropped()) storeChanged();
}

bool CMultiLineEditListCtrl::claims(UINT key) const {
    return (key == VK_F2 && m_editing.isEnabled()) || CMultiLineListCtrl::claims(key);
}

}  // namespace mc
