// A line of the details in words: what its marks and colours say.
#pragma once

#include "details/model/line_groups.h"
#include "listctrl/model/row_words.h"

namespace mc {

// `editable`: its value can be edited now.
RowState stateOf(const LineGroups& lines, const LineGroups::Line& line, bool editable);

}  // namespace mc
