// The column profile of a list as a text: which columns show, in which order and how wide, and the
// user-defined columns.
//
//   0,0,75,1,2,75,2,1,120,3,-1,0,Sum#"0"+"2"#"Key" + "Limit"
//
// First a triple for each column: its id, its display position (-1: hidden) and its width in
// pixels at 96 dots per inch. Then for each user-defined column its caption, its expression and the
// expression as it is displayed, between "#". No part may hold a comma, nor a caption or expression
// a "#"; the column model sees to that. A "#" part may also follow its column's triple.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/columns/column_info.h"
#include "settings/model/settings_store.h"

namespace mc {

inline constexpr int kHiddenPosition = -1;

// The longest text that the settings file gives back; a longer one comes back cut.
inline constexpr std::size_t kMaxProfile = kMaxValue;

struct UserDefinedColumn {
    std::string caption;
    std::string expression;   // references to columns are ids between double quotes
    std::string displayText;  // the expression with captions instead of ids
    bool operator==(const UserDefinedColumn&) const = default;
};

// One triple, as stored: nothing about it is sure yet.
struct StoredColumn {
    int index;
    int position;
    int width;
    bool operator==(const StoredColumn&) const = default;
};

struct ColumnProfile {
    std::vector<StoredColumn> columns;
    std::vector<UserDefinedColumn> userDefined;
    bool whole = true;  // false when parts of the text it was read from were missing
    bool operator==(const ColumnProfile&) const = default;

    // How many data columns the list had that wrote the profile: a triple for each column, less the
    // user-defined ones. Nothing where the profile is not whole, or its triples are not numbered
    // from 0 in order, as they are written.
    std::optional<int> dataColumns() const;
};

std::string profileText(const ColumnProfile& profile);

// Reads any text: a missing number counts as 0; an incomplete triple at the end, and a user-defined
// column with less than two "#", are dropped.
ColumnProfile readProfile(std::string_view text);

}  // namespace mc
