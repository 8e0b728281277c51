// The width that a fitting command gives a column.
#pragma once

#include "listctrl/model/list_commands.h"

namespace mc {

inline constexpr int kMinFittedWidth = 50;

// `dataWidth` is what the column's texts need, `headerWidth` what its texts and its caption need,
// `clientWidth` the list's and `columns` how many share it; widths are in pixels at 96 dots per
// inch. Any other command gives the larger of the two needs.
int fittedWidth(unsigned command, int dataWidth, int headerWidth, int clientWidth, int columns);

}  // namespace mc
