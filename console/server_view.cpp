#include "console/server_view.h"

#include "console/resource_ids.h"
#include "framework/hwnd.h"
#include "framework/platform.h"

namespace zek {

const fw::MessageMap& CServerView::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::observe<WM_SIZE, &CServerView::onSize>(),
        fw::observe<WM_SETFOCUS, &CServerView::onFocus>(),
        fw::observe<WM_DPICHANGED_AFTERPARENT, &CServerView::onDpiChanged>(),
        fw::observe<WM_ENTERSIZEMOVE, &CServerView::onEnterSizeMove>(),
        fw::observe<WM_EXITSIZEMOVE, &CServerView::onExitSizeMove>(),
        fw::onNotify<IDC_VIEW_LIST, LVN_GETDISPINFOA, &CServerView::onDisplay>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

// The system has a procedure of its own for such children, so the window is made with it and bound
// afterwards.
void CServerView::open(HWND client) {
    if (handle() != nullptr) {
        SendMessageA(client, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(handle()), 0);
        return;
    }
    constexpr char kClassName[] = "Zek.ServerView";
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = DefMDIChildProcA;
    windowClass.hInstance = fw::module();
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hIcon = LoadIconA(fw::module(), MAKEINTRESOURCEA(IDI_ZEK));
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = kClassName;
    RegisterClassExA(&windowClass);
    const HWND view =
        CreateMDIWindowA(kClassName, m_table.title, WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                         CW_USEDEFAULT, CW_USEDEFAULT, client, fw::module(), 0);
    if (!subclass(view)) return;
    m_font = messageFont(view);
    m_dpi = fw::dpiOf(view);
    m_list = createReportList(view, IDC_VIEW_LIST, m_table.columns);
    fw::setFont(m_list, m_font.get());
    m_shownRevision = m_exchange.revision() - 1;
    const RECT room = clientRect();
    onSize(room.right, room.bottom);
    refresh();
}

void CServerView::refresh() {
    if (handle() == nullptr || m_shownRevision == m_exchange.revision()) return;
    m_shownRevision = m_exchange.revision();
    m_ids = m_table.ids(m_exchange.server());
    setRowCount(m_list, m_ids.size());
    InvalidateRect(m_list, nullptr, FALSE);
}

void CServerView::onSize(int width, int height) {
    SetWindowPos(m_list, nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CServerView::onFocus() {
    SetFocus(m_list);
}

void CServerView::onDpiChanged() {
    followFont(handle(), m_font, {m_list});
    followColumns(m_list, std::exchange(m_dpi, fw::dpiOf(handle())));
    InvalidateRect(m_list, nullptr, TRUE);
}

void CServerView::onEnterSizeMove() {
    m_before = fw::screenRect(handle());
}

void CServerView::onExitSizeMove() {
    const RECT now = fw::screenRect(handle());
    if (EqualRect(&now, &m_before) == 0 && m_onMoved) m_onMoved();
}

void CServerView::onDisplay(NMLVDISPINFOA& asked) {
    const auto row = static_cast<std::size_t>(asked.item.iItem);
    if (row < m_ids.size())
        fillText(asked, m_table.text(m_exchange.server(), m_ids[row], asked.item.iSubItem));
}

}  // namespace zek
