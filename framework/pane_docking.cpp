#include "framework/pane_docking.h"

#include <algorithm>
#include <utility>

#include "framework/float_frame.h"
#include "framework/hwnd.h"
#include "framework/model/dock_layout.h"
#include "framework/pane_dialog.h"
#include "framework/platform.h"

namespace fw {

PaneDocking::PaneDocking(CPaneDialog& pane) : m_pane(pane) {}

PaneDocking::~PaneDocking() = default;

void PaneDocking::open(HWND frame, unsigned side) {
    m_frame.open(frame);
    m_side = side;
}

void PaneDocking::close() {
    if (m_mode == Mode::docked && !m_hidden) leaveFrame();
    m_preview.hide();
    m_hidden = true;
}

// ---- Docked, floating, hidden ----

void PaneDocking::dock() {
    if (!std::exchange(m_recalled, true))
        if (const auto last = m_frame.recall(m_pane.handle()); last && allows(last->side)) {
            m_side = last->side;
            m_extent = {last->extent, frameDpi()};
        }
    dockAt(m_side);
}

void PaneDocking::dockAt(unsigned side) {
    const HWND pane = m_pane.handle();
    if (pane == nullptr) return;
    if (side != m_side)
        m_extent = {};
    else if (m_mode == Mode::docked && !m_hidden)
        m_extent = presentExtent();
    const HWND focus = GetFocus();
    m_side = side;
    m_mode = Mode::docked;
    m_hidden = false;
    if (!allows(side) || !m_frame.attach(pane, side & m_allowedSides, extent())) {
        m_mode = Mode::floating;
        showFloating(false);
        return;
    }
    m_pane.frameChanged();
    if (m_float != nullptr) ShowWindow(m_float->handle(), SW_HIDE);
    // The focus went with the window that the pane left.
    if (IsChild(pane, focus) != 0) SetFocus(focus);
}

void PaneDocking::floatPane() {
    if (m_pane.handle() == nullptr) return;
    if (m_mode == Mode::docked && !m_hidden) leaveFrame();
    m_mode = Mode::floating;
    m_hidden = false;
    showFloating(true);
}

void PaneDocking::show(bool activate) {
    if (m_hidden && m_mode == Mode::docked) dock();
    if (m_mode == Mode::floating) showFloating(activate);
    m_hidden = false;
}

void PaneDocking::hide() {
    const HWND pane = m_pane.handle();
    if (pane == nullptr || m_hidden) return;
    const bool hadFocus = IsChild(pane, GetFocus()) != 0;
    if (m_mode == Mode::docked) {
        leaveFrame();
        ShowWindow(pane, SW_HIDE);
    } else if (m_float != nullptr) {
        ShowWindow(m_float->handle(), SW_HIDE);
    }
    m_hidden = true;
    if (hadFocus) SetFocus(m_frame.window());
    m_pane.onHidden();
}

void PaneDocking::leaveFrame() {
    m_extent = presentExtent();
    m_frame.detach(m_pane.handle());
}

Measure PaneDocking::presentExtent() const {
    const RECT window = screenRect(m_pane.handle());
    return {acrossIsHeight(m_side) ? heightOf(window) : widthOf(window), frameDpi()};
}

int PaneDocking::frameDpi() const {
    return dpiOf(m_frame.window());
}

// ---- The float frame ----

bool PaneDocking::inFloatFrame() const {
    return m_float != nullptr && GetParent(m_pane.handle()) == m_float->handle();
}

std::optional<SIZE> PaneDocking::lastFloatSize() const {
    if (m_float == nullptr || m_float->handle() == nullptr) return std::nullopt;
    const RECT room = m_float->clientRect();
    const int dpi = dpiOf(m_float->handle());
    return SIZE{toUnits(static_cast<int>(room.right), dpi),
                toUnits(static_cast<int>(room.bottom), dpi)};
}

void PaneDocking::destroyFloatFrame() {
    if (m_float != nullptr && m_float->handle() != nullptr) DestroyWindow(m_float->handle());
}

void PaneDocking::showFloating(bool activate) {
    if (IsRectEmpty(&m_floatRect)) {
        const RECT frame = screenRect(m_frame.window());
        m_floatRect = floatRectAt({frame.left + m_pane.scaled(60), frame.top + m_pane.scaled(90)});
        m_floatDpi = dpiOf(m_pane.handle());
    }
    if (m_float == nullptr) m_float = std::make_unique<CFloatFrame>(m_pane, *this);
    if (m_float->handle() == nullptr &&
        !m_float->create(m_frame.window(), textOf(m_pane.handle()), m_floatRect))
        return;
    if (!inFloatFrame()) {
        placeFloatFrame();
        SetParent(m_pane.handle(), m_float->handle());
        m_pane.frameChanged();
    }
    const RECT room = m_float->clientRect();
    SetWindowPos(m_pane.handle(), nullptr, 0, 0, room.right, room.bottom,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    ShowWindow(m_float->handle(), activate ? SW_SHOW : SW_SHOWNA);
}

// First it goes where it shall be, and gets the dots per inch there, with a size by the platform's
// own reckoning; then the size that it has at those.
void PaneDocking::placeFloatFrame() {
    const HWND window = m_float->handle();
    SetWindowPos(window, nullptr, m_floatRect.left, m_floatRect.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    const int dpi = dpiOf(window);
    SetWindowPos(window, nullptr, m_floatRect.left, m_floatRect.top,
                 Measure{widthOf(m_floatRect), m_floatDpi}.at(dpi),
                 Measure{heightOf(m_floatRect), m_floatDpi}.at(dpi), SWP_NOZORDER | SWP_NOACTIVATE);
}

// As large as it floated last.
RECT PaneDocking::floatRectAt(POINT corner) const {
    const int dpi = dpiOf(m_pane.handle());
    RECT rect{0, 0, Measure{widthOf(m_floatRect), m_floatDpi}.at(dpi),
              Measure{heightOf(m_floatRect), m_floatDpi}.at(dpi)};
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

void PaneDocking::floatFrameDragged() {
    POINT cursor{};
    GetCursorPos(&cursor);
    const DockFrame::Target target = targetFor(cursor);
    if (target.side != 0)
        m_preview.show(target.rect);
    else
        m_preview.hide();
}

void PaneDocking::floatFrameReleased(bool moved) {
    m_preview.hide();
    if (!moved) return;
    m_floatRect = screenRect(m_float->handle());
    m_floatDpi = dpiOf(m_float->handle());
    POINT cursor{};
    GetCursorPos(&cursor);
    dropAt(cursor);
}

// ---- Where a pane that is let go would be ----

// Docks where the frame docks and the pane may, floats elsewhere and while Ctrl is down. At its own
// side it keeps its extent, so the frame is asked again with that.
DockFrame::Target PaneDocking::targetFor(POINT screen) const {
    const DockFrame::Target floating{
        0, floatRectAt({screen.x - m_pane.scaled(60), screen.y - m_pane.scaled(10)})};
    if (GetKeyState(VK_CONTROL) < 0) return floating;
    const auto target = m_frame.targetAt(m_pane.handle(), screen, 0);
    if (!target || !allows(target->side)) return floating;
    if (target->side != m_side) return *target;
    const int own = m_mode == Mode::docked ? presentExtent().pixels : extent();
    return m_frame.targetAt(m_pane.handle(), screen, own).value_or(*target);
}

void PaneDocking::previewDrop(POINT screen) {
    m_preview.show(targetFor(screen).rect);
}

void PaneDocking::dropAt(POINT screen) {
    const DockFrame::Target target = targetFor(screen);
    if (target.side != 0) return dockAt(target.side);
    if (m_mode == Mode::floating) return;
    m_floatRect = target.rect;
    m_floatDpi = dpiOf(m_pane.handle());
    floatPane();
}

}  // namespace fw
