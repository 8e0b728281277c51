// CColorButton: an owner-drawn button that shows a colour.
//
// Its parent hands WM_DRAWITEM back to it; a press is notified as by any button.
#pragma once

#include "framework/window.h"

namespace mc {

class CColorButton : public fw::CWindow {
public:
    // Takes the button over; once.
    bool attach(HWND button) { return subclass(button); }

    COLORREF color() const { return m_color; }
    void setColor(COLORREF color);

protected:
    const fw::MessageMap& messageMap() const override;

private:
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);

    COLORREF m_color = 0;
};

// Fills `rect` with a colour, in a thin frame.
void drawColor(HDC dc, const RECT& rect, COLORREF color, COLORREF frame);

}  // namespace mc
