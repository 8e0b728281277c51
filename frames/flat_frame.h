// CFlatFrame: the thin line around a held view, with a strip above it that has the view's title
// and the button of its menu. No window: the holder frame draws it and asks it for rectangles.
#pragma once

#include <windows.h>

#include <string>

namespace mc {

class CFlatFrame {
public:
    // Room for the frame, in the holder's pixels; `strip` is the height of the title strip.
    void setRect(const RECT& rect, int strip);

    RECT strip() const;
    RECT menuButton() const;  // square, at the strip's right end
    RECT view() const;        // what is left for the view; never turned inside out

    // `active`: the view has the focus.
    void draw(HDC dc, const std::string& title, bool active) const;

private:
    RECT m_rect{};
    int m_strip = 0;
};

}  // namespace mc
