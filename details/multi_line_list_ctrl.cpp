#include "details/multi_line_list_ctrl.h"

#include <algorithm>
#include <utility>

#include "framework/list_view.h"

namespace mc {

CMultiLineListCtrl::CMultiLineListCtrl(ListServices& services, LineGroups& lines)
    : CFilterListCtrl(services, lines.rows()), m_lines(lines), m_looks(*this, content(), lines) {
    painter().setLooks(m_looks);
}

const fw::MessageMap& CMultiLineListCtrl::baseMap() {
    static constexpr fw::MessageEntry entries[] = {
        fw::onReflected<LVN_COLUMNCLICK, &CMultiLineListCtrl::onCaptionClick>(),
        fw::on<WM_LBUTTONDOWN, &CMultiLineListCtrl::onLinePressed>(),
        fw::offer<WM_KEYDOWN, &CMultiLineListCtrl::onFoldKey>(),
    };
    static const fw::MessageMap map{&CCommonListCtrl::baseMap(), entries};
    return map;
}

void CMultiLineListCtrl::replace(std::vector<DetailGroup> groups) {
    m_lines.replace(std::move(groups));
    storeChanged();
}

void CMultiLineListCtrl::empty() {
    m_lines.clear();
    storeChanged();
}

void CMultiLineListCtrl::setDimmed(bool dimmed) {
    if (m_looks.setDimmed(dimmed)) InvalidateRect(handle(), nullptr, TRUE);
}

void CMultiLineListCtrl::fontChanged() {
    m_looks.fontChanged();
    CFilterListCtrl::fontChanged();
}

RECT CMultiLineListCtrl::bringValueIntoView(std::size_t row) {
    const fw::ListView view(handle());
    const int item = static_cast<int>(*content().columns().positionOf(kValueColumn));
    view.bringIntoView(row);
    const RECT client = clientRect();
    const RECT cell = header().rectOf({row, item});
    const LONG missing = std::min(cell.left, std::max(cell.right - client.right, 0L));
    if (missing != 0) view.scroll(static_cast<int>(missing), 0);
    RECT visible{};
    const RECT moved = header().rectOf({row, item});
    // A column without width has no visible part; its row has.
    return IntersectRect(&visible, &moved, &client) != 0 ? visible : moved;
}

std::vector<NamedText> CMultiLineListCtrl::wholeTexts(std::size_t row, ColumnId column) const {
    const LineGroups::Line* const line = m_lines.lineAt(row);
    if (line == nullptr || line->isHeading() || line->row->oldValue.empty())
        return CFilterListCtrl::wholeTexts(
            row, line == nullptr || line->isHeading() ? column : kValueColumn);
    std::vector<NamedText> texts;
    for (const ColumnId each : {kValueColumn, kOldValueColumn})
        texts.push_back({line->row->caption + ", " + kDetailColumns[toIndex(each)].name,
                         std::string(content().text(row, each))});
    return texts;
}

// ---- Folding ----

void CMultiLineListCtrl::setFolded(const LineGroups::Line& line, bool folded) {
    if (!beforeCellsMove()) return;
    m_lines.setFolded(line, folded);
    storeChanged();
}

// With Ctrl or Shift a click selects and folds nothing; nor does the second of a double-click.
void CMultiLineListCtrl::onLinePressed(POINT client) {
    if (!input().press(client)) return;
    const Modifiers keys = modifiersDown();
    if (keys.ctrl || keys.shift) return;
    const auto cell = header().cellAt(client);
    const LineGroups::Line* line = cell ? m_lines.lineAt(cell->row) : nullptr;
    if (line != nullptr && line->isHeading()) setFolded(*line, !m_lines.folded(*line));
}

// Left on a row goes to its heading, Left on a heading folds; Right unfolds.
bool CMultiLineListCtrl::onFoldKey(UINT key, bool) {
    if (key != VK_LEFT && key != VK_RIGHT) return false;
    const auto focused = store().selection().focusedRow();
    const LineGroups::Line* line = focused ? m_lines.lineAt(*focused) : nullptr;
    if (line == nullptr) return true;
    if (line->isHeading()) {
        setFolded(*line, key == VK_LEFT);
    } else if (const auto heading = key == VK_LEFT ? m_lines.headingRow(*line) : std::nullopt) {
        input().goTo(*heading);
    }
    return true;
}

}  // namespace mc
