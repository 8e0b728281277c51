// The colours of rows and of the header, from the system's.
#pragma once

#include <windows.h>

#include "framework/high_contrast.h"
#include "framework/model/contrast.h"

namespace mc {

using fw::highContrast;
using fw::mixed;
using fw::readableOn;

struct RowColors {
    COLORREF background;
    COLORREF text;
};

// Of a selected row. `focused`: the list has the focus; a selection in a list without it stays
// plain to see.
RowColors selectionColors(bool focused);

// Beside a text, fainter than it, and still readable.
COLORREF faint(COLORREF text, COLORREF ground);

}  // namespace mc
