// CFloatFrame: the tool window that a floating pane fills.
#pragma once

#include "framework/pane_dialog.h"

namespace fw {

class CFloatFrame : public CWindow {
public:
    explicit CFloatFrame(CPaneDialog& pane) : m_pane(pane) {}

    // Creates the hidden window at `place` (screen pixels), owned by `owner`, with `caption`.
    bool create(HWND owner, const std::string& caption, const RECT& place);

    // The window that has a client area of this size.
    static RECT windowAround(SIZE client);

protected:
    const MessageMap& messageMap() const override;

private:
    void onSize(int width, int height);
    void onClose();
    void onMoveBegins();
    void onMoving() { m_pane.floatFrameDragged(); }
    void onMoveEnds();
    void onCaptionDoubleClick(UINT hit, POINT screen);
    void onSetFocus() { m_pane.takeFocus(); }
    void onMinimum(MINMAXINFO& info);

    CPaneDialog& m_pane;
    RECT m_before{};  // the place when the user took hold of the window
};

}  // namespace fw
