// The column record that every list is described by, and the names of its columns.
#pragma once

#include <cstddef>

namespace mc {

// Names a column of a list: data columns from 0, then the user-defined ones. Expressions and column
// profiles refer to columns by it. It is not the position at which the column shows
// (DisplayPosition), and a deleted user-defined column moves the ids behind it down by one.
enum class ColumnId : int {};

// A column's position among the shown columns, from 0 at the left; so also its item of the header.
enum class DisplayPosition : int {};

constexpr std::size_t toIndex(ColumnId id) {
    return static_cast<std::size_t>(id);
}
constexpr ColumnId toColumnId(std::size_t index) {
    return static_cast<ColumnId>(index);
}

// What a column's text is compared as when it sorts, and whether it is exported as a number. The
// kinds of number and of text differ in what they count, not in how they compare.
enum class ColumnType {
    integer = 1,
    number = 2,  // "-" and "NA" count as -1, in every kind of number
    text = 3,
    longInteger = 4,
    amount = 5,
    dateTime = 6,
    price = 7,
    code = 8,  // a text
    quantity = 9,
};

// What a list is sorted by.
struct ColumnSort {
    ColumnId column;
    bool ascending;
    bool operator==(const ColumnSort&) const = default;
};

struct sVoskColInfo {
    const char* name;  // the caption
    int width;         // pixels at 96 dots per inch
    int flag;  // alignment, one of the list view's LVCFMT_ values: 0 left, 1 right, 2 centre
    ColumnType type;
};

}  // namespace mc
