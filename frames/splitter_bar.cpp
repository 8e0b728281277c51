#include "frames/splitter_bar.h"

#include <algorithm>

#include "framework/handles.h"

namespace mc {

bool CSplitterBar::create(HWND frame) {
    static const fw::WindowClass windowClass{
        "MakerChecker.SplitterBar", CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, IDC_ARROW, COLOR_3DFACE};
    return CWindow::create(windowClass, "Splitter", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, RECT{},
                           frame, 0);
}

const fw::MessageMap& CSplitterBar::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_SETCURSOR, &CSplitterBar::onSetCursor>(),
        fw::on<WM_LBUTTONDOWN, &CSplitterBar::onButtonDown>(),
        fw::on<WM_MOUSEMOVE, &CSplitterBar::onMouseMove>(),
        fw::on<WM_LBUTTONUP, &CSplitterBar::onButtonUp>(),
        fw::on<WM_LBUTTONDBLCLK, &CSplitterBar::onDoubleClick>(),
        fw::observe<WM_CAPTURECHANGED, &CSplitterBar::onCaptureLost>(),
        fw::on<WM_GETDLGCODE, &CSplitterBar::onGetDialogCode>(),
        fw::offer<WM_KEYDOWN, &CSplitterBar::onKeyDown>(),
        fw::on<WM_SETFOCUS, &CSplitterBar::onFocusChanged>(),
        fw::on<WM_KILLFOCUS, &CSplitterBar::onFocusChanged>(),
        fw::on<WM_PAINT, &CSplitterBar::onPaint>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

int CSplitterBar::start() const {
    POINT at{0, 0};
    MapWindowPoints(handle(), GetParent(handle()), &at, 1);
    return along(at);
}

LRESULT CSplitterBar::onSetCursor(HWND, UINT) {
    SetCursor(LoadCursorA(nullptr, m_across ? IDC_SIZENS : IDC_SIZEWE));
    return TRUE;
}

void CSplitterBar::onButtonDown(POINT client) {
    m_dragging = true;
    m_grabbedAt = along(client);
    m_events.grabbed();
    SetCapture(handle());
}

void CSplitterBar::onMouseMove(POINT client) {
    if (m_dragging) m_events.movedTo(start() + along(client) - m_grabbedAt);
}

void CSplitterBar::onButtonUp(POINT) {
    if (!m_dragging) return;
    m_dragging = false;
    ReleaseCapture();
}

void CSplitterBar::onCaptureLost() {
    if (!m_dragging) return;
    m_dragging = false;
    m_events.putBack();
}

bool CSplitterBar::onKeyDown(UINT key, bool) {
    const struct {
        UINT key;
        BarMove move;
    } moves[] = {{static_cast<UINT>(m_across ? VK_UP : VK_LEFT), BarMove::back},
                 {static_cast<UINT>(m_across ? VK_DOWN : VK_RIGHT), BarMove::forth},
                 {VK_HOME, BarMove::toLeast},
                 {VK_END, BarMove::toMost}};
    for (const auto& each : moves)
        if (each.key == key) return m_events.stepped(each.move), true;
    if (key == VK_SPACE) m_events.evenedOut();
    return key == VK_SPACE;
}

// Three dots, and the highlight's colour while the keys move it.
void CSplitterBar::onPaint() {
    const fw::PaintScope paint(handle());
    const bool focused = GetFocus() == handle();
    RECT bar = clientRect();
    FillRect(paint.dc(), &bar, GetSysColorBrush(focused ? COLOR_HIGHLIGHT : COLOR_3DFACE));
    const int dot = std::max(scaled(2), 1);
    const POINT middle{(bar.right - dot) / 2, (bar.bottom - dot) / 2};
    for (int step = -1; step <= 1; ++step) {
        const LONG x = middle.x + (m_across ? step * 3 * dot : 0);
        const LONG y = middle.y + (m_across ? 0 : step * 3 * dot);
        const RECT square{x, y, x + dot, y + dot};
        FillRect(paint.dc(), &square,
                 GetSysColorBrush(focused ? COLOR_HIGHLIGHTTEXT : COLOR_3DSHADOW));
    }
}

}  // namespace mc
