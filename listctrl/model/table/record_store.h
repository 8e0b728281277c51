// The rows of a filter list: which records it has, which of them are visible, and in which order.
// The whole list but its window.
//
// A record is its owner's, who numbers it: it is known here by its slot alone, and its texts are
// read through one CellReader. Slots are small numbers; what is kept by slot takes memory up to the
// largest.
//
// Rows, as everywhere in this interface, are numbers of visible rows from the top; a stored
// position counts all records in order of insertion. Nothing holds positions, they are counted when
// asked for. Where no other cost is stated, a call takes at most a time that grows with the
// logarithm of the number of records. All calls come from one thread.
//
// The texts of columns that are filtered or sorted by are kept (CellTexts), read on first use and
// again for a record that is refreshed; those that the owner shares are never read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "listctrl/model/table/cell_texts.h"
#include "listctrl/model/table/distinct_values.h"
#include "listctrl/model/table/row_filters.h"
#include "listctrl/model/table/row_selection.h"
#include "listctrl/model/table/slot_sequence.h"
#include "listctrl/model/table/sort_order.h"

namespace mc {

// What changed since a window last asked.
struct RowChanges {
    bool count = false;      // rowCount()
    bool selection = false;  // of any row, the focus or the anchor
    // The rows whose texts changed: none when empty; up to `kToTheEnd` when rows moved.
    std::size_t first = 0;
    std::size_t last = 0;

    static constexpr std::size_t kToTheEnd = std::numeric_limits<std::size_t>::max();
};

class RecordStore {
public:
    // What came of a call.
    enum class Outcome {
        done,
        nothingDone,       // there is no such record, or no reader
        rowWithoutRecord,  // a failed filter pass left the row without one
        filtersUneven,     // the lists of filter columns and texts differ in length
    };

    // Without a reader the list has no data: nothing is inserted, filtered or sorted. Forgets the
    // kept texts.
    void setCellReader(CellReader reader);

    // The owner keeps the texts of a column: see CellTexts::share(). Its records' texts are set
    // before they are inserted or refreshed.
    void shareColumn(ColumnId column, ColumnTexts& texts) { m_texts.share(column, texts); }

    // ---- Records ----

    // Takes in a record under a slot that none of the others has; returns its stored position, or
    // none, and nothing is inserted, without a reader. Position 0 and any beyond the end append. In
    // between, the record's row goes to the same index among the rows, or behind the last if there
    // are fewer. In a sorted list the row goes where it belongs, behind its equals. Under filters
    // there is a row only if the record passes.
    std::optional<std::size_t> insertItem(std::size_t position, Slot slot);

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

    // The same, but a visible row stays visible, where it is.
    void refreshShown(Slot slot);

    // The record is as it was but for what the judge looks at: it is judged and painted again.
    void touch(Slot slot);
    void touchAll() { rowsChanged(0, RowChanges::kToTheEnd); }

    std::size_t storedCount() const { return m_stored.size(); }
    bool stores(Slot slot) const { return slot < m_endSlot && m_stored.contains(slot); }
    Slot storedAt(std::size_t position) const { return m_stored.at(position); }
    std::size_t storedPosition(Slot slot) const { return m_stored.rowOf(slot); }

    // ---- Rows ----

    // Rows the list reports. Differs from the visible records only after a failed filter pass.
    std::size_t rowCount() const { return m_rowCount; }

    // The record in a row; kNoSlot beyond the end.
    Slot slotAt(std::size_t row) const;

    // The row of the record; none while it is filtered out, or when there is no such record.
    std::optional<std::size_t> rowOf(Slot slot) const;

    // Calls `visit` with the record of every visible row; it must not change the store.
    template <class Visit>
    void forEachVisible(Visit visit) const {
        m_visible.forEach(visit);
    }

    // The text of a row's cell, as the reader gives it and as long as that lives; empty beyond the
    // end, "no data descriptor initialised" without a reader.
    std::string_view cellText(std::size_t row, ColumnId column) const;

    // The text of a stored record's cell, from the kept ones where the column's are kept; for
    // walking over many rows.
    std::string_view text(Slot slot, ColumnId column) const { return m_texts.text(slot, column); }

    // Shows the rows from the last to the first. Row numbers are mirrored, nothing else changes.
    void setReversed(bool reversed);
    bool reversed() const { return m_reversed; }

    // ---- Filters ----

    // What is set here counts from the next pass on.
    RowFilters& filters() { return m_filters; }
    const RowFilters& filters() const { return m_filters; }

    // The filter pass: shows the records that pass all filters, in stored order, then sorts them.
    // Rows filtered out are deselected. Records that come or change later are judged as in this
    // pass. Nothing happens without a reader; filtersUneven leaves rows without records. Costs one
    // pass over the slots, and over the different texts of the filtered columns.
    Outcome filter();

    // What else a record must satisfy to have a row; an empty function ends it. It counts from the
    // next pass on, and for each record that comes, changes or is touched.
    using Judge = std::function<bool(Slot)>;
    void setJudge(Judge judge) { m_judge = std::move(judge); }

    // What has the last word in a filter pass, and in what distinctValues() counts: it is given the
    // records that pass, in stored order, and may take some away or add others. Records that come
    // between passes are not arranged.
    using Arrange = std::function<void(std::vector<Slot>& passing)>;
    void setArrange(Arrange arrange) { m_arrange = std::move(arrange); }

    // ---- Order ----

    // Sorts the rows, and from now on keeps them so; rows that compare equal keep their order.
    // Costs one pass over the rows and, where the column's texts are not yet ranked, one over
    // these.
    void sort(const SortOrder& order);
    // Back to stored order, in one pass.
    void unsort();
    const std::optional<SortOrder>& sortOrder() const { return m_order; }

    // ---- Selection, focus and anchor: they belong to records and follow them ----

    // Rows beyond the end are ignored. selectAll() and clearSelection() take one pass.
    void select(std::size_t row, bool on);
    void selectAll();
    void clearSelection();
    bool selected(std::size_t row) const;
    bool isSelected(Slot slot) const { return stores(slot) && m_selection.selected(slot); }
    std::size_t selectedCount() const { return m_selection.count(); }
    // Ascending. Counted when first asked for after a change, in a time that grows with the number
    // of selected rows, or with all when they are many; valid until the next change.
    const std::vector<std::size_t>& selectedRows() const;
    // The selected records, in no order; valid until the next change.
    const std::vector<Slot>& selectedSlots() const { return m_selection.slots(); }
    // The same in row order, at the cost of selectedRows().
    std::vector<Slot> selectedInOrder() const;
    // Whether the list selected the record by itself, after a removal, and the hand has not since.
    bool chosenByList(Slot slot) const { return stores(slot) && m_selection.chosenByList(slot); }
    // How many rows filters have deselected since the hand last selected.
    std::size_t deselectedByFilter() const { return m_deselectedByFilter; }
    // Another value after every change of which records are selected.
    std::uint64_t selectionRevision() const { return m_selection.revision(); }

    // The row that the keys act on. Beyond the end: none.
    void setFocus(std::size_t row);
    std::optional<std::size_t> focusedRow() const;
    // The row from which Shift selects. Beyond the end: none.
    void setAnchor(std::size_t row);
    std::optional<std::size_t> anchorRow() const;

    // ---- Columns ----

    // The choices of a column over all records, filtered out or not, with how many rows each would
    // have under the other filters of the last pass. Costs as much as a filter pass.
    DistinctValues distinctValues(ColumnId column, ValueOrder order = ValueOrder::mostFrequent);

    // The column's texts changed for all records (an expression did): forgets the kept ones. The
    // rows change with the next pass.
    void columnChanged(ColumnId column) { m_texts.drop(column); }

    // Gives the memory of the kept texts back; they are read again when next needed.
    void dropTexts();

    // ---- For the window ----

    RowChanges takeChanges();

private:
    using ActiveFilter = RowFilters::Active;

    void growTo(Slot slot);
    void release(Slot slot);
    void filterAgain(Slot slot);
    void repaint(Slot slot);

    void sortRows(std::vector<Slot>& rows, const SortOrder& order);
    bool passes(Slot slot) const;
    bool passes(Slot slot, const ActiveFilter& filter) const;
    std::vector<Slot>& passing(std::optional<ColumnId> unfiltered = {});
    void replaceRows(const std::vector<Slot>& slots);

    // Rows of the visible map: as shown, unless the list is reversed.
    std::size_t mapRow(std::size_t row) const { return m_reversed ? m_rowCount - 1 - row : row; }
    template <class Before>
    std::size_t firstNot(Before before) const;
    std::size_t sortedRow(Slot slot) const;
    std::size_t storedRow(Slot slot) const;
    bool inOrder(Slot slot, std::size_t mapRow) const;
    void moveIntoOrder(Slot slot, std::size_t mapRow);
    void show(Slot slot, std::size_t mapRow);
    void hide(Slot slot);
    void deselectFiltered(Slot slot);
    void selectionMade(bool changed);
    void removeRow(Slot slot, std::size_t row);
    void handOn(Slot slot, std::size_t row);
    void rowsChanged(std::size_t first, std::size_t last);

    CellTexts m_texts;
    RowFilters m_filters;
    Judge m_judge;
    Arrange m_arrange;
    SlotSequence m_stored;
    SlotSequence m_visible;
    std::size_t m_rowCount = 0;
    bool m_reversed = false;

    Slot m_endSlot = 0;  // behind the largest slot there has been
    RowSelection m_selection;
    std::size_t m_deselectedByFilter = 0;
    // The selected rows as last counted, and at which revision of the selection.
    mutable std::vector<std::size_t> m_selectedRows;
    mutable std::optional<std::uint64_t> m_countedAt;

    std::vector<Slot> m_passing;  // of the last pass; kept for its memory
    std::optional<SortOrder> m_order;
    // The column of numbers that was sorted last without kept texts.
    std::optional<ColumnId> m_numbersSorted;
    RowChanges m_changes;
};

// The message that tells the user of an outcome; null when there is nothing to tell.
const char* messageOf(RecordStore::Outcome outcome);

}  // namespace mc
