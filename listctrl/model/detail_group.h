// Rows of details under headings: what the builders make and the multi-line lists show.
#pragma once

#include <string>
#include <vector>

// What can be done with the Value cell of a row.
enum class RowAttribute : int {
    choice = 2,    // one of a few texts is chosen
    number = 3,    // a number is typed
    readOnly = 6,  // nothing
};

struct sMCListStruct {
    std::string caption;   // the Field column
    std::string value;     // the Value column: the new value
    std::string oldValue;  // the Old Value column
    RowAttribute attribute = RowAttribute::readOnly;
    int mnemonic = 0;     // the message field that an edit of the value belongs to; 0: none
    bool edited = false;  // the value was typed in and has not been sent
};

struct DetailGroup {
    sMCListStruct header;             // its caption is the heading
    std::vector<sMCListStruct> rows;  // in the order in which they are shown; never sorted
};
