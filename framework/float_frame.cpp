#include "framework/float_frame.h"

#include "framework/hwnd.h"
#include "framework/pane_dialog.h"
#include "framework/platform.h"

namespace fw {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
constexpr DWORD kExStyle = WS_EX_TOOLWINDOW;

}  // namespace

bool CFloatFrame::create(HWND owner, const std::string& caption, const RECT& rect) {
    static const WindowClass windowClass{"MakerChecker.FloatFrame", 0, IDC_ARROW, COLOR_3DFACE};
    return CWindow::create(windowClass, caption.c_str(), kStyle, kExStyle, rect, owner, 0);
}

RECT CFloatFrame::windowAround(SIZE client, int dpi) {
    return fw::windowAround({0, 0, client.cx, client.cy}, kStyle, kExStyle, dpi);
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
        on<WM_DPICHANGED, &CFloatFrame::onDpiChanged>(),
        observe<WM_ACTIVATE, &CFloatFrame::onActivate>(),
        observe<WM_SYSCOLORCHANGE, &CFloatFrame::onSystemColors>(),
        observe<WM_SETTINGCHANGE, &CFloatFrame::onSetting>(),
    };
    static constexpr MessageMap map{nullptr, entries};
    return map;
}

void CFloatFrame::onSize(int width, int height) {
    if (GetParent(m_pane.handle()) == handle())
        SetWindowPos(m_pane.handle(), nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CFloatFrame::onClose() {
    m_docking.hide();
}

void CFloatFrame::onSetFocus() {
    m_pane.keys().takeFocus();
}

void CFloatFrame::onMoveBegins() {
    m_before = screenRect(handle());
}

void CFloatFrame::onMoving() {
    m_docking.floatFrameDragged();
}

// A window that was resized stays where it is, though the pointer may be over a docking position.
void CFloatFrame::onMoveEnds() {
    const RECT now = screenRect(handle());
    const bool resized = widthOf(now) != widthOf(m_before) || heightOf(now) != heightOf(m_before);
    m_docking.floatFrameReleased(!resized && EqualRect(&now, &m_before) == 0);
}

void CFloatFrame::onCaptionDoubleClick(UINT hit, POINT) {
    if (hit == HTCAPTION) m_docking.dock();
}

// The platform gives the frame the focus when it is activated again, and that gives it to the pane.
void CFloatFrame::onActivate(bool active) {
    m_pane.keys().onActivate(active);
}

// A docked pane hears of both from its frame.
void CFloatFrame::onSystemColors() {
    if (m_docking.floating().holdsPane()) SendMessageA(m_pane.handle(), WM_SYSCOLORCHANGE, 0, 0);
}

void CFloatFrame::onSetting(WPARAM what, LPARAM section) {
    if (m_docking.floating().holdsPane())
        SendMessageA(m_pane.handle(), WM_SETTINGCHANGE, what, section);
}

// The rectangle keeps the pointer that drags the window where it holds it.
void CFloatFrame::onDpiChanged(const RECT& suggested) {
    SetWindowPos(handle(), nullptr, suggested.left, suggested.top, widthOf(suggested),
                 heightOf(suggested), SWP_NOZORDER | SWP_NOACTIVATE);
    if (m_docking.floating().holdsPane()) m_pane.dpi().check();
}

void CFloatFrame::onMinimum(MINMAXINFO& info) {
    const RECT window = windowAround(m_pane.leastSize(), dpiOf(handle()));
    info.ptMinTrackSize = {widthOf(window), heightOf(window)};
}

}  // namespace fw
