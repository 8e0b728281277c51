// Groups of detail rows as the lines of a list: a heading, then one line for each row.
//
// Each line is a record of the RecordStore in here, its slot the number of the line, so that
// filtering, selection, copying and what screen readers see are the same as in every list. A
// heading stays visible while any line of its group passes the filters, and a folded group shows
// its heading only; but a row with an unsent edit passes every filter and every fold. Lines are
// never sorted.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "details/model/detail_group.h"
#include "details/model/value_marks.h"
#include "listctrl/model/columns/column_info.h"
#include "listctrl/model/table/record_store.h"

namespace mc {

// The columns of such a list, and the one whose cells can be edited.
inline constexpr sVoskColInfo kDetailColumns[] = {
    {"Field", 160, 0, ColumnType::text},
    {"Value", 200, 2, ColumnType::text},
    {"Old Value", 200, 2, ColumnType::text},
};
inline constexpr ColumnId kFieldColumn{0};
inline constexpr ColumnId kValueColumn{1};
inline constexpr ColumnId kOldValueColumn{2};

// A value is never visible without its name, nor a name without its value.
inline constexpr ColumnId kMandatoryDetailColumns[] = {kFieldColumn, kValueColumn};

// Without memory for all lines there are none: details are never visible by half. All calls come
// from one thread. What changes groups or folds costs a filter pass.
class LineGroups {
public:
    struct Group {
        DetailGroup content;
        Slot heading;  // the lines of its rows follow
        bool folded = false;
    };
    struct Line {
        Group* group;
        sMCListStruct* row;
        Slot slot;
        std::unique_ptr<const ValueMarks> marks = {};  // once they were asked for
        bool isHeading() const { return slot == group->heading; }
    };

    LineGroups();
    LineGroups(const LineGroups&) = delete;
    LineGroups& operator=(const LineGroups&) = delete;

    // The visible rows; only filters, selection and focus may be changed from outside.
    RecordStore& rows() { return m_rows; }

    // Takes over groups and shows them behind the others, open. Filters in force apply to them.
    void append(std::vector<DetailGroup> groups);

    // Shows groups instead of all others: folds and the focus stay where their texts are.
    void replace(std::vector<DetailGroup> groups);

    // Frees all groups.
    void clear();

    // Hands every row to `visit`, headings excepted.
    template <class Visit>
    void forEachRow(Visit visit) const {
        for (const Group& group : m_groups)
            for (const sMCListStruct& row : group.content.rows) visit(row);
    }

    // The line in a row; null beyond the end. Lives until clear().
    Line* lineAt(std::size_t row);

    // What is marked in the line's values. Worked out once, when it is first asked for.
    const ValueMarks& marks(Line& line, const UnseenSigns& signs) const;

    // The row of a line; none while it is not visible.
    std::optional<std::size_t> rowOf(const Line& line) const { return m_rows.rowOf(line.slot); }

    // The line of the row whose value belongs to a field; null when there is none. One pass over
    // the lines.
    Line* lineOf(int mnemonic);

    bool folded(const Line& line) const { return line.group->folded; }
    void setFolded(const Line& line, bool folded);

    // The row of the heading above a line; none while it is not visible.
    std::optional<std::size_t> headingRow(const Line& line) const {
        return m_rows.rowOf(line.group->heading);
    }

    // The texts of the line's row changed, perhaps by an edit.
    void rowChanged(Line& line);

    // Whether a row of the line's group holds an unsent edit.
    bool holdsEdits(const Line& line) const;

    // No value is an unsent edit any more: each stays as edited, or is again as it was received.
    // Returns whether any was one.
    bool editsSent() { return endEdits(false); }
    bool editsDropped() { return endEdits(true); }

    // The text of a line's cell; empty beyond the columns. Lives until the line changes.
    std::string_view text(Slot line, ColumnId column) const;

private:
    void arrange(std::vector<Slot>& passing) const;
    void addEdited(std::vector<Slot>& passing) const;
    void addLine(Group& group, sMCListStruct& row);
    bool endEdits(bool restore);

    std::deque<Group> m_groups;
    std::deque<Line> m_lines;     // by slot, which is also the stored position
    std::vector<Line*> m_edited;  // in any order
    RecordStore m_rows;
};

}  // namespace mc
