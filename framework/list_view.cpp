#include "framework/list_view.h"

#include <commctrl.h>

namespace fw {

Header ListView::header() const {
    return Header(reinterpret_cast<HWND>(send(LVM_GETHEADER)));
}

void ListView::insertColumn(int index, const std::string& caption, int width, int alignment) const {
    LVCOLUMNA info{};
    info.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    info.pszText = const_cast<char*>(caption.c_str());
    info.cx = width;
    info.fmt = alignment;
    info.iSubItem = index;
    send(LVM_INSERTCOLUMNA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&info));
}

void ListView::removeColumns() const {
    while (send(LVM_DELETECOLUMN) != 0) continue;
}

void ListView::setColumnWidth(int index, int width) const {
    send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(index), MAKELPARAM(width, 0));
}

void ListView::setRowCount(std::size_t rows) const {
    send(LVM_SETITEMCOUNT, rows, LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
}

std::size_t ListView::rowCount() const {
    return static_cast<std::size_t>(send(LVM_GETITEMCOUNT));
}

RECT ListView::rowRect(std::size_t row) const {
    RECT rect{LVIR_BOUNDS, 0, 0, 0};
    send(LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&rect));
    return rect;
}

std::optional<std::size_t> ListView::rowAt(POINT client) const {
    LVHITTESTINFO hit{};
    hit.pt = client;
    const LRESULT row = send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return row >= 0 ? std::optional(static_cast<std::size_t>(row)) : std::nullopt;
}

std::size_t ListView::rowsPerPage() const {
    return static_cast<std::size_t>(send(LVM_GETCOUNTPERPAGE));
}

void ListView::bringIntoView(std::size_t row) const {
    send(LVM_ENSUREVISIBLE, row, FALSE);
}

std::size_t ListView::topRow() const {
    return static_cast<std::size_t>(send(LVM_GETTOPINDEX));
}

void ListView::bringToTop(std::size_t row) const {
    if (row >= rowCount() || row == topRow()) return;
    const RECT now = rowRect(topRow()), wanted = rowRect(row);
    send(LVM_SCROLL, 0, wanted.top - now.top);
}

void ListView::scroll(int across, int down) const {
    send(LVM_SCROLL, static_cast<WPARAM>(across), down);
}

void ListView::addRow(const std::string& text, LPARAM value) const {
    LVITEMA item{};
    item.mask = LVIF_TEXT | LVIF_PARAM;
    item.iItem = static_cast<int>(rowCount());
    item.pszText = const_cast<char*>(text.c_str());
    item.lParam = value;
    send(LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
}

void ListView::removeRows() const {
    send(LVM_DELETEALLITEMS);
}

std::vector<std::size_t> ListView::selectedRows() const {
    std::vector<std::size_t> rows;
    for (LRESULT row = -1;
         (row = send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED)) >= 0;)
        rows.push_back(static_cast<std::size_t>(row));
    return rows;
}

void ListView::select(std::size_t row, bool focuses) const {
    LVITEMA item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = LVIS_SELECTED | (focuses ? LVIS_FOCUSED : 0U);
    send(LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

void ListView::setBackground(COLORREF color) const {
    send(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(color));
    send(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(color));
}

void ListView::setTextColor(COLORREF color) const {
    send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(color));
}

DWORD ListView::extendedStyle() const {
    return static_cast<DWORD>(send(LVM_GETEXTENDEDLISTVIEWSTYLE));
}

void ListView::setExtendedStyle(DWORD mask, DWORD style) const {
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, mask, static_cast<LPARAM>(style));
}

}  // namespace fw
