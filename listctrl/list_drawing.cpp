// How CCommonListCtrl draws its rows and measures its texts.
#include <algorithm>
#include <array>
#include <numeric>

#include "listctrl/common_list_ctrl.h"
#include "listctrl/list_colors.h"
#include "listctrl/model/empty_text.h"

namespace mc {
namespace {

// No screen is wider than this many characters.
constexpr std::size_t kLongestDrawn = 4096;

}  // namespace

void CCommonListCtrl::measureHeader() {
    m_cells.assign(m_columns.shown().size(), RECT{});
    for (std::size_t item = 0; item < m_cells.size(); ++item)
        SendMessageA(header(), HDM_GETITEMRECT, item, reinterpret_cast<LPARAM>(&m_cells[item]));
}

const CCommonListCtrl::CharWidths& CCommonListCtrl::charWidths(HFONT font) const {
    const auto [at, fresh] = m_charWidths.try_emplace(font);
    if (!fresh) return at->second;
    if (font == nullptr) font = reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0));
    const HDC dc = GetDC(handle());
    {
        const fw::SelectScope select(dc, font);
        GetCharWidth32A(dc, 0, 255, at->second.data());
    }
    ReleaseDC(handle(), dc);
    return at->second;
}

int CCommonListCtrl::textWidth(std::string_view text, HFONT font) const {
    const CharWidths& widths = charWidths(font);
    return std::accumulate(text.begin(), text.end(), 0, [&](int width, char c) {
        return width + widths[static_cast<unsigned char>(c)];
    });
}

// A row is as high as the font's text and its external leading, and a pixel.
LRESULT CCommonListCtrl::onMeasureItem(MEASUREITEMSTRUCT& measure) {
    const HDC dc = GetDC(handle());
    TEXTMETRICA metrics{};
    {
        const auto font = reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0));
        const fw::SelectScope select(dc, font);
        GetTextMetricsA(dc, &metrics);
    }
    ReleaseDC(handle(), dc);
    measure.itemHeight = static_cast<UINT>(metrics.tmHeight + metrics.tmExternalLeading + 1);
    return TRUE;
}

// The control asks for the height of its rows when it is made, and again whenever it is told that
// its size changed.
void CCommonListCtrl::measureRows() {
    RECT place{};
    GetWindowRect(handle(), &place);
    WINDOWPOS same{};
    same.hwnd = handle();
    same.cx = static_cast<int>(place.right - place.left);
    same.cy = static_cast<int>(place.bottom - place.top);
    same.flags = SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE;
    SendMessageA(handle(), WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&same));
}

// High contrast knows the system's colours only.
RowColors CCommonListCtrl::plainColors() const {
    const bool own = m_appearance && !highContrast();
    return {background(), own ? m_appearance->text : GetSysColor(COLOR_WINDOWTEXT)};
}

RowColors CCommonListCtrl::rowColorsOf(std::size_t row) const {
    RowColors colors = plainColors();
    if (!m_appearance || highContrast()) return colors;
    if (!m_appearance->keywordColumn || !m_columns.has(*m_appearance->keywordColumn)) return colors;
    if (const auto* keyword = keywordIn(*m_appearance, cellText(row, *m_appearance->keywordColumn)))
        colors.text = keyword->color;
    return colors;
}

LRESULT CCommonListCtrl::onDrawItem(const DRAWITEMSTRUCT& draw) {
    const auto row = static_cast<std::size_t>(draw.itemID);
    const bool focused = GetFocus() == handle();
    const bool selected = m_store.selected(row);
    const RowColors colors = selected ? selectionColors(focused) : rowColorsOf(row);

    RECT line = draw.rcItem;
    SetBkColor(draw.hDC, colors.background);
    ExtTextOutA(draw.hDC, 0, 0, ETO_OPAQUE, &line, nullptr, 0, nullptr);
    SetTextColor(draw.hDC, colors.text);
    SetBkMode(draw.hDC, TRANSPARENT);
    const bool ownLooks = !selected && !highContrast();
    // The header scrolls with the rows: its items say where the cells are.
    POINT origin{0, 0};
    MapWindowPoints(header(), handle(), &origin, 1);
    const std::size_t columns = std::min(m_cells.size(), m_columns.shown().size());
    for (std::size_t item = 0; item < columns; ++item) {
        const RECT place{m_cells[item].left + origin.x, line.top, m_cells[item].right + origin.x,
                         line.bottom};
        drawCell(draw.hDC, row, static_cast<int>(item), place, ownLooks);
    }
    if (focused && m_store.focusedRow() == row) DrawFocusRect(draw.hDC, &line);
    return TRUE;
}

// The control itself knows no text for an empty list.
void CCommonListCtrl::onPaint() {
    controlDefault(WM_PAINT, 0, 0);
    const std::string text = emptyListText(m_store.storedCount(), m_store.rowCount(), m_emptyText);
    if (text.empty()) return;
    RECT area = clientRect(), captions{};
    GetClientRect(header(), &captions);
    area.top += captions.bottom + scaled(8);
    InflateRect(&area, -scaled(6), 0);
    const HDC dc = GetDC(handle());
    {
        const auto font = reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0));
        const fw::SelectScope select(dc, font);
        SetBkMode(dc, TRANSPARENT);
        // Fainter than a row, and still with contrast enough to be read.
        const auto [paper, ink] = plainColors();
        SetTextColor(dc, highContrast() ? ink : mixed(ink, paper, 150));
        DrawTextA(dc, text.c_str(), -1, &area, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
    }
    ReleaseDC(handle(), dc);
}

void CCommonListCtrl::onAreaChanged() {
    if (m_store.rowCount() == 0) InvalidateRect(handle(), nullptr, TRUE);
}

void CCommonListCtrl::drawCell(HDC dc, std::size_t row, int item, const RECT& place,
                               bool ownLooks) const {
    const CellLook look = cellLook(row, item);
    if (ownLooks && look.background) {
        SetBkColor(dc, *look.background);
        ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &place, nullptr, 0, nullptr);
    }
    const COLORREF rowText = GetTextColor(dc);
    if (ownLooks && look.text) SetTextColor(dc, *look.text);
    drawText(dc, row, item, place, look);
    SetTextColor(dc, rowText);
    drawOver(dc, row, item, place);
}

void CCommonListCtrl::drawText(HDC dc, std::size_t row, int item, const RECT& place,
                               const CellLook& look) const {
    const ColumnId column = columnAt(item);
    const std::string_view text = cellText(row, column);
    const int margin = scaled(6);
    RECT cell{place.left + margin + look.indent, place.top, place.right - margin, place.bottom};
    if (text.empty() || cell.right <= cell.left) return;
    // The platform aligns the first column of a list, and its caption, to the left.
    const int flag = item == 0 ? 0 : m_columns.descriptor(column).flag & LVCFMT_JUSTIFYMASK;
    const int room = static_cast<int>(cell.right - cell.left);
    const int spare = room - textWidth(text, look.font);
    const auto size = static_cast<int>(std::min(text.size(), kLongestDrawn));
    std::optional<fw::SelectScope> font;
    if (look.font != nullptr) font.emplace(dc, look.font);
    if (spare >= 0) {  // fits, which is quick to draw
        const int x = static_cast<int>(cell.left) + (flag == 1 ? spare : flag == 2 ? spare / 2 : 0);
        ExtTextOutA(dc, x, cell.top, 0, nullptr, text.data(), static_cast<UINT>(size), nullptr);
        return;
    }
    static constexpr UINT alignments[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    DrawTextA(dc, text.data(), size, &cell,
              DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX | alignments[flag % 3]);
}

RECT CCommonListCtrl::cellPlace(std::size_t row, int item) const {
    RECT line{LVIR_BOUNDS, 0, 0, 0};
    SendMessageA(handle(), LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&line));
    POINT origin{0, 0};
    MapWindowPoints(header(), handle(), &origin, 1);
    const RECT& cell = m_cells.at(static_cast<std::size_t>(item));
    return {cell.left + origin.x, line.top, cell.right + origin.x, line.bottom};
}

std::optional<CCommonListCtrl::Cell> CCommonListCtrl::cellAt(POINT client) const {
    const auto row = rowAt(client);
    if (!row || *row >= m_store.rowCount()) return std::nullopt;
    for (std::size_t item = 0; item < m_cells.size(); ++item) {
        const RECT place = cellPlace(*row, static_cast<int>(item));
        if (client.x >= place.left && client.x < place.right)
            return Cell{*row, static_cast<int>(item)};
    }
    return std::nullopt;
}

bool CCommonListCtrl::cutOff(const Cell& cell) const {
    const RECT place = cellPlace(cell.row, cell.item);
    const int room = static_cast<int>(place.right - place.left) - 2 * scaled(6);
    const bool outside = place.right > clientRect().right || place.left < 0;
    return outside || drawnWidth(cell.row, cell.item) > room;
}

void CCommonListCtrl::onMouseMove(POINT client) {
    const auto cell = cellAt(client);
    if (cell == m_hovered) return;
    m_hovered = cell;
    m_cellTip.hide();
    if (cell && cutOff(*cell))
        m_cellTip.show(handle(), cellPlace(cell->row, cell->item),
                       cellText(cell->row, columnAt(cell->item)));
}

// What a cell needs between the margins at its sides.
int CCommonListCtrl::drawnWidth(std::size_t row, int item) const {
    const CellLook look = cellLook(row, item);
    return look.indent + textWidth(cellText(row, columnAt(item)), look.font);
}

int CCommonListCtrl::dataWidth(int item) const {
    int widest = 0;
    for (std::size_t row = 0; row < m_store.rowCount(); ++row)
        widest = std::max(widest, drawnWidth(row, item));
    return widest + 2 * scaled(6);
}

}  // namespace mc
