#include "listctrl/dialogs/color_button.h"

#include "framework/drawing.h"

namespace mc {

const fw::MessageMap& CColorButton::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_DRAWITEM, &CColorButton::onDrawItem>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

void CColorButton::setColor(COLORREF color) {
    m_color = color;
    InvalidateRect(handle(), nullptr, FALSE);
}

// A button that cannot be pressed shows its colour small, in a pale frame.
LRESULT CColorButton::onDrawItem(const DRAWITEMSTRUCT& draw) {
    const bool disabled = (draw.itemState & ODS_DISABLED) != 0;
    const bool pressed = (draw.itemState & ODS_SELECTED) != 0;
    const bool focused = (draw.itemState & ODS_FOCUS) != 0;
    drawColor(draw.hDC, draw.rcItem, GetSysColor(COLOR_BTNFACE),
              GetSysColor(focused || pressed ? COLOR_HIGHLIGHT : COLOR_3DSHADOW));
    RECT swatch = draw.rcItem;
    InflateRect(&swatch, -scaled(disabled ? 20 : 4), -scaled(pressed || disabled ? 5 : 4));
    drawColor(draw.hDC, swatch, m_color, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    if (focused && (draw.itemState & ODS_NOFOCUSRECT) == 0) {
        InflateRect(&swatch, 2, 2);
        DrawFocusRect(draw.hDC, &swatch);
    }
    return TRUE;
}

void drawColor(HDC dc, const RECT& rect, COLORREF color, COLORREF frame) {
    RECT inner = rect;
    InflateRect(&inner, -1, -1);
    fw::fill(dc, rect, frame);
    fw::fill(dc, inner, color);
}

}  // namespace mc
