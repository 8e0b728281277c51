// The columns of a list: what they are, which of them show, in which order and how wide.
//
//   1. install()         the data columns, all shown, at their own widths
//   2. setMandatory()    those that may not be hidden
//   3. apply()           the stored profile, where there is one
//   4. show(), setWidth(), add(), remove(), reset()    as the user changes them
//   5. profile()         what is stored
//
// Mandatory columns always show, and so does at least one column. Widths are pixels at 96 dots per
// inch, whatever screen the list is on. A hidden column is 100 wide, so that it comes back the same
// whether or not the profile was stored and loaded in between. Display texts are cleaned of what a
// profile cannot hold; captions and expressions that it cannot hold are refused.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/columns/column_info.h"
#include "listctrl/model/columns/column_profile.h"

namespace mc {

// The width of a hidden and of a newly added column.
inline constexpr int kPlainColumnWidth = 100;

// A stored width above this, or below 1, is ignored: the column has its own.
inline constexpr int kMaxColumnWidth = 32767;

struct ColumnDescriptor {
    std::string caption;
    int width;  // its own, when nothing else is stored
    int flag;   // alignment, see sVoskColInfo
    ColumnType type;
    std::string expression;  // of a user-defined column, as is the next
    std::string displayText;
};

// The id of column `id` after the user-defined column `removed` went; nothing when it is that one.
std::optional<ColumnId> idAfterRemoval(ColumnId id, ColumnId removed);

class ColumnModel {
public:
    // Forgets everything and starts with these.
    void install(std::span<const sVoskColInfo> columns);

    // Columns that may not be hidden. Those that are now, are shown behind the others.
    void setMandatory(std::span<const ColumnId> columns);

    std::size_t size() const { return m_columns.size(); }
    std::size_t dataSize() const { return m_dataSize; }
    bool has(ColumnId id) const { return toIndex(id) < m_columns.size(); }
    std::optional<ColumnId> find(std::string_view caption) const;  // compared byte for byte

    // Of a column that is there.
    const ColumnDescriptor& descriptor(ColumnId id) const { return m_columns[toIndex(id)].info; }
    bool isUserDefined(ColumnId id) const { return toIndex(id) >= m_dataSize; }
    bool isMandatory(ColumnId id) const { return m_columns[toIndex(id)].mandatory; }
    int width(ColumnId id) const { return m_columns[toIndex(id)].width; }
    void setWidth(ColumnId id, int width) { m_columns[toIndex(id)].width = width; }

    // The shown columns from left to right.
    const std::vector<ColumnId>& shown() const { return m_shown; }
    std::optional<DisplayPosition> positionOf(ColumnId id) const;  // nothing when hidden

    // Shows exactly these columns, in this order, and behind them what must show. Ids that are not
    // there, and repeated ones, are passed over.
    void show(std::span<const ColumnId> order);

    // Shows every column, in the order of the ids and at its own width.
    void reset();

    // Adds a user-defined column, shown behind the others. Refused: a caption that is empty, in use
    // or holds "#" or ","; an expression that is empty, holds one of these, or refers to a column
    // that is not there; control characters in either.
    std::optional<ColumnId> add(const UserDefinedColumn& column);

    // Removes a user-defined column; false for any other. The ids behind it move down, and the
    // references in expressions with them. An expression that referred to it refers to no column
    // from now on (-1), and never to the one that gets its id.
    bool remove(ColumnId id);

    // Whether every reference of a user-defined column's expression is to a column that is there.
    bool isValid(ColumnId id) const;

    ColumnProfile profile() const;

    // Gives the columns that show in a stored profile their present widths, and leaves all else in
    // it as it is. False, and nothing is changed, when it is of other columns than these.
    bool putWidths(std::span<const ColumnId> columns, ColumnProfile& stored) const;

    // Puts the profile in force instead of all user-defined columns and of what shows. A column
    // without a position in the profile is hidden; a profile without any position is ignored. The
    // data columns may be others than when it was written: user-defined columns keep their
    // references to those that are still there.
    void apply(const ColumnProfile& profile);

private:
    struct Column {
        ColumnDescriptor info;
        int width;
        bool mandatory = false;
    };
    void addUnchecked(const UserDefinedColumn& column);
    void applyPositions(const ColumnProfile& profile, int oldDataSize);
    std::optional<ColumnId> currentId(int stored, int oldDataSize) const;
    void removeUnusable();

    std::vector<Column> m_columns;  // by id
    std::size_t m_dataSize = 0;
    std::vector<ColumnId> m_shown;
};

}  // namespace mc
