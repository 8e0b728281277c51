// The column record that every list is described by, and the names of its columns.
#pragma once

#include <cstddef>

namespace mc {

// Names a column of a list: data columns from 0, then the user-defined ones. Expressions and column
// profiles refer to columns by it. It is neither a place on the screen (DisplayPlace) nor an item
// of the header, and a deleted user-defined column moves the ids behind it down by one.
enum class ColumnId : int {};

// A column's place among the shown columns, from 0 at the left.
enum class DisplayPlace : int {};

constexpr std::size_t toIndex(ColumnId id) {
    return static_cast<std::size_t>(id);
}
constexpr ColumnId toColumnId(std::size_t index) {
    return static_cast<ColumnId>(index);
}

// What a column's text is compared as when it sorts, and whether it is exported as a number.
enum class ColumnType {
    integer = 1,
    number = 2,  // "-" and "NA" count as -1, as in every kind of number below
    text = 3,
    longInteger = 4,
    number5 = 5,
    dateTime = 6,
    number7 = 7,
    text8 = 8,
    number9 = 9,
};

struct sVoskColInfo {
    const char* name;  // the caption
    int width;         // pixels at 96 dots per inch
    int flag;          // alignment, as the list view's LVCFMT_ values: 0 left, 1 right, 2 centre
    ColumnType type;
};

}  // namespace mc
