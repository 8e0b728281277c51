#include "listctrl/multi_line_list_ctrl.h"

#include "listctrl/list_colors.h"

namespace {

constexpr int kIndent = 16;                             // of a row below its heading
constexpr int kMarkRoom = 14;                           // of the fold mark in front of a heading
constexpr COLORREF kChangedColor = RGB(255, 222, 120);  // behind a value that changed

}  // namespace

const fw::MessageMap& CMultiLineListCtrl::baseMap() {
    static constexpr fw::MessageEntry entries[] = {
        fw::onReflected<LVN_COLUMNCLICK, &CMultiLineListCtrl::onCaptionClick>(),
        fw::on<WM_LBUTTONDOWN, &CMultiLineListCtrl::onLinePressed>(),
        fw::offer<WM_KEYDOWN, &CMultiLineListCtrl::onFoldKey>(),
    };
    static const fw::MessageMap map{&CCommonListCtrl::baseMap(), entries};
    return map;
}

void CMultiLineListCtrl::append(std::vector<DetailGroup> groups) {
    m_lines.append(std::move(groups));
    storeChanged();
}

void CMultiLineListCtrl::empty() {
    m_lines.clear();
    storeChanged();
}

// ---- Folding ----

void CMultiLineListCtrl::setFolded(const LineGroups::Line& line, bool folded) {
    if (!beforeCellsMove()) return;
    m_lines.setFolded(line, folded);
    storeChanged();
}

// With Ctrl or Shift a click selects and folds nothing; nor does the second of a double-click.
void CMultiLineListCtrl::onLinePressed(POINT client) {
    onButtonDown(client);
    if (GetKeyState(VK_CONTROL) < 0 || GetKeyState(VK_SHIFT) < 0) return;
    const auto cell = cellAt(client);
    const LineGroups::Line* line = cell ? m_lines.lineAt(cell->row) : nullptr;
    if (line != nullptr && line->isHeading()) setFolded(*line, !m_lines.folded(*line));
}

// Left folds, from a row too, and then stands on the heading; Right unfolds.
bool CMultiLineListCtrl::onFoldKey(UINT key, bool) {
    if (key != VK_LEFT && key != VK_RIGHT) return false;
    const auto focused = store().focusedRow();
    const LineGroups::Line* line = focused ? m_lines.lineAt(*focused) : nullptr;
    if (line == nullptr) return true;
    if (line->isHeading()) {
        setFolded(*line, key == VK_LEFT);
    } else if (const auto heading = key == VK_LEFT ? m_lines.headingRow(*line) : std::nullopt) {
        store().clearSelection();
        store().select(*heading, true);
        store().setFocus(*heading);
        storeChanged();
        SendMessageA(handle(), LVM_ENSUREVISIBLE, *heading, FALSE);
    }
    return true;
}

// ---- Drawing ----

HFONT CMultiLineListCtrl::boldFont() const {
    if (m_bold) return m_bold.get();
    const auto font = reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0));
    LOGFONTA bold{};
    if (GetObjectA(font, sizeof bold, &bold) == 0) return nullptr;
    bold.lfWeight = FW_BOLD;
    m_bold.reset(CreateFontIndirectA(&bold));
    return m_bold.get();
}

void CMultiLineListCtrl::fontChanged() {
    m_bold.reset();
    CFilterListCtrl::fontChanged();
}

CellLook CMultiLineListCtrl::cellLook(std::size_t row, int item) const {
    const LineGroups::Line* line = m_lines.lineAt(row);
    if (line == nullptr) return {};
    CellLook look;
    const bool first = columnAt(item) == kFieldColumn;
    if (line->isHeading()) {
        look.font = boldFont();
        look.background = GetSysColor(COLOR_3DFACE);
        look.text = GetSysColor(COLOR_BTNTEXT);
        look.indent = item == 0 ? scaled(kMarkRoom) : 0;
    } else if (first) {
        look.indent = scaled(kIndent);
    } else if (line->changed && columnAt(item) == kValueColumn) {
        look.font = boldFont();
        look.background = mixed(kChangedColor, GetSysColor(COLOR_WINDOW), 150);
        look.text = GetSysColor(COLOR_WINDOWTEXT);  // whatever the list's own colours are
    }
    return look;
}

// The fold mark in front of a heading: it points down when the group is open.
void CMultiLineListCtrl::drawOver(HDC dc, std::size_t row, int item, const RECT& place) const {
    const LineGroups::Line* line = m_lines.lineAt(row);
    if (item != 0 || line == nullptr || !line->isHeading() || line->item->group.rows.empty())
        return;
    const int size = scaled(4);
    const POINT at{place.left + scaled(10), (place.top + place.bottom) / 2};
    fillTriangle(dc, m_lines.folded(*line) ? std::array<POINT, 3>{{{at.x - size / 2, at.y - size},
                                                                   {at.x - size / 2, at.y + size},
                                                                   {at.x + size / 2, at.y}}}
                                           : std::array<POINT, 3>{{{at.x - size, at.y - size / 2},
                                                                   {at.x + size, at.y - size / 2},
                                                                   {at.x, at.y + size / 2}}});
}

void CMultiLineListCtrl::fillTriangle(HDC dc, const std::array<POINT, 3>& corners) {
    SetDCBrushColor(dc, GetTextColor(dc));
    SetDCPenColor(dc, GetTextColor(dc));
    const fw::SelectScope pen(dc, GetStockObject(DC_PEN));
    const fw::SelectScope brush(dc, GetStockObject(DC_BRUSH));
    Polygon(dc, corners.data(), static_cast<int>(corners.size()));
}
