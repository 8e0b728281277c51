// The column record that every list is described by.
#pragma once

// What a column's text is compared as when it sorts.
enum class ColumnType { text = 3, longInteger = 4 };

struct sVoskColInfo {
    const char* name;  // the caption
    int width;         // pixels at 96 dots per inch
    int flag;          // alignment, as the list view's LVCFMT_ values: 0 left, 1 right, 2 centre
    ColumnType type;
};
