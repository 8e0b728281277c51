// The caption strip of a docked pane: gripper, text, float and close buttons, drawn and pressed in
// the pane's non-client area, and the drag that begins in it. A floating pane has none: its tool
// window has a caption.
//
// A part of CPaneDialog, whose message map names the handlers.
#pragma once

#include <windows.h>

namespace fw {

class CPaneDialog;
class PaneDocking;

class PaneCaption {
public:
    PaneCaption(CPaneDialog& pane, PaneDocking& docking) : m_pane(pane), m_docking(docking) {}

    // The menu with what can be done with the pane.
    void showMenu(UINT, POINT screen);
    // The pane's menus are its parts' own; asked for elsewhere in it, none comes from the host.
    void onContextMenu(POINT) {}

    void onMinimum(MINMAXINFO& info);
    void onNcCalcSize(RECT& rect);
    void onNcPaint();
    LRESULT onNcHitTest(POINT screen);
    void onNcButtonDown(UINT hit, POINT screen);
    void onNcDoubleClick(UINT hit, POINT screen);
    void onNcRightDown() {}  // the platform's own handling would swallow the button's release
    void onNcContext(UINT hit, POINT screen);
    void onMouseMove(POINT client);
    void onButtonUp(POINT client);
    void onCaptureLost();

private:
    enum class Button { close, floating };

    int height() const;
    RECT buttonRect(Button button) const;  // window coordinates

    CPaneDialog& m_pane;
    PaneDocking& m_docking;
    bool m_pressed = false;   // the caption is held
    bool m_dragging = false;  // and was moved
    POINT m_pressedAt{};
};

}  // namespace fw
