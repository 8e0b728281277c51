// Drawing in one colour, without an object made for it.
#pragma once

#include <windows.h>

namespace fw {

// The colour is the context's background colour from then on.
inline void fill(HDC dc, const RECT& rect, COLORREF color) noexcept {
    SetBkColor(dc, color);
    ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

// The context's own brush, of this colour until the next call. Nobody destroys it.
inline HBRUSH brushOf(HDC dc, COLORREF color) noexcept {
    SetDCBrushColor(dc, color);
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

}  // namespace fw
