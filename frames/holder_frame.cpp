#include "frames/holder_frame.h"

#include <algorithm>

bool CVTHolderFrame::create(HWND parent, const RECT& place, UINT id) {
    static const fw::WindowClass windowClass{"MakerChecker.HolderFrame", 0, IDC_ARROW,
                                             COLOR_3DFACE};
    return CWindow::create(windowClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                           WS_EX_CONTROLPARENT, place, parent, id);
}

void CVTHolderFrame::setViews(HWND upper, HWND lower) {
    m_upper = upper;
    m_lower = lower;
    layOut();
}

void CVTHolderFrame::move(const RECT& place) {
    SetWindowPos(handle(), nullptr, place.left, place.top, std::max(place.right - place.left, 0L),
                 std::max(place.bottom - place.top, 0L), SWP_NOZORDER | SWP_NOACTIVATE);
}

const fw::MessageMap& CVTHolderFrame::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_SIZE, &CVTHolderFrame::onSize>(),
        fw::onNotify<fw::kAnyId, fw::kAnyCode, &CVTHolderFrame::onNotify>(),
        fw::on<WM_DRAWITEM, &CVTHolderFrame::onDrawItem>(),
        fw::on<WM_MEASUREITEM, &CVTHolderFrame::onMeasureItem>(),
        fw::on<WM_SETCURSOR, &CVTHolderFrame::onSetCursor>(),
        fw::on<WM_LBUTTONDOWN, &CVTHolderFrame::onButtonDown>(),
        fw::on<WM_MOUSEMOVE, &CVTHolderFrame::onMouseMove>(),
        fw::on<WM_LBUTTONUP, &CVTHolderFrame::onButtonUp>(),
        fw::observe<WM_CAPTURECHANGED, &CVTHolderFrame::onCaptureLost>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

void CVTHolderFrame::onSize(int, int) {
    layOut();
}

LRESULT CVTHolderFrame::onNotify(NMHDR& header) {
    const auto lParam = reinterpret_cast<LPARAM>(&header);
    const LRESULT own = reflectNotify(header.idFrom, lParam);
    const LRESULT parent = SendMessageA(GetParent(handle()), WM_NOTIFY, header.idFrom, lParam);
    return own != 0 ? own : parent;
}

// A list draws its own rows.
LRESULT CVTHolderFrame::onDrawItem(const DRAWITEMSTRUCT& draw) {
    return SendMessageA(draw.hwndItem, WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
}

// And says how high they are.
LRESULT CVTHolderFrame::onMeasureItem(MEASUREITEMSTRUCT& measure) {
    return SendDlgItemMessageA(handle(), static_cast<int>(measure.CtlID), WM_MEASUREITEM,
                               measure.CtlID, reinterpret_cast<LPARAM>(&measure));
}

int CVTHolderFrame::barTop() const {
    const int room = std::max(static_cast<int>(clientRect().bottom) - barHeight(), 0);
    const int least = std::min(scaled(60), room / 2);
    return std::clamp(static_cast<int>(room * m_share), least, std::max(room - least, least));
}

void CVTHolderFrame::layOut() {
    if (m_upper == nullptr || m_lower == nullptr) return;
    const RECT client = clientRect();
    const int top = barTop();
    const int below = top + barHeight();
    constexpr UINT flags = SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(m_upper, nullptr, 0, 0, client.right, top, flags);
    SetWindowPos(m_lower, nullptr, 0, below, client.right,
                 std::max(static_cast<int>(client.bottom) - below, 0), flags);
}

LRESULT CVTHolderFrame::onSetCursor(HWND under, UINT hit) {
    const bool bar = under == handle() && hit == HTCLIENT;
    SetCursor(LoadCursorA(nullptr, bar ? IDC_SIZENS : IDC_ARROW));
    return TRUE;
}

void CVTHolderFrame::onButtonDown(POINT) {
    m_dragging = true;
    SetCapture(handle());
}

void CVTHolderFrame::onMouseMove(POINT client) {
    const int room = static_cast<int>(clientRect().bottom) - barHeight();
    if (!m_dragging || room <= 0) return;
    m_share = std::clamp(static_cast<double>(client.y) / room, 0.0, 1.0);
    layOut();
}

void CVTHolderFrame::onButtonUp(POINT) {
    if (m_dragging) ReleaseCapture();
}

void CVTHolderFrame::onCaptureLost() {
    m_dragging = false;
}
