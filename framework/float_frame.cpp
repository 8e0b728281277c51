#include "framework/float_frame.h"

namespace fw {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
constexpr DWORD kExStyle = WS_EX_TOOLWINDOW;

}  // namespace

bool CFloatFrame::create(HWND owner, const std::string& caption, const RECT& place) {
    static const WindowClass windowClass{"MakerChecker.FloatFrame", 0, IDC_ARROW, COLOR_3DFACE};
    return CWindow::create(windowClass, caption.c_str(), kStyle, kExStyle, place, owner, 0);
}

RECT CFloatFrame::windowAround(SIZE client) {
    RECT window{0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&window, kStyle, FALSE, kExStyle);
    return window;
}

const MessageMap& CFloatFrame::messageMap() const {
    static constexpr MessageEntry entries[] = {
        on<WM_SIZE, &CFloatFrame::onSize>(),
        on<WM_CLOSE, &CFloatFrame::onClose>(),
        observe<WM_ENTERSIZEMOVE, &CFloatFrame::onMoveBegins>(),
        observe<WM_MOVING, &CFloatFrame::onMoving>(),
        observe<WM_EXITSIZEMOVE, &CFloatFrame::onMoveEnds>(),
        on<WM_NCLBUTTONDBLCLK, &CFloatFrame::onCaptionDoubleClick>(),
        on<WM_SETFOCUS, &CFloatFrame::onSetFocus>(),
        on<WM_GETMINMAXINFO, &CFloatFrame::onMinimum>(),
    };
    static constexpr MessageMap map{nullptr, entries};
    return map;
}

void CFloatFrame::onSize(int width, int height) {
    if (GetParent(m_pane.handle()) == handle())
        SetWindowPos(m_pane.handle(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CFloatFrame::onClose() {
    m_pane.hide();
}

void CFloatFrame::onMoveBegins() {
    GetWindowRect(handle(), &m_before);
}

// A window that was resized stays where it is, though the pointer may be over a docking place.
void CFloatFrame::onMoveEnds() {
    RECT now{};
    GetWindowRect(handle(), &now);
    const bool resized = now.right - now.left != m_before.right - m_before.left ||
                         now.bottom - now.top != m_before.bottom - m_before.top;
    m_pane.floatFrameReleased(!resized && EqualRect(&now, &m_before) == 0);
}

void CFloatFrame::onCaptionDoubleClick(UINT hit, POINT) {
    if (hit == HTCAPTION) m_pane.dock();
}

void CFloatFrame::onMinimum(MINMAXINFO& info) {
    const RECT window = windowAround(m_pane.leastSize());
    info.ptMinTrackSize = {window.right - window.left, window.bottom - window.top};
}

}  // namespace fw
