#include "framework/pane_float.h"

#include <algorithm>

#include "framework/dock_frame.h"
#include "framework/float_frame.h"
#include "framework/hwnd.h"
#include "framework/pane_dialog.h"
#include "framework/platform.h"

namespace fw {

PaneFloat::PaneFloat(CPaneDialog& pane, PaneDocking& docking, const DockFrame& frame)
    : m_pane(pane), m_docking(docking), m_frame(frame) {}

PaneFloat::~PaneFloat() = default;

bool PaneFloat::holdsPane() const {
    return m_window != nullptr && GetParent(m_pane.handle()) == m_window->handle();
}

std::optional<SIZE> PaneFloat::lastSize() const {
    if (m_window == nullptr || m_window->handle() == nullptr) return std::nullopt;
    const RECT room = m_window->clientRect();
    const int dpi = dpiOf(m_window->handle());
    return SIZE{toUnits(static_cast<int>(room.right), dpi),
                toUnits(static_cast<int>(room.bottom), dpi)};
}

void PaneFloat::hide() {
    if (m_window != nullptr) ShowWindow(m_window->handle(), SW_HIDE);
}

void PaneFloat::destroy() {
    if (m_window != nullptr && m_window->handle() != nullptr) DestroyWindow(m_window->handle());
}

void PaneFloat::show(bool activate) {
    if (IsRectEmpty(&m_rect)) {
        const RECT frame = screenRect(m_frame.window());
        setRect(rectAt({frame.left + m_pane.scaled(60), frame.top + m_pane.scaled(90)}));
    }
    if (m_window == nullptr) m_window = std::make_unique<CFloatFrame>(m_pane, m_docking);
    if (m_window->handle() == nullptr &&
        !m_window->create(m_frame.window(), textOf(m_pane.handle()), m_rect))
        return;
    if (!holdsPane()) {
        place();
        SetParent(m_pane.handle(), m_window->handle());
        m_pane.frameChanged();
    }
    bringOnScreen();
    const RECT room = m_window->clientRect();
    SetWindowPos(m_pane.handle(), nullptr, 0, 0, room.right, room.bottom,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    ShowWindow(m_window->handle(), activate ? SW_SHOW : SW_SHOWNA);
}

// First it goes where it shall be, and gets the dots per inch there, with a size by the platform's
// own reckoning; then the size that it has at those.
void PaneFloat::place() {
    const HWND window = m_window->handle();
    SetWindowPos(window, nullptr, m_rect.left, m_rect.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    const int dpi = dpiOf(window);
    SetWindowPos(window, nullptr, m_rect.left, m_rect.top, Measure{widthOf(m_rect), m_dpi}.at(dpi),
                 Measure{heightOf(m_rect), m_dpi}.at(dpi), SWP_NOZORDER | SWP_NOACTIVATE);
}

// Its monitor may be gone since: a window whose caption is on none could not be reached. Where it
// was is kept, for when the monitor is back.
void PaneFloat::bringOnScreen() const {
    const HWND window = m_window->handle();
    const RECT rect = screenRect(window);
    RECT caption = rect;
    caption.bottom = caption.top + metric(SM_CYSMCAPTION, dpiOf(window));
    if (MonitorFromRect(&caption, MONITOR_DEFAULTTONULL) == nullptr) moveOnScreen(window, rect);
}

RECT PaneFloat::rectAt(POINT corner) const {
    const int dpi = dpiOf(m_pane.handle());
    RECT rect{0, 0, Measure{widthOf(m_rect), m_dpi}.at(dpi),
              Measure{heightOf(m_rect), m_dpi}.at(dpi)};
    if (IsRectEmpty(&rect)) {
        const SIZE stored = m_pane.firstFloatSize(), least = m_pane.leastSize();
        const SIZE wished{toPixels(static_cast<int>(stored.cx), dpi),
                          toPixels(static_cast<int>(stored.cy), dpi)};
        rect = CFloatFrame::windowAround(
            {std::max(wished.cx, least.cx), std::max(wished.cy, least.cy)}, dpi);
        if (wished.cx == 0 && wished.cy == 0) {
            const RECT frame = screenRect(m_frame.window());
            rect.right = std::max<LONG>(rect.right, rect.left + widthOf(frame) * 2 / 3);
            rect.bottom = std::max<LONG>(rect.bottom, rect.top + heightOf(frame) * 2 / 3);
        }
    }
    OffsetRect(&rect, corner.x - rect.left, corner.y - rect.top);
    return rect;
}

void PaneFloat::setRect(const RECT& rect) {
    m_rect = rect;
    m_dpi = dpiOf(m_pane.handle());
}

void PaneFloat::moved() {
    m_rect = screenRect(m_window->handle());
    m_dpi = dpiOf(m_window->handle());
}

}  // namespace fw
