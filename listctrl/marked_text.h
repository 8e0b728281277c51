// The text of a cell in which runs of characters are marked.
#pragma once

#include <windows.h>

#include <string_view>

#include "listctrl/cell_looks.h"
#include "listctrl/text_widths.h"

namespace mc {

struct MarkedText {
    std::string_view text;
    const CellLook& look;  // with its runs, and the font that `dc` has
    const CTextWidths& widths;
    int lineHeight;  // of the line below a run, in pixels
};

// Draws it from the left of `rect`, in the colours that `dc` has. A text that does not fit ends in
// dots, which are marked when anything behind them is.
void drawMarkedText(HDC dc, const MarkedText& marked, const RECT& rect);

}  // namespace mc
