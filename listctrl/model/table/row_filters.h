// The filters of a list: one for each filtered column, and the patterns of the last pass.
//
// Setting a filter costs the number of filters and changes nothing yet: apply() makes all of them
// and the flags those by which records are judged until it is called again.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "listctrl/model/columns/column_info.h"
#include "text/filter_pattern.h"

namespace mc {

class RowFilters {
public:
    // What a record's cell must match, as of the last apply().
    struct Active {
        ColumnId column;
        FilterPattern pattern;
    };

    // Sets, changes or, when the text is empty, ends the filter of a column.
    void set(ColumnId column, std::string_view text, FilterKind kind = FilterKind::pattern);

    // All filters at once, as two lists that belong together; see apply().
    void setAll(std::vector<ColumnId> columns, std::vector<ColumnFilter> filters);
    void clear() { setAll({}, {}); }

    // In the order in which they were set.
    const std::vector<ColumnId>& columns() const { return m_columns; }
    ColumnFilter of(ColumnId column) const;  // without a text: none

    // Matches patterns exactly in the next pass only, or in every pass.
    void matchExactlyOnce() { m_exactOnce = true; }
    void setMatchExactly(bool on) { m_matchExactly = on; }
    bool matchExactly() const { return m_matchExactly; }

    // Makes the filters those that count. False, and those that counted stay, when the two lists of
    // setAll() differ in length.
    bool apply();
    const std::vector<Active>& active() const { return m_active; }

private:
    std::vector<ColumnId> m_columns;
    std::vector<ColumnFilter> m_filters;  // parallel to the columns
    bool m_exactOnce = false;
    bool m_matchExactly = false;
    std::vector<Active> m_active;
};

}  // namespace mc
