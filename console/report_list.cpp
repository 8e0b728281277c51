#include "console/report_list.h"

#include "framework/hwnd.h"
#include "framework/list_view.h"
#include "framework/model/dots.h"
#include "framework/platform.h"
#include "framework/window.h"

namespace zek {

HWND createReportList(HWND parent, UINT id, std::span<const ReportColumn> columns) {
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                             LVS_SHOWSELALWAYS | LVS_SINGLESEL;
    constexpr DWORD kLooks = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
    const HWND list = fw::makeControl(WC_LISTVIEWA, "", kStyle, 0, {}, parent, id);
    const fw::ListView view(list);
    view.setExtendedStyle(kLooks, kLooks);
    for (int index = 0; const ReportColumn& each : columns)
        view.insertColumn(index++, each.title, fw::scaledFor(parent, each.width), LVCFMT_LEFT);
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
    return fw::systemFont(&NONCLIENTMETRICSW::lfMessageFont, fw::dpiOf(window));
}

void followFont(HWND window, fw::Font& font, std::initializer_list<HWND> controls) {
    const fw::Font before = std::exchange(font, messageFont(window));
    for (const HWND control : controls) fw::setFont(control, font.get());
}

void followColumns(HWND list, int before) {
    const int now = fw::dpiOf(list);
    const int count = fw::ListView(list).header().count();
    for (int column = 0; column < count; ++column) {
        const fw::Measure width{ListView_GetColumnWidth(list, column), before};
        ListView_SetColumnWidth(list, column, width.at(now));
    }
}

}  // namespace zek
