// Keeps a pane at the dots per inch of its monitor, however it hears of others: by WM_DPICHANGED of
// its float frame, by WM_DPICHANGED_AFTERPARENT, by another parent or only by another size.
//
// A part of CPaneDialog. Its procedure is the pane's outer one, so that the platform's dialog
// manager is done with a message when the pane follows it. The pane's font is made here, at the
// dots per inch that the pane has.
#pragma once

#include "framework/handles.h"
#include "framework/window.h"

namespace fw {

class CPaneDialog;

class PaneDpi final : public CWindow {
public:
    explicit PaneDpi(CPaneDialog& pane) : m_pane(pane) {}

    // The pane's window is there, with what is in it.
    void open();

    // Fonts, sizes and tips for the dots per inch that the pane has now, if they are others than
    // the last time. What the mouse drags in it goes back.
    void check();

    LRESULT onGetFont() { return reinterpret_cast<LRESULT>(font()); }

protected:
    const MessageMap& messageMap() const override;

private:
    void onAfterParent();
    void takeFont();  // the pane's controls do, whose font was the template's or is going
    void follow();
    HFONT font();

    CPaneDialog& m_pane;
    Font m_font;
    int m_dpi = 0;  // that the pane follows; 0 before it is made
};

}  // namespace fw
