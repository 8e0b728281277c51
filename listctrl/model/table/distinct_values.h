// The different texts of a column, for a drop-down of choices.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace mc {

struct DistinctValues {
    std::vector<std::string> values;  // in order of first appearance; without the empty one
    std::size_t beyond = 0;           // how many more there are than were asked for
};

}  // namespace mc
