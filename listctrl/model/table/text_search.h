// Finds the texts of a table that a filter pattern matches, all in one go.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "listctrl/model/table/text_table.h"
#include "text/filter_pattern.h"

namespace mc {

// Marks by code: 1 for every text that matches, 0 for the others. `numbers` holds what the texts
// read as, NaN where they don't; it may be empty when the pattern doesn't ask numbers.
// Agrees with FilterPattern::matches() on every text. Completes the texts' copy in lower case.
void markMatches(const FilterPattern& pattern, TextTable& texts, std::span<const double> numbers,
                 std::vector<std::uint8_t>& marks);

}  // namespace mc
