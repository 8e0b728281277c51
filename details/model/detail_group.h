// Rows of details under headings: what the builders make and the multi-line lists show.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace mc {

// What can be done with the Value cell of a row.
enum class RowAttribute : int {
    choice = 2,    // one of a few texts is chosen
    number = 3,    // a number is typed
    readOnly = 6,  // nothing
};

// What a change does to the field of a row, judged on the values as they were sent.
enum class FieldChange {
    none,     // nothing, or not known: a member of a list
    changed,  // both values are there, and differ
    added,    // a new value only
    removed,  // an old value only
    reset,    // a new secret; neither value is shown
};

// A limit as it was sent: what is shown may be rounded.
struct SentAmount {
    std::string value, old;  // `old` is empty where none was sent
};

struct sMCListStruct {
    std::string caption;   // the Field column
    std::string value;     // the Value column: the new value
    std::string oldValue;  // the Old Value column
    RowAttribute attribute = RowAttribute::readOnly;
    int mnemonic = 0;  // the message field that an edit of the value belongs to; 0: none
    FieldChange change = FieldChange::none;
    bool edited = false;        // the value was typed in and has not been sent
    bool overOlder = false;     // and was typed over another value than the one received last
    std::string received = {};  // of an edited row: the value that came with the details
    std::shared_ptr<const SentAmount> sent = {};  // of a limit; null: no amount
};

struct DetailGroup {
    sMCListStruct header;             // its caption is the heading
    std::vector<sMCListStruct> rows;  // in the order in which they are shown; never sorted
};

}  // namespace mc
