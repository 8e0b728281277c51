#include "settings/color_button.h"

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

// A button that cannot be pressed shows its colour small, as a greyed entry shows its text pale.
LRESULT CColorButton::onDrawItem(const DRAWITEMSTRUCT& draw) {
    RECT place = draw.rcItem;
    const bool disabled = (draw.itemState & ODS_DISABLED) != 0;
    const bool pressed = (draw.itemState & ODS_SELECTED) != 0;
    DrawFrameControl(
        draw.hDC, &place, DFC_BUTTON,
        DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0) | (disabled ? DFCS_INACTIVE : 0));
    InflateRect(&place, -scaled(4), -scaled(4));
    if (pressed) OffsetRect(&place, 1, 1);
    RECT swatch = place;
    if (disabled) InflateRect(&swatch, -(swatch.right - swatch.left) / 4, 0);
    drawColor(draw.hDC, swatch, m_color, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT));
    InflateRect(&place, 1, 1);
    if ((draw.itemState & (ODS_FOCUS | ODS_NOFOCUSRECT)) == ODS_FOCUS) {
        InflateRect(&place, 1, 1);
        DrawFocusRect(draw.hDC, &place);
    }
    return TRUE;
}

void drawColor(HDC dc, const RECT& place, COLORREF color, COLORREF frame) {
    RECT inner = place;
    SetBkColor(dc, frame);
    ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &inner, nullptr, 0, nullptr);
    InflateRect(&inner, -1, -1);
    SetBkColor(dc, color);
    ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &inner, nullptr, 0, nullptr);
}
