// What is marked in the Value and Old Value cells of a row: the characters that the change changed,
// and those that do not show.
#pragma once

#include <string>
#include <vector>

#include "details/model/detail_group.h"
#include "text/text_difference.h"
#include "text/unseen.h"

namespace mc {

struct CellMarks {
    std::string shown;          // with signs for what does not show; empty: the text as it is
    std::vector<TextRun> runs;  // what differs from the other cell
};

struct ValueMarks {
    CellMarks value, old;
    DifferenceKind kind = DifferenceKind::none;
    bool slip = false;  // an amount that looks like a slip
};

// Amounts have no runs: two numbers do not differ by characters, and the line below the list says
// by how much they do.
ValueMarks marksOf(const sMCListStruct& row, const UnseenSigns& signs);

}  // namespace mc
