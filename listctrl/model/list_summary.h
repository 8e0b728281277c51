// What the strip above a list says of its rows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mc {

struct ListSummary {
    std::size_t rows = 0, records = 0;  // the rows that show, of all records
    std::size_t filters = 0;
    std::string_view quickFilter = {};  // its words; empty: none
    std::size_t selected = 0;
    std::size_t notLookedAt = 0;
    std::string_view work = {};  // that was interrupted; comes first
};

// "12 of 3,000 shown, 2 filters, only not looked at, 3 selected, 5 not looked at": the parts that
// are not zero, the first only where rows are hidden.
std::string summaryText(const ListSummary& summary);

}  // namespace mc
