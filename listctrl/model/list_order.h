// By which column a list is sorted.
//
// A list is only ever sorted by a column that shows, since nothing would mark another. Thread: the
// user-interface thread. A call that sorts costs what RecordStore::sort does.
#pragma once

#include <optional>

#include "listctrl/model/columns/column_model.h"
#include "listctrl/model/table/record_store.h"

namespace mc {

class ListOrder {
public:
    // Both must outlive the object.
    ListOrder(RecordStore& store, const ColumnModel& columns)
        : m_store(store), m_columns(columns) {}

    const std::optional<ColumnSort>& current() const { return m_current; }

    // Sorts by a column; a hidden one is passed over. False when that was ended.
    bool sort(ColumnSort sort, const LongWork& work = {});
    // A click on a caption: ascending first, then the other way each time.
    bool captionClicked(ColumnId column, const LongWork& work = {});

    // The default sort is in force again with every applied layout.
    const std::optional<ColumnSort>& standard() const { return m_standard; }
    // Call columnsChanged() next, which sorts by it.
    void setStandard(std::optional<ColumnSort> sort);

    // Other columns show: sorts again, or ends a sort by a column that is hidden now.
    void columnsChanged(const LongWork& work = {});
    // A user-defined column went.
    void columnRemoved(ColumnId removed);

private:
    void end();

    RecordStore& m_store;
    const ColumnModel& m_columns;
    std::optional<ColumnSort> m_current;
    std::optional<ColumnSort> m_standard;
};

}  // namespace mc
