#include "frames/flat_frame.h"

#include <algorithm>

#include "framework/handles.h"
#include "framework/hwnd.h"

namespace mc {

void CFlatFrame::setRect(const RECT& rect, int strip) {
    m_rect = rect;
    m_strip = std::min(strip, fw::heightOf(rect));
}

RECT CFlatFrame::strip() const {
    return {m_rect.left, m_rect.top, m_rect.right, m_rect.top + m_strip};
}

RECT CFlatFrame::menuButton() const {
    const RECT all = strip();
    return {std::max(all.right - m_strip, all.left), all.top, all.right, all.bottom};
}

RECT CFlatFrame::view() const {
    const LONG left = m_rect.left + 1, top = m_rect.top + m_strip;
    return {left, top, std::max(m_rect.right - 1, left), std::max(m_rect.bottom - 1, top)};
}

void CFlatFrame::draw(HDC dc, const std::string& title, bool active) const {
    const int face = active ? COLOR_HIGHLIGHT : COLOR_3DFACE;
    const int ink = active ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT;
    FrameRect(dc, &m_rect, GetSysColorBrush(active ? COLOR_HIGHLIGHT : COLOR_3DSHADOW));
    RECT inside = strip();
    InflateRect(&inside, -1, -1);
    inside.bottom += 1;
    FillRect(dc, &inside, GetSysColorBrush(face));

    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(ink));
    const RECT button = menuButton();
    RECT text{inside.left + m_strip / 4, inside.top, button.left, inside.bottom};
    DrawTextA(dc, title.c_str(), -1, &text,
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);

    const int half = m_strip / 5;  // of the width of the menu's arrow
    const LONG x = (button.left + button.right) / 2, y = (button.top + button.bottom) / 2;
    const POINT arrow[] = {
        {x - half, y - half / 2}, {x + half, y - half / 2}, {x, y + half / 2 + 1}};
    const fw::SelectScope pen(dc, GetStockObject(NULL_PEN));
    const fw::SelectScope brush(dc, GetSysColorBrush(ink));
    Polygon(dc, arrow, 3);
}

}  // namespace mc
