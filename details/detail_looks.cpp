#include "details/detail_looks.h"

#include <array>
#include <string>

#include "framework/drawing.h"
#include "listctrl/list_colors.h"

namespace mc {
namespace {

constexpr int kIndent = 16;                              // of a row below its heading
constexpr int kFoldMarkWidth = 14;                       // in front of a heading
constexpr COLORREF kChangedColor = RGB(255, 222, 120);   // behind a value that changed
constexpr COLORREF kDifferenceColor = RGB(255, 150, 0);  // behind the characters that differ
constexpr COLORREF kEditedColor = RGB(0, 72, 168);       // of a value that has not been sent

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

bool isHighlighted(const sMCListStruct& row) {
    return row.change == FieldChange::changed || row.change == FieldChange::reset;
}

// Where bytes are parts of letters, signs are plain ones.
const UnseenSigns& signsOfSystem() {
    CPINFO page{};
    return GetCPInfo(CP_ACP, &page) != 0 && page.MaxCharSize > 1 ? kAsciiSigns : kUnseenSigns;
}

using Triangle = std::array<POINT, 3>;

// With the text's colour.
void fillTriangle(HDC dc, const Triangle& corners) {
    SetDCPenColor(dc, GetTextColor(dc));
    const fw::SelectScope pen(dc, GetStockObject(DC_PEN));
    const fw::SelectScope brush(dc, fw::brushOf(dc, GetTextColor(dc)));
    Polygon(dc, corners.data(), static_cast<int>(corners.size()));
}

Triangle pointingDown(POINT at, LONG size) {
    return {
        {{at.x - size, at.y - size / 2}, {at.x + size, at.y - size / 2}, {at.x, at.y + size / 2}}};
}

Triangle pointingRight(POINT at, LONG size) {
    return {
        {{at.x - size / 2, at.y - size}, {at.x - size / 2, at.y + size}, {at.x + size / 2, at.y}}};
}

}  // namespace

DetailLooks::DetailLooks(const fw::CWindow& list, const ListContent& content, LineGroups& lines)
    : m_list(list), m_content(content), m_lines(lines), m_signs(signsOfSystem()) {}

// ---- Fonts and colours ----

CellLook DetailLooks::look(std::size_t row, int item) const {
    LineGroups::Line* line = m_lines.lineAt(row);
    if (line == nullptr) return {};
    CellLook look =
        line->isHeading() ? headingLook(item) : rowLook(*line, m_content.columnAt(item));
    if (m_dimmed) {
        look.background.reset();
        look.runColor.reset();
        look.text = GetSysColor(COLOR_GRAYTEXT);
    }
    return look;
}

CellLook DetailLooks::headingLook(int item) const {
    return {item == 0 ? m_list.scaled(kFoldMarkWidth) : 0, m_bold.of(m_list.handle()),
            GetSysColor(COLOR_3DFACE), GetSysColor(COLOR_BTNTEXT)};
}

CellLook DetailLooks::rowLook(LineGroups::Line& line, ColumnId column) const {
    CellLook look;
    if (column == kValueColumn) look = valueLook(*line.row);
    if (column == kFieldColumn)
        look.indent = m_list.scaled(kIndent);
    else
        addMarks(look, line, column);
    return look;
}

CellLook DetailLooks::valueLook(const sMCListStruct& row) const {
    CellLook look;
    if (isHighlighted(row)) {
        const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);  // whatever the list's colours are
        look.background = fw::tinted(GetSysColor(COLOR_WINDOW), kChangedColor, 150, text);
        look.text = text;
    }
    if (row.edited) look.text = kEditedColor;
    if (isHighlighted(row) || row.edited) look.font = m_bold.of(m_list.handle());
    return look;
}

void DetailLooks::addMarks(CellLook& look, LineGroups::Line& line, ColumnId column) const {
    const ValueMarks& marks = m_lines.marks(line, m_signs);
    const CellMarks& cell = column == kValueColumn ? marks.value : marks.old;
    look.shown = cell.shown;
    look.runs = cell.runs;
    look.runColor = kDifferenceColor;
    if (marks.kind == DifferenceKind::alike) look.mark = CellLook::Mark::frame;
}

// ---- Marks ----

void DetailLooks::drawOver(HDC dc, std::size_t row, int item, const RECT& cell) const {
    LineGroups::Line* line = m_lines.lineAt(row);
    if (line == nullptr) return;
    if (item == 0) drawFront(dc, *line, cell);
    if (m_content.columnAt(item) != kValueColumn) return;
    const int margin = m_list.scaled(2);
    drawValue(dc, *line, {cell.left + margin, cell.top, cell.right - margin, cell.bottom});
}

void DetailLooks::drawFront(HDC dc, LineGroups::Line& line, const RECT& cell) const {
    if (line.isHeading()) {
        const bool folded = m_lines.folded(line);
        if (!line.group->content.rows.empty()) drawFoldMark(dc, folded, cell);
        if (folded && m_lines.holdsEdits(line)) drawEditMark(dc, cell);
        return;
    }
    RECT mark{cell.left, cell.top, cell.left + m_list.scaled(kIndent), cell.bottom};
    const std::string slip = m_lines.marks(line, m_signs).slip ? "?" : "";
    DrawTextA(dc, (markOf(line.row->change) + slip).c_str(), -1, &mark,
              DT_SINGLELINE | DT_VCENTER | DT_CENTER | DT_NOPREFIX);
}

// Points down when the group is open.
void DetailLooks::drawFoldMark(HDC dc, bool folded, const RECT& cell) const {
    const POINT at{cell.left + m_list.scaled(10), (cell.top + cell.bottom) / 2};
    const LONG size = m_list.scaled(4);
    fillTriangle(dc, folded ? pointingRight(at, size) : pointingDown(at, size));
}

// An unsent edit has its upper left corner folded down, and the right one too when it was typed
// over an older value.
void DetailLooks::drawValue(HDC dc, const LineGroups::Line& line, const RECT& frame) const {
    if (m_editable && m_editable(line)) drawFrame(dc, line.row->attribute, frame);
    if (line.row->edited) drawEditMark(dc, frame);
    const LONG size = m_list.scaled(8);
    if (line.row->overOlder)
        fillTriangle(dc, {{{frame.right, frame.top},
                           {frame.right - size, frame.top},
                           {frame.right, frame.top + size}}});
}

// A choice has an arrow at its end.
void DetailLooks::drawFrame(HDC dc, RowAttribute attribute, const RECT& frame) const {
    const COLORREF text = GetTextColor(dc);
    const COLORREF line = highContrast() ? text : mixed(text, GetBkColor(dc), 90);
    FrameRect(dc, &frame, fw::brushOf(dc, line));
    if (attribute != RowAttribute::choice) return;
    const POINT at{frame.right - m_list.scaled(9), (frame.top + frame.bottom) / 2};
    fillTriangle(dc, pointingDown(at, m_list.scaled(4)));
}

void DetailLooks::drawEditMark(HDC dc, const RECT& frame) const {
    const LONG size = m_list.scaled(8);
    fillTriangle(dc, {{{frame.left, frame.top},
                       {frame.left + size, frame.top},
                       {frame.left, frame.top + size}}});
}

}  // namespace mc
