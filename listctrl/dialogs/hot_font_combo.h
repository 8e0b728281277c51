// CHotFontCombo: a drop-down list of the fonts, each in its own face, with a flat frame that lights
// up while the mouse is over it.
//
// The combo box is owner-drawn, of one height, and holds its strings; its parent hands WM_DRAWITEM
// back to it. A font lives only while its entry is drawn, so any number of fonts opens at once.
#pragma once

#include <string>

#include "framework/window.h"

namespace mc {

class CHotFontCombo : public fw::CWindow {
public:
    // Takes the combo box over; once.
    bool attach(HWND combo);

    // Fills the list with the screen's font families and selects `preferred` if it is there.
    void fill(const std::string& preferred);

protected:
    const fw::MessageMap& messageMap() const override;

private:
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);
    void onPaint();
    void onMouseMove(POINT);
    bool onTimer(UINT_PTR id);
    void setHot(bool hot);

    bool m_hot = false;  // the mouse is over the control
};

}  // namespace mc
