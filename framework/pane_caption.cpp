#include "framework/pane_caption.h"

#include <algorithm>
#include <cstdlib>

#include "framework/dialog.h"
#include "framework/handles.h"
#include "framework/hwnd.h"
#include "framework/model/dots.h"
#include "framework/pane_dialog.h"
#include "framework/platform.h"

namespace fw {
namespace {

// What the menu offers.
struct CaptionCommand {
    UINT id;
    unsigned side;  // 0: not a docking command
    const char* text;
};
enum : UINT { kFloatCommand = 1, kCloseCommand, kFirstDockCommand };
constexpr CaptionCommand kCaptionCommands[] = {
    {kFirstDockCommand, kDockLeft, "Dock &Left"},
    {kFirstDockCommand + 1, kDockTop, "Dock &Top"},
    {kFirstDockCommand + 2, kDockRight, "Dock &Right"},
    {kFirstDockCommand + 3, kDockBottom, "Dock &Bottom"},
    {kFloatCommand, 0, "&Float"},
    {kCloseCommand, 0, "&Close"},
};

void drawGripper(HDC dc, RECT strip, int dpi) {
    const int margin = toPixels(3, dpi);
    for (int bar = 0; bar < 2; ++bar) {
        const LONG left = strip.left + margin + toPixels(bar * 4, dpi);
        RECT line{left, strip.top + margin, left + margin, strip.bottom - margin};
        DrawEdge(dc, &line, BDR_RAISEDINNER, BF_RECT);
    }
}

}  // namespace

// ---- The strip ----

int PaneCaption::height() const {
    return m_docking.floating().holdsPane() ? 0 : m_pane.scaled(22);
}

RECT PaneCaption::buttonRect(Button button) const {
    const int size = height() - m_pane.scaled(6);
    const int fromRight = button == Button::close ? 0 : size + m_pane.scaled(2);
    const int right = widthOf(screenRect(m_pane.handle())) - m_pane.scaled(4) - fromRight;
    return {right - size, m_pane.scaled(3), right, m_pane.scaled(3) + size};
}

void PaneCaption::onMinimum(MINMAXINFO& info) {
    const SIZE least = m_pane.leastSize();
    info.ptMinTrackSize = {least.cx, least.cy + height()};
}

void PaneCaption::onNcCalcSize(RECT& rect) {
    rect.top = std::min(rect.top + height(), rect.bottom);
}

void PaneCaption::onNcPaint() {
    if (height() == 0) return;
    const WindowDcScope scope(m_pane.handle());
    const HDC dc = scope.dc();
    RECT strip{0, 0, widthOf(screenRect(m_pane.handle())), height()};
    FillRect(dc, &strip, GetSysColorBrush(COLOR_3DFACE));
    const int dpi = dpiOf(m_pane.handle());
    drawGripper(dc, strip, dpi);

    const Font font = systemFont(&NONCLIENTMETRICSW::lfSmCaptionFont, dpi);
    const SelectScope select(dc, font.get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    RECT floating = buttonRect(Button::floating), close = buttonRect(Button::close);
    RECT text{m_pane.scaled(14), 0, floating.left, strip.bottom};
    DrawTextA(dc, textOf(m_pane.handle()).c_str(), -1, &text,
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    DrawFrameControl(dc, &close, DFC_CAPTION, DFCS_CAPTIONCLOSE | DFCS_FLAT);
    DrawFrameControl(dc, &floating, DFC_CAPTION, DFCS_CAPTIONRESTORE | DFCS_FLAT);
}

LRESULT PaneCaption::onNcHitTest(POINT screen) {
    const RECT window = screenRect(m_pane.handle());
    const POINT at{screen.x - window.left, screen.y - window.top};
    if (at.y >= height()) return HTCLIENT;
    const RECT close = buttonRect(Button::close), floating = buttonRect(Button::floating);
    if (PtInRect(&close, at) != 0) return HTCLOSE;
    return PtInRect(&floating, at) != 0 ? HTMINBUTTON : HTCAPTION;
}

// ---- Presses and the drag ----

void PaneCaption::onNcButtonDown(UINT hit, POINT screen) {
    if (hit == HTCLOSE) {
        m_docking.hide();
    } else if (hit == HTMINBUTTON) {
        m_docking.floatPane();
    } else if (hit == HTCAPTION) {
        m_pressed = true;
        m_pressedAt = screen;
        SetCapture(m_pane.handle());
    }
}

void PaneCaption::onNcDoubleClick(UINT hit, POINT) {
    if (hit == HTCAPTION) m_docking.floatPane();
}

void PaneCaption::onMouseMove(POINT client) {
    if (!m_pressed) return;
    ClientToScreen(m_pane.handle(), &client);
    const int dpi = dpiOf(m_pane.handle());
    m_dragging = m_dragging || std::abs(client.x - m_pressedAt.x) > metric(SM_CXDRAG, dpi) ||
                 std::abs(client.y - m_pressedAt.y) > metric(SM_CYDRAG, dpi);
    if (!m_dragging) return;
    SetCursor(LoadCursorA(nullptr, IDC_SIZEALL));
    m_docking.previewDrop(client);
}

void PaneCaption::onButtonUp(POINT client) {
    const bool dropped = m_dragging;
    ClientToScreen(m_pane.handle(), &client);
    if (m_pressed) ReleaseCapture();
    if (dropped) m_docking.dropAt(client);
}

void PaneCaption::onCaptureLost() {
    m_pressed = m_dragging = false;
    m_docking.hidePreview();
}

// ---- The menu ----

void PaneCaption::onNcContext(UINT hit, POINT screen) {
    if (hit == HTCAPTION) postMenu(m_pane.handle(), 0, screen);
}

void PaneCaption::showMenu(UINT, POINT screen) {
    const Menu menu(CreatePopupMenu());
    for (const CaptionCommand& command : kCaptionCommands)
        if (command.side == 0 || m_docking.allows(command.side))
            AppendMenuA(menu.get(), MF_STRING, command.id, command.text);
    const UINT chosen = trackMenu(menu.get(), screen, m_pane.handle());
    if (chosen == kFloatCommand) m_docking.floatPane();
    if (chosen == kCloseCommand) m_docking.hide();
    for (const CaptionCommand& command : kCaptionCommands)
        if (command.side != 0 && command.id == chosen) m_docking.dockAt(command.side);
}

}  // namespace fw
