// The records of a filter list and which of them are rows on show: the whole list but its window.
//
// Every record is stored in order of insertion; the visible map says which are shown and in which
// order: those that passed the last filter pass, as stored or as sorted. A record is the owner's,
// known here by a pointer and a slot; its texts are read through the one CellReader.
//
// Rows, as everywhere in this interface, are numbers of visible rows from the top; a stored
// position counts all records. Nothing holds positions, they are counted when asked for: inserting,
// removing and looking up cost the logarithm of the size, appending always the same. So no step can
// find its positions torn, and the only two messages that can still come are those named below.
//
// Texts of columns that are filtered or sorted by are kept (ColumnTexts), read on first use and
// again for a record that is refreshed. One thread; a CellReader must not call back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/table/column_texts.h"
#include "listctrl/model/table/distinct_values.h"
#include "listctrl/model/table/row_selection.h"
#include "listctrl/model/table/slot_sequence.h"
#include "listctrl/model/table/sort_order.h"
#include "text/filter_pattern.h"

namespace mc {

// What a window has to tell its control since it last asked.
struct RowChanges {
    bool count = false;      // rowCount()
    bool selection = false;  // of any row, the focus or the anchor
    // Rows that show something else: none when empty; up to `kToTheEnd` when rows moved.
    std::size_t first = 0;
    std::size_t last = 0;

    static constexpr std::size_t kToTheEnd = std::numeric_limits<std::size_t>::max();
};

class RecordStore {
public:
    // The text of a record's cell; it is read before the next call. Any column may be asked for.
    using CellReader = std::function<std::string_view(const void* record, int column)>;

    struct Inserted {
        std::size_t position = 0;  // stored position
        Slot slot = kNoSlot;       // none when nothing was inserted
    };
    struct Outcome {
        int result = 0;
        const char* message = nullptr;  // to show to the user, if any
    };

    // Without a reader the list has no data: nothing is inserted, filtered or sorted.
    void setCellReader(CellReader reader);

    // ---- Records ----

    // Position 0 and any beyond the end append. In between, the record's row goes to the same place
    // among the rows, or behind the last if there are fewer. In a sorted list the row goes where it
    // belongs, behind its equals. Under filters there is a row only if the record passes.
    Inserted insertItem(std::size_t position, void* record);

    // Removes the record of a row. Result 1, or 0 when there is no such row; message "Delete item:
    // Item not found" for rows that a failed filter pass left without records. If the row was
    // selected and not the last, the row after it is selected; focus and anchor move to the row
    // after, from the last row to the one before.
    Outcome deleteItem(std::size_t row);

    // Removes a record by stored position, on show (then as deleteItem does) or not. Result 1, or 0
    // when there is no such record; -1 is none.
    Outcome deleteStored(std::ptrdiff_t position);

    // The same for the owner, who knows the record's slot.
    void deleteRecord(Slot slot);

    // Removes all records, slots and kept texts; filters and order stay. Result 1.
    int reset();

    // The owner changed the record's texts: it is filtered and sorted anew. A row that still passes
    // and still fits between its neighbours stays where it is.
    void refresh(Slot slot);

    // The same, but a row that is on show stays on show, where it is.
    void refreshShown(Slot slot);

    std::size_t storedCount() const { return m_stored.size(); }
    void* record(Slot slot) const { return m_records[slot]; }
    Slot storedAt(std::size_t position) const { return m_stored.at(position); }
    std::size_t storedPosition(Slot slot) const { return m_stored.rowOf(slot); }

    // ---- Rows ----

    // Rows the list reports. Differs from the records on show only after a failed filter pass.
    std::size_t rowCount() const { return m_rowCount; }

    // The slot shown in a row; kNoSlot beyond the end.
    Slot slotAt(std::size_t row) const;
    void* recordAt(std::size_t row) const;

    // The row that shows the record, or none while it is filtered out or when there is no such
    // slot.
    std::optional<std::size_t> rowOf(Slot slot) const;

    // The text of a row's cell, as the reader gives it; empty beyond the end, "no data descriptor
    // initialised" without a reader. Lives as long as the reader's.
    std::string_view cellText(std::size_t row, int column) const;

    // The text of a record's cell, from the kept ones where the column's are kept; for walking
    // over many rows. `slot` is a record's.
    std::string_view text(Slot slot, int column) const;

    // Shows the rows from the last to the first. Row numbers are mirrored, nothing else changes.
    void setReversed(bool reversed);
    bool reversed() const { return m_reversed; }

    // ---- Filters: they, and the flags, count from the next pass on ----

    // Sets, changes or, when the text is empty, ends the filter of a column.
    void setFilter(int column, std::string_view text, FilterKind kind = FilterKind::pattern);
    // All filters at once, as two lists that belong together.
    void setFilters(std::vector<int> columns, std::vector<ColumnFilter> filters);
    void clearFilters();
    const std::vector<int>& filterColumns() const { return m_filterColumns; }
    ColumnFilter filterOf(int column) const;  // without a text: none

    // Matches patterns exactly in the next pass only, or in every pass.
    void matchExactlyOnce() { m_exactOnce = true; }
    void setMatchExactly(bool on) { m_matchExactly = on; }
    bool matchExactly() const { return m_matchExactly; }

    // The filter pass: shows the records that pass all filters, in stored order, then sorts them.
    // Rows filtered out are deselected. Records that come or change later are judged as in this
    // pass. Result 1; 0 without a reader; 0, no records on show and the message "Error occured
    // while filtering" when the two lists differ in length.
    Outcome filter();

    // What has the last word in a filter pass: it is given the records that pass, in stored order,
    // and may take some away or add others. Records that come between passes are not arranged.
    using Arrange = std::function<void(std::vector<Slot>& passing)>;
    void setArrange(Arrange arrange) { m_arrange = std::move(arrange); }

    // ---- Order ----

    // Sorts the rows, and from now on keeps them so; rows that compare equal keep their order.
    void sort(const SortOrder& order);
    // Back to stored order.
    void unsort();
    const std::optional<SortOrder>& sortOrder() const { return m_order; }

    // ---- Selection, focus and anchor: they belong to records and follow them ----

    // Rows beyond the end are ignored.
    void select(std::size_t row, bool on);
    void selectAll();
    void clearSelection();
    bool selected(std::size_t row) const;
    std::size_t selectedCount() const { return m_selection.count(); }
    // Ascending. Counted when first asked for after a change; valid until the next one.
    const std::vector<std::size_t>& selectedRows() const;
    // Another value after every change of which records are selected.
    std::uint64_t selectionRevision() const { return m_selection.revision(); }

    // The row that the keys act on. Beyond the end: none.
    void setFocus(std::size_t row);
    std::optional<std::size_t> focusedRow() const;
    // The row from which Shift selects. Beyond the end: none.
    void setAnchor(std::size_t row);
    std::optional<std::size_t> anchorRow() const;

    // ---- Columns ----

    // The choices of a column over all records, filtered out or not.
    DistinctValues distinctValues(int column, std::size_t limit = 10'000);

    // The column's texts changed for all records (an expression did): forgets the kept ones. What
    // is on show changes with the next pass.
    void columnChanged(int column) { m_texts.erase(column); }

    // Gives the memory of the kept texts back; they are read again when next needed.
    void dropTexts();

    // ---- For the window ----

    RowChanges takeChanges();

private:
    struct ActiveFilter {
        int column;
        FilterPattern pattern;
    };

    Slot newSlot(void* record);
    void release(Slot slot);
    ColumnTexts& keptTexts(int column);
    void readTexts(Slot slot);

    void sortRows(std::vector<Slot>& rows, const SortOrder& order);
    bool passes(Slot slot) const;
    bool passes(Slot slot, const ActiveFilter& filter) const;
    std::vector<Slot>& passing();
    void replaceRows(const std::vector<Slot>& slots);

    // Rows of the visible map: as shown, unless the list is reversed.
    std::size_t mapRow(std::size_t row) const { return m_reversed ? m_rowCount - 1 - row : row; }
    template <class Before>
    std::size_t firstNot(Before before) const;
    std::size_t sortedRow(Slot slot) const;
    std::size_t storedRow(Slot slot) const;
    bool inOrder(Slot slot, std::size_t mapRow) const;
    void place(Slot slot, std::size_t mapRow);
    void show(Slot slot, std::size_t mapRow);
    void hide(Slot slot);
    void removeRow(Slot slot, std::size_t row);
    void handOn(Slot slot, std::size_t row);
    void rowsChanged(std::size_t first, std::size_t last);

    CellReader m_reader;
    Arrange m_arrange;
    SlotSequence m_stored;
    SlotSequence m_visible;
    std::size_t m_rowCount = 0;
    bool m_reversed = false;

    std::vector<void*> m_records;  // by slot
    std::vector<Slot> m_free;      // slots to give again
    RowSelection m_selection;
    // The selected rows as last counted, and at which revision of the selection.
    mutable std::vector<std::size_t> m_selectedRows;
    mutable std::optional<std::uint64_t> m_countedAt;
    std::map<int, ColumnTexts> m_texts;

    std::vector<int> m_filterColumns;
    std::vector<ColumnFilter> m_filters;  // parallel to the columns
    bool m_exactOnce = false;
    bool m_matchExactly = false;
    std::vector<ActiveFilter> m_active;  // of the last pass
    std::vector<Slot> m_passing;         // by it; kept for its memory
    std::optional<SortOrder> m_order;
    int m_numbersSorted = -1;  // the column of numbers that was sorted last without kept texts
    RowChanges m_changes;
};

}  // namespace mc
