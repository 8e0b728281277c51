// What a list shows: its columns, the texts of their cells, and its order.
//
// The texts of data columns come from the reader of the list's owner, those of user-defined columns
// are computed from them. Thread: the user-interface thread.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "listctrl/model/columns/column_model.h"
#include "listctrl/model/expression/computed_columns.h"
#include "listctrl/model/list_order.h"
#include "listctrl/model/table/record_store.h"

namespace mc {

class ListContent {
public:
    // The store must outlive the object; install() gives it a cell reader, which is taken back at
    // the end. `invalid` is called when a computed column's expression turns out to be invalid,
    // once per expression, from inside a paint or a pass over the rows.
    ListContent(RecordStore& store, std::function<void()> invalid);
    ~ListContent();
    ListContent(const ListContent&) = delete;
    ListContent& operator=(const ListContent&) = delete;

    // Starts with these columns, of which `reader` reads the texts; those that are mandatory cannot
    // be hidden.
    void install(std::span<const sVoskColInfo> columns, CellReader reader,
                 std::span<const ColumnId> mandatory);

    RecordStore& store() const { return m_store; }
    const ListOrder& order() const { return m_order; }
    ListOrder& order() { return m_order; }
    const ColumnModel& columns() const { return m_columns; }
    // After a change call columnsChanged(), and before that columnRemoved() when one went.
    ColumnModel& columns() { return m_columns; }

    // The shown columns, from the left. `item` is below shownCount().
    int shownCount() const { return static_cast<int>(m_columns.shown().size()); }
    ColumnId columnAt(int item) const { return m_columns.shown()[static_cast<std::size_t>(item)]; }

    // The text of a cell as it is drawn, copied and exported; it lives until the next call.
    std::string_view text(std::size_t row, ColumnId column) const {
        return m_store.cellText(row, column);
    }

    // The whole text where the reader cuts it and `whole` does not. It lives as long.
    std::string_view wholeText(std::size_t row, ColumnId column) const;
    void setWholeReader(CellReader whole) { m_wholeReader = std::move(whole); }

    // Compiles the expressions and sorts again. Costs as much as the sort.
    void columnsChanged(const LongWork& work = {});
    void columnRemoved(ColumnId removed);

private:
    std::string_view read(Slot record, ColumnId column);
    std::string_view compute(Slot record, ColumnId column);
    void compileExpressions();

    RecordStore& m_store;
    ColumnModel m_columns;
    ListOrder m_order;
    CellReader m_reader;       // of data columns
    CellReader m_wholeReader;  // likewise, or none
    std::function<void()> m_invalid;
    std::optional<ComputedColumns> m_computedColumns;
    std::string m_computed;               // the cell computed last
    std::vector<bool> m_reportedInvalid;  // by column
};

}  // namespace mc
