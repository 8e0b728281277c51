// CFloatFrame: the tool window that a floating pane fills.
#pragma once

#include <string>

#include "framework/window.h"

namespace fw {

class CPaneDialog;
class PaneDocking;

class CFloatFrame : public CWindow {
public:
    CFloatFrame(CPaneDialog& pane, PaneDocking& docking) : m_pane(pane), m_docking(docking) {}

    // Creates the hidden window at `rect` (screen pixels), owned by `owner`, with `caption`.
    bool create(HWND owner, const std::string& caption, const RECT& rect);

    // The window that has a client area of this size, at `dpi`.
    static RECT windowAround(SIZE client, int dpi);

protected:
    const MessageMap& messageMap() const override;

private:
    void onSize(int width, int height);
    void onClose();
    void onMoveBegins();
    void onMoving();
    void onMoveEnds();
    void onCaptionDoubleClick(UINT hit, POINT screen);
    void onSetFocus();
    void onMinimum(MINMAXINFO& info);
    void onDpiChanged(const RECT& suggested);
    void onActivate(bool active);
    void onSystemColors();
    void onSetting(WPARAM what, LPARAM section);

    CPaneDialog& m_pane;
    PaneDocking& m_docking;
    RECT m_before{};  // when the user took hold of the window
};

}  // namespace fw
