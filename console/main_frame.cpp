#include "console/main_frame.h"

#include <algorithm>

#include "console/resource_ids.h"
#include "framework/hwnd.h"
#include "framework/model/dots.h"
#include "framework/platform.h"
#include "sdk/docking.h"

namespace zek {
namespace {

constexpr UINT_PTR kRefreshTimer = 1;
constexpr UINT kRefreshMilliseconds = 250;
constexpr int kUserMenu = 4;
constexpr int kWindowMenu = 5;

// A window of a good size in the middle of the work area.
RECT startRect() {
    RECT work{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    const auto scaled = [](int pixels) { return fw::toPixels(pixels, fw::systemDpi()); };
    const LONG width = std::min<LONG>(work.right - work.left, scaled(1280));
    const LONG height = std::min<LONG>(work.bottom - work.top, scaled(900));
    const LONG left = work.left + (work.right - work.left - width) / 2;
    const LONG top = work.top + (work.bottom - work.top - height) / 2;
    return {left, top, left + width, top + height};
}

}  // namespace

CMainFrame::CMainFrame(FrameEvents events, CExchange& exchange, LogBook& log)
    : m_events(std::move(events)),
      m_book(log),
      m_log(log),
      m_pending(pendingTable(), exchange),
      m_registry(registryTable(), exchange) {}

CMainFrame::~CMainFrame() {
    // While the members still live: their windows go with the frame and tell it so.
    m_book.setListener({});
    if (handle() != nullptr) DestroyWindow(handle());
}

const fw::MessageMap& CMainFrame::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_CREATE, &CMainFrame::onCreate>(),
        fw::on<WM_SIZE, &CMainFrame::onSize>(),
        fw::on<WM_CLOSE, &CMainFrame::onClose>(),
        fw::on<WM_DPICHANGED, &CMainFrame::onDpiChanged>(),
        fw::on<WM_TIMER, &CMainFrame::onTimer>(),
        fw::onCommand<ID_VIEW_PENDING, &CMainFrame::onViewPending>(),
        fw::onCommand<ID_VIEW_REGISTRY, &CMainFrame::onViewRegistry>(),
        fw::onCommand<ID_WINDOW_CASCADE, &CMainFrame::onCascade>(),
        fw::onCommand<ID_WINDOW_TILE_HORIZONTALLY, &CMainFrame::onTile<MDITILE_HORIZONTAL>>(),
        fw::onCommand<ID_WINDOW_TILE_VERTICALLY, &CMainFrame::onTile<MDITILE_VERTICAL>>(),
        fw::onCommand<ID_WINDOW_NEXT_PART, &CMainFrame::onNextPart<false>>(),
        fw::onCommand<ID_WINDOW_PREVIOUS_PART, &CMainFrame::onNextPart<true>>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

LRESULT CMainFrame::defaultProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (m_site != nullptr && m_site->handle(message, wParam, lParam, result)) return result;
    if (message == WM_COMMAND && m_events.onCommand(LOWORD(wParam))) return 0;
    return DefFrameProcA(handle(), m_client, message, wParam, lParam);
}

bool CMainFrame::create(const std::string& title) {
    static const fw::WindowClass windowClass{"Zek.MainFrame", 0, IDC_ARROW, COLOR_3DFACE};
    if (!CWindow::create(windowClass, title.c_str(), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0,
                         startRect(), nullptr, 0))
        return false;
    ShowWindow(handle(), SW_SHOW);
    return true;
}

LRESULT CMainFrame::onCreate() {
    const HINSTANCE module = fw::module();
    const HICON icon = LoadIconA(module, MAKEINTRESOURCEA(IDI_ZEK));
    SendMessageA(handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
    SendMessageA(handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
    SetMenu(handle(), LoadMenuA(module, MAKEINTRESOURCEA(IDR_MAIN_MENU)));
    m_accelerators = LoadAcceleratorsA(module, MAKEINTRESOURCEA(IDR_ACCELERATORS));
    createClient();
    m_status.create(handle());
    m_site = std::make_unique<fw::CDockingSite>(handle(), [this] { layOut(); });
    layOut();
    if (m_log.create(handle())) m_site->dock(m_log.handle(), kDockBottom, scaled(170));
    m_book.setListener([this](LogTab tab) { m_log.lineAdded(tab); });
    for (CServerView* view : {&m_registry, &m_pending}) {
        view->setMovedNotice([this] { m_tiling.reset(); });
        view->open(m_client);
    }
    tileViews();
    SetTimer(handle(), kRefreshTimer, kRefreshMilliseconds, nullptr);
    return 0;
}

void CMainFrame::createClient() {
    CLIENTCREATESTRUCT made{};
    made.hWindowMenu = GetSubMenu(GetMenu(handle()), kWindowMenu);
    made.idFirstChild = ID_WINDOW_FIRST_CHILD;
    m_client = CreateWindowExA(
        WS_EX_CLIENTEDGE, "MDICLIENT", "",
        WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL, 0, 0,
        0, 0, handle(), reinterpret_cast<HMENU>(IDC_CLIENT), fw::module(), &made);
}

void CMainFrame::setProfiles(const std::vector<std::string>& names, const std::string& current) {
    const HMENU menu = GetSubMenu(GetMenu(handle()), kUserMenu);
    if (names.empty()) return;
    while (GetMenuItemCount(menu) > 0) DeleteMenu(menu, 0, MF_BYPOSITION);
    UINT id = ID_USER_FIRST;
    for (const std::string& name : names) {
        if (id > ID_USER_LAST) break;
        const UINT check = name == current ? MF_CHECKED : MF_UNCHECKED;
        AppendMenuA(menu, MF_STRING | check, id++, name.c_str());
    }
}

bool CMainFrame::translate(MSG& message) {
    const bool escape = message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
    return (escape && m_site->cancelDrag()) || TranslateMDISysAccel(m_client, &message) != 0 ||
           TranslateAcceleratorA(handle(), m_accelerators, &message) != 0;
}

void CMainFrame::onSize(int, int) {
    m_status.fit();
    layOut();
}

// The views and panes hear of it themselves, after this.
void CMainFrame::onDpiChanged(const RECT& suggested) {
    m_site->cancelDrag();
    m_status.followDpi();
    SetWindowPos(handle(), nullptr, suggested.left, suggested.top, fw::widthOf(suggested),
                 fw::heightOf(suggested), SWP_NOZORDER | SWP_NOACTIVATE);
    onSize(0, 0);
}

void CMainFrame::layOut() {
    if (IsIconic(handle()) != 0 || m_site == nullptr) return;
    const RECT client = clientRect();
    const fw::Rect inner = m_site->layOut({0, 0, static_cast<int>(client.right),
                                           static_cast<int>(client.bottom) - m_status.height()});
    SetWindowPos(m_client, nullptr, inner.left, inner.top, inner.width(), inner.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    tileViews();
}

void CMainFrame::onClose() {
    m_events.onClose();
}

void CMainFrame::onTimer(UINT_PTR) {
    m_events.onRefresh();
    raiseOwnedWindows();
    m_pending.refresh();
    m_registry.refresh();
}

// Windows that the frame owns, floating panes above all, stay over it. Windows sees to that by
// itself; Wine covers them when the frame is activated, and tells nobody when that is done.
void CMainFrame::raiseOwnedWindows() {
    std::vector<HWND> covered;
    for (HWND below = handle(); (below = GetWindow(below, GW_HWNDNEXT)) != nullptr;)
        if (GetWindow(below, GW_OWNER) == handle() && IsWindowVisible(below) != 0)
            covered.push_back(below);
    for (const HWND window : covered)
        SetWindowPos(window, HWND_TOP, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void CMainFrame::onCascade() {
    m_tiling.reset();
    SendMessageA(m_client, WM_MDICASCADE, 0, 0);
}

template <WPARAM direction>
void CMainFrame::onTile() {
    m_tiling = direction;
    SendMessageA(m_client, WM_MDITILE, direction, 0);
}

// Tiling would end the maximized state of a view.
void CMainFrame::tileViews() {
    BOOL isMaximized = FALSE;
    SendMessageA(m_client, WM_MDIGETACTIVE, 0, reinterpret_cast<LPARAM>(&isMaximized));
    if (m_tiling && isMaximized == 0) SendMessageA(m_client, WM_MDITILE, *m_tiling, 0);
}

void CMainFrame::onViewPending() {
    m_pending.open(m_client);
    tileViews();
}

void CMainFrame::onViewRegistry() {
    m_registry.open(m_client);
    tileViews();
}

}  // namespace zek
