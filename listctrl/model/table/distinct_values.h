// The different texts of a column, for a drop-down of choices.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace mc {

// Values that are equal in what they are ordered by come in order of first appearance.
enum class ValueOrder {
    mostFrequent,  // among the rows that the other filters leave
    alphabetical,  // byte by byte, as the column sorts as text
};

struct DistinctValue {
    std::string text;
    std::size_t rows = 0;  // that hold it, of those that the other filters leave
    bool operator==(const DistinctValue&) const = default;
};

struct DistinctValues {
    std::vector<DistinctValue> values;  // of all records, without the empty one
    std::size_t rows = 0;               // that the other filters leave
    bool operator==(const DistinctValues&) const = default;
};

}  // namespace mc
