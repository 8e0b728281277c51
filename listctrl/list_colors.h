// The colours of rows and of the header, from the system's.
#pragma once

#include <windows.h>

namespace mc {

struct RowColors {
    COLORREF background;
    COLORREF text;
};

// Of a selected row. `focused`: the list has the focus; a selection in a list without it stays
// plain to see.
RowColors selectionColors(bool focused);

// `share` of 255 parts of `a`, the rest of `b`.
COLORREF mixed(COLORREF a, COLORREF b, int share);

bool highContrast();

}  // namespace mc
