#include "console/log_pane.h"

#include "console/resource_ids.h"
#include "framework/hwnd.h"
#include "framework/list_view.h"
#include "framework/platform.h"

namespace zek {
namespace {

constexpr ReportColumn kColumns[] = {{"Time", 72}, {"Message", 900}};
constexpr const char* kTabTitles[kLogTabs] = {"Log", "Server"};

}  // namespace

const fw::MessageMap& CLogPane::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_CREATE, &CLogPane::onCreate>(),
        fw::on<WM_SIZE, &CLogPane::onSize>(),
        fw::on<WM_SETFOCUS, &CLogPane::onFocus>(),
        fw::on<WM_DPICHANGED_AFTERPARENT, &CLogPane::onDpiChanged>(),
        fw::onNotify<IDC_LOG_TABS, TCN_SELCHANGE, &CLogPane::onTabChange>(),
        fw::onNotify<IDC_LOG_LIST, LVN_GETDISPINFOA, &CLogPane::onDisplay>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

bool CLogPane::create(HWND frame) {
    static const fw::WindowClass windowClass{"Zek.LogPane", 0, IDC_ARROW, COLOR_3DFACE};
    return CWindow::create(windowClass, "Log", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, {},
                           frame, IDC_LOG_PANE);
}

LRESULT CLogPane::onCreate() {
    m_font = messageFont(handle());
    m_dpi = fw::dpiOf(handle());
    m_tabs = fw::makeControl(WC_TABCONTROLA, "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, {},
                             handle(), IDC_LOG_TABS);
    m_list = createReportList(handle(), IDC_LOG_LIST, kColumns);
    for (HWND control : {m_tabs, m_list}) fw::setFont(control, m_font.get());
    for (int index = 0; index < kLogTabs; ++index) {
        TCITEMA tab{};
        tab.mask = TCIF_TEXT;
        tab.pszText = const_cast<char*>(kTabTitles[index]);
        TabCtrl_InsertItem(m_tabs, index, &tab);
    }
    showLast();
    return 0;
}

void CLogPane::onSize(int width, int height) {
    SetWindowPos(m_tabs, nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    RECT room{0, 0, width, height};
    TabCtrl_AdjustRect(m_tabs, FALSE, &room);
    SetWindowPos(m_list, HWND_TOP, room.left, room.top, fw::widthOf(room), fw::heightOf(room),
                 SWP_NOACTIVATE);
}

void CLogPane::onDpiChanged() {
    followFont(handle(), m_font, {m_tabs, m_list});
    followColumns(m_list, std::exchange(m_dpi, fw::dpiOf(handle())));
    const RECT room = clientRect();
    onSize(static_cast<int>(room.right), static_cast<int>(room.bottom));
    InvalidateRect(handle(), nullptr, TRUE);
}

void CLogPane::onTabChange(NMHDR&) {
    showLast();
    InvalidateRect(m_list, nullptr, TRUE);
}

void CLogPane::onDisplay(NMLVDISPINFOA& asked) {
    const std::vector<LogLine>& lines = m_book.lines(shownTab());
    const auto row = static_cast<std::size_t>(asked.item.iItem);
    if (row >= lines.size()) return;
    fillText(asked, asked.item.iSubItem == 0 ? lines[row].time : lines[row].text);
}

void CLogPane::lineAdded(LogTab tab) {
    if (tab == shownTab()) showLast();
}

LogTab CLogPane::shownTab() const {
    return TabCtrl_GetCurSel(m_tabs) == 1 ? LogTab::server : LogTab::log;
}

void CLogPane::showLast() {
    const std::size_t count = m_book.lines(shownTab()).size();
    setRowCount(m_list, count);
    if (count > 0) fw::ListView(m_list).bringIntoView(count - 1);
}

}  // namespace zek
