#include "details/multi_line_list_ctrl.h"

#include "listctrl/list_colors.h"

namespace mc {
namespace {

constexpr int kIndent = 16;                             // of a row below its heading
constexpr int kMarkRoom = 14;                           // of the fold mark in front of a heading
constexpr COLORREF kChangedColor = RGB(255, 222, 120);  // behind a value that changed

// In front of a row: what the change does to its field.
constexpr struct {
    FieldChange change;
    const char* mark;
} kChangeMarks[] = {{FieldChange::changed, "*"},
                    {FieldChange::added, "+"},
                    {FieldChange::removed, "\x96"},
                    {FieldChange::reset, "!"}};

const char* markOf(FieldChange change) {
    for (const auto& each : kChangeMarks)
        if (each.change == change) return each.mark;
    return "";
}

bool standsOut(const sMCListStruct& row) {
    return row.change == FieldChange::changed || row.change == FieldChange::reset;
}

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

void CMultiLineListCtrl::replace(std::vector<DetailGroup> groups) {
    m_lines.replace(std::move(groups));
    storeChanged();
}

void CMultiLineListCtrl::setDimmed(bool dimmed) {
    if (std::exchange(m_dimmed, dimmed) != dimmed) InvalidateRect(handle(), nullptr, TRUE);
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
    if (!press(client)) return;
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
        goTo(*heading);
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

void CMultiLineListCtrl::dim(CellLook& look) const {
    look.background.reset();
    look.text = GetSysColor(COLOR_GRAYTEXT);
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
    } else if (standsOut(*line->row) && columnAt(item) == kValueColumn) {
        look.font = boldFont();
        look.background = mixed(kChangedColor, GetSysColor(COLOR_WINDOW), 150);
        look.text = GetSysColor(COLOR_WINDOWTEXT);  // whatever the list's own colours are
    }
    if (m_dimmed) dim(look);
    return look;
}

// The fold mark in front of a heading: it points down when the group is open.
void CMultiLineListCtrl::drawFoldMark(HDC dc, const LineGroups::Line& heading,
                                      const RECT& place) const {
    const int size = scaled(4);
    const POINT at{place.left + scaled(10), (place.top + place.bottom) / 2};
    fillTriangle(dc, m_lines.folded(heading) ? std::array<POINT, 3>{{{at.x - size / 2, at.y - size},
                                                                     {at.x - size / 2, at.y + size},
                                                                     {at.x + size / 2, at.y}}}
                                             : std::array<POINT, 3>{{{at.x - size, at.y - size / 2},
                                                                     {at.x + size, at.y - size / 2},
                                                                     {at.x, at.y + size / 2}}});
}

void CMultiLineListCtrl::drawEditMark(HDC dc, const RECT& frame) const {
    const LONG size = scaled(8);
    fillTriangle(dc, {{{frame.left, frame.top},
                       {frame.left + size, frame.top},
                       {frame.left, frame.top + size}}});
}

void CMultiLineListCtrl::drawOver(HDC dc, std::size_t row, int item, const RECT& place) const {
    const LineGroups::Line* line = m_lines.lineAt(row);
    if (item != 0 || line == nullptr) return;
    if (line->isHeading()) {
        if (!line->group->content.rows.empty()) drawFoldMark(dc, *line, place);
        if (m_lines.folded(*line) && m_lines.holdsEdits(*line)) drawEditMark(dc, place);
        return;
    }
    RECT mark{place.left, place.top, place.left + scaled(kIndent), place.bottom};
    DrawTextA(dc, markOf(line->row->change), -1, &mark,
              DT_SINGLELINE | DT_VCENTER | DT_CENTER | DT_NOPREFIX);
}

void CMultiLineListCtrl::fillTriangle(HDC dc, const std::array<POINT, 3>& corners) {
    SetDCBrushColor(dc, GetTextColor(dc));
    SetDCPenColor(dc, GetTextColor(dc));
    const fw::SelectScope pen(dc, GetStockObject(DC_PEN));
    const fw::SelectScope brush(dc, GetStockObject(DC_BRUSH));
    Polygon(dc, corners.data(), static_cast<int>(corners.size()));
}

}  // namespace mc
