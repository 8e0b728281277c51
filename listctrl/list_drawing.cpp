// How CCommonListCtrl draws its rows and measures its texts.
#include <algorithm>
#include <array>
#include <numeric>

#include "listctrl/common_list_ctrl.h"
#include "listctrl/list_colors.h"

void CCommonListCtrl::setBackground(COLORREF color) {
    m_background = color;
    SendMessageA(handle(), LVM_SETBKCOLOR, 0, static_cast<LPARAM>(color));
}

void CCommonListCtrl::measureFont() {
    const HDC dc = GetDC(handle());
    std::array<INT, 256> widths{};
    {
        const auto font = reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0));
        const fw::SelectScope select(dc, font);
        GetCharWidth32A(dc, 0, 255, widths.data());
    }
    ReleaseDC(handle(), dc);
    m_charWidths.assign(widths.begin(), widths.end());
}

void CCommonListCtrl::measureHeader() {
    m_cells.assign(m_columns.shown().size(), RECT{});
    for (std::size_t item = 0; item < m_cells.size(); ++item)
        SendMessageA(header(), HDM_GETITEMRECT, item, reinterpret_cast<LPARAM>(&m_cells[item]));
}

int CCommonListCtrl::textWidth(std::string_view text) const {
    return std::accumulate(text.begin(), text.end(), 0, [this](int width, char c) {
        return width + m_charWidths[static_cast<unsigned char>(c)];
    });
}

LRESULT CCommonListCtrl::onDrawItem(const DRAWITEMSTRUCT& draw) {
    const auto row = static_cast<std::size_t>(draw.itemID);
    const bool focused = GetFocus() == handle();
    const bool autoSelected = m_store.autoSelected(row);
    const bool selected = m_store.selected(row) && !autoSelected;
    const RowColors colors = rowColors(selected, focused, m_background);

    RECT line = draw.rcItem;
    SetBkColor(draw.hDC, colors.background);
    ExtTextOutA(draw.hDC, 0, 0, ETO_OPAQUE, &line, nullptr, 0, nullptr);
    SetTextColor(draw.hDC, colors.text);
    SetBkMode(draw.hDC, TRANSPARENT);
    // The header scrolls with the rows: its items say where the cells are.
    POINT origin{0, 0};
    MapWindowPoints(header(), handle(), &origin, 1);
    const std::size_t columns = std::min(m_cells.size(), m_columns.shown().size());
    for (std::size_t item = 0; item < columns; ++item) {
        const RECT place{m_cells[item].left + origin.x, line.top, m_cells[item].right + origin.x,
                         line.bottom};
        drawCell(draw.hDC, row, static_cast<int>(item), place);
    }
    // The row that the list selected by itself is framed, not filled, until the checker touches it.
    const bool framed = autoSelected || (focused && m_store.focusedRow() == row);
    if (framed) DrawFocusRect(draw.hDC, &line);
    return TRUE;
}

void CCommonListCtrl::drawCell(HDC dc, std::size_t row, int item, const RECT& place) const {
    const ColumnId column = columnAt(item);
    const std::string_view text = cellText(row, column);
    const int margin = scaled(6);
    RECT cell{place.left + margin, place.top, place.right - margin, place.bottom};
    if (text.empty() || cell.right <= cell.left) return;
    // The platform aligns the first column of a list, and its caption, to the left.
    const int flag = item == 0 ? 0 : m_columns.descriptor(column).flag & LVCFMT_JUSTIFYMASK;
    const int room = static_cast<int>(cell.right - cell.left);
    const int spare = room - textWidth(text);
    const auto size = static_cast<int>(text.size());
    if (spare >= 0) {  // fits, which is quick to draw
        const int x = static_cast<int>(cell.left) + (flag == 1 ? spare : flag == 2 ? spare / 2 : 0);
        ExtTextOutA(dc, x, cell.top, 0, nullptr, text.data(), static_cast<UINT>(size), nullptr);
    } else {
        DrawTextA(dc, text.data(), size, &cell, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
    }
}

int CCommonListCtrl::dataWidth(ColumnId column) const {
    int widest = 0;
    for (std::size_t row = 0; row < m_store.rowCount(); ++row)
        widest = std::max(widest, textWidth(cellText(row, column)));
    return widest + 2 * scaled(6);
}
