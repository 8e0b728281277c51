#include "framework/pane_docking.h"

#include <utility>

#include "framework/hwnd.h"
#include "framework/model/dock_layout.h"
#include "framework/pane_dialog.h"
#include "framework/platform.h"

namespace fw {

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
        m_floating.show(false);
        return;
    }
    m_pane.frameChanged();
    m_floating.hide();
    // The focus went with the window that the pane left.
    if (IsChild(pane, focus) != 0) SetFocus(focus);
}

void PaneDocking::floatPane() {
    if (m_pane.handle() == nullptr) return;
    if (m_mode == Mode::docked && !m_hidden) leaveFrame();
    m_mode = Mode::floating;
    m_hidden = false;
    m_floating.show(true);
}

void PaneDocking::show(bool activate) {
    if (m_hidden && m_mode == Mode::docked) dock();
    if (m_mode == Mode::floating) m_floating.show(activate);
    m_hidden = false;
}

void PaneDocking::hide() {
    const HWND pane = m_pane.handle();
    if (pane == nullptr || m_hidden) return;
    const bool hadFocus = IsChild(pane, GetFocus()) != 0;
    if (m_mode == Mode::docked) {
        leaveFrame();
        ShowWindow(pane, SW_HIDE);
    } else {
        m_floating.hide();
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

void PaneDocking::floatFrameDragged() {
    const DockFrame::Target target = targetFor(mousePoint());
    if (target.side != 0)
        m_preview.show(target.rect);
    else
        m_preview.hide();
}

void PaneDocking::floatFrameReleased(bool moved) {
    m_preview.hide();
    m_floating.moved();
    if (moved) dropAt(mousePoint());
}

// ---- Where a pane that is let go would be ----

// Docks where the frame docks and the pane may, floats elsewhere and while Ctrl is down. At its own
// side it keeps its extent, so the frame is asked again with that.
DockFrame::Target PaneDocking::targetFor(POINT screen) const {
    const DockFrame::Target floating{
        0, m_floating.rectAt({screen.x - m_pane.scaled(60), screen.y - m_pane.scaled(10)})};
    if (isDown(VK_CONTROL)) return floating;
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
    m_floating.setRect(target.rect);
    floatPane();
}

}  // namespace fw
