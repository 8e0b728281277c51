// The rows of a filter list: which records it has, which of them are visible, and in which order.
// The whole list but its window.
//
// A record is its owner's, who numbers it: it is known here by its slot alone, and its texts are
// read through one CellReader. Slots are small numbers; what is kept by slot takes memory up to the
// largest.
//
// A call that runs out of memory throws and leaves the store as it was; only a refresh() or
// judgeAgain() may leave the record's row where it was. What removes records does not fail.
//
// Rows, as everywhere in this interface, are numbers of visible rows from the top; a stored
// position counts all records in order of insertion. Where no other cost is stated, a call takes at
// most a time that grows with the logarithm of the number of records. All calls come from one
// thread.
//
// The store ties its parts: CellTexts has what records say, PassingRecords who has a row, RowOrder
// where, and RowTable keeps records, rows and selection in step.
//
// What goes through all records takes a LongWork, by which it may be ended. What is asked may let
// records come, change or go: the call then begins again, and is not ended any more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "listctrl/model/table/cell_texts.h"
#include "listctrl/model/table/distinct_values.h"
#include "listctrl/model/table/passing_records.h"
#include "listctrl/model/table/row_order.h"
#include "listctrl/model/table/row_table.h"
#include "listctrl/model/table/sort_order.h"

namespace mc {

class RecordStore {
public:
    // What came of a call.
    enum class Outcome {
        done,
        nothingDone,       // there is no such record, or no reader
        rowWithoutRecord,  // a failed filter pass left the row without one
        filtersUneven,     // the lists of filter columns and texts differ in length
        ended,             // before it was done: rows, order, filters and selection are as before
    };

    // Without a reader, set here, the list has no data: nothing is inserted, filtered or sorted.
    CellTexts& texts() { return m_texts; }
    const CellTexts& texts() const { return m_texts; }

    // The text of a row's cell, as the reader gives it and as long as that lives; empty beyond the
    // end, "no data descriptor initialised" without a reader.
    std::string_view cellText(std::size_t row, ColumnId column) const;

    // ---- Records ----

    // Takes in a record under a slot that none of the others has; without a reader nothing is done.
    // Position 0 and any beyond the end append. In between, the record's row goes to the same index
    // among the rows, or behind the last if there are fewer. In a sorted list the row goes where it
    // belongs, behind its equals. Under filters there is a row only if the record passes.
    Outcome insertItem(std::size_t position, Slot slot);

    // Removes the record of a row. If the row was selected and not the last, the row after it is
    // selected; focus and anchor move to the row after, from the last row to the one before.
    Outcome deleteItem(std::size_t row);

    // Removes a record by stored position, visible (then as deleteItem does) or not.
    Outcome deleteStored(std::size_t position);

    // Removes a stored record, as deleteStored does. Its slot is free.
    void deleteRecord(Slot slot);

    // Removes all records and kept texts, in a time that grows with their number; filters and order
    // stay.
    void reset();

    // The owner changed the record's texts: it is filtered and sorted again. A row that still
    // passes and still fits between its neighbours stays where it is.
    void refresh(Slot slot);

    // The record is as it was but for what the judge looks at.
    void judgeAgain(Slot slot);

    const SlotSequence& stored() const { return m_rows.stored(); }

    // ---- Rows ----

    const VisibleRows& visible() const { return m_rows.visible(); }
    std::size_t rowCount() const { return visible().count(); }
    Slot slotAt(std::size_t row) const { return visible().slotAt(row); }
    std::optional<std::size_t> rowOf(Slot slot) const { return visible().rowOf(slot); }

    // Shows the rows from the last to the first. Row numbers are mirrored, nothing else changes.
    void setReversed(bool reversed) { m_rows.setReversed(reversed); }

    // Selection, focus and anchor belong to records and follow them.
    SelectedRows& selection() { return m_rows.selection(); }
    const SelectedRows& selection() const { return m_rows.selection(); }

    // ---- Filters ----

    RowFilters& filters() { return m_passing.filters(); }
    const RowFilters& filters() const { return m_passing.filters(); }
    // What filters with them.
    PassingRecords& passing() { return m_passing; }

    // The filter pass: shows the records that pass all filters, in stored order, then sorts them.
    // Rows filtered out are deselected. Records that come or change later are judged as in this
    // pass. Nothing happens without a reader; filtersUneven leaves rows without records. Costs one
    // pass over the slots, and over the different texts of the filtered columns.
    Outcome filter(const LongWork& work = {});

    // The choices of a column over all records, filtered out or not, with how many rows each would
    // have under the other filters of the last pass. Costs as much as a filter pass.
    // None when it was ended.
    std::optional<DistinctValues> distinctValues(ColumnId column, ValueOrder order,
                                                 const LongWork& work);
    DistinctValues distinctValues(ColumnId column, ValueOrder order = ValueOrder::mostFrequent) {
        return *distinctValues(column, order, {});
    }

    // ---- Order ----

    // Sorts the rows, and from now on keeps them so; rows that compare equal keep their order.
    // Costs what RowOrder::arrange() does.
    Outcome sort(const SortOrder& order, const LongWork& work = {});
    // Back to stored order, in one pass.
    void unsort();

private:
    static constexpr std::size_t kEnd = ~std::size_t{0};
    std::size_t indexOfNew(Slot slot, std::size_t position) const;
    void judgeAndPlace(Slot slot);
    void showPassing(const LongWork& work);
    template <class Pass>
    bool goThrough(const LongWork& work, Pass pass);

    CellTexts m_texts;
    RowTable m_rows;
    PassingRecords m_passing{m_texts, m_rows.stored()};
    RowOrder m_order{m_texts, m_rows};
    std::uint64_t m_changes = 0;  // counts those of records, rows and their order
};

// The message that tells the user of an outcome; null when there is nothing to tell.
const char* messageOf(RecordStore::Outcome outcome);

}  // namespace mc
