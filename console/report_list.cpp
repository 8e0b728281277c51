#include "console/report_list.h"

#include "framework/window.h"

namespace zek {

HWND createReportList(HWND parent, UINT id, std::span<const ReportColumn> columns) {
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                             LVS_SHOWSELALWAYS | LVS_SINGLESEL;
    const HWND list =
        CreateWindowExA(0, WC_LISTVIEWA, "", kStyle, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), fw::module(), nullptr);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER);
    const int dpi = static_cast<int>(GetDpiForWindow(parent));
    int index = 0;
    for (const ReportColumn& each : columns) {
        LVCOLUMNA column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = MulDiv(each.width, dpi, USER_DEFAULT_SCREEN_DPI);
        column.pszText = const_cast<char*>(each.title);
        ListView_InsertColumn(list, index++, &column);
    }
    return list;
}

void fillText(NMLVDISPINFOA& asked, const std::string& text) {
    LVITEMA& item = asked.item;
    if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return;
    const std::size_t length =
        text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax - 1));
    item.pszText[length] = '\0';
}

// With redrawing off the scroll bar, which costs most, is drawn once.
void setRowCount(HWND list, std::size_t count) {
    const fw::RedrawOffScope off(list);
    ListView_SetItemCountEx(list, count, LVSICF_NOSCROLL);
}

fw::Font messageFont(HWND window) {
    const UINT dpi = GetDpiForWindow(window);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi) == 0)
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return fw::Font(CreateFontIndirectW(&metrics.lfMessageFont));
}

}  // namespace zek
