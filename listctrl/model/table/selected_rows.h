// What is selected in a list, and where its focus and anchor are, in rows.
//
// All three belong to records and follow them (RowSelection); here they meet the rows that these
// records have now. Rows beyond the end are ignored or, for focus and anchor, mean none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "listctrl/model/table/remembered_selection.h"
#include "listctrl/model/table/row_selection.h"
#include "listctrl/model/table/visible_rows.h"

namespace mc {

class SelectedRows {
public:
    // The rows must outlive the object.
    explicit SelectedRows(const VisibleRows& visible) : m_visible(visible) {}

    // selectAll() and clear() take one pass.
    void select(std::size_t row, bool on);
    void selectAll();
    void clear() { changedByHand(m_held.clear()); }

    bool selected(std::size_t row) const { return isSelected(m_visible.slotAt(row)); }
    bool isSelected(Slot slot) const { return m_held.selected(slot); }
    std::size_t count() const { return m_held.count(); }
    // Ascending. Counted when first asked for after a change, in a time that grows with the number
    // of selected rows, or with all when they are many; valid until the next change.
    const std::vector<std::size_t>& rows() const;
    // The records of these rows, at the same cost.
    std::vector<Slot> inOrder() const;

    // Whether the list selected the record by itself, after a removal, and the hand has not since.
    bool chosenByList(Slot slot) const { return m_held.chosenByList(slot); }
    // How many rows filters have deselected since the hand last selected.
    std::size_t deselectedByFilter() const { return m_deselectedByFilter; }
    // Another value after every change of which records are selected.
    std::uint64_t revision() const { return m_held.revision(); }

    // What was selected once; to be put back.
    RememberedSelection& remembered() { return m_remembered; }

    // The row that the keys act on.
    void setFocus(std::size_t row) { m_held.setFocus(m_visible.slotAt(row)); }
    std::optional<std::size_t> focusedRow() const { return m_visible.rowOf(m_held.focus()); }
    // The row from which Shift selects.
    void setAnchor(std::size_t row) { m_held.setAnchor(m_visible.slotAt(row)); }
    std::optional<std::size_t> anchorRow() const { return m_visible.rowOf(m_held.anchor()); }

    // ---- For the table whose rows these are ----

    // Makes room for slots below `count`.
    void grow(std::size_t count) { m_held.grow(count); }
    // A visible record is about to be removed: the row after it is selected if it was, and gets
    // focus and anchor; from the last row these go to the one before.
    void beforeRemoval(Slot slot);
    // Records lost their rows without being removed: nothing of the selection is left with them.
    void filteredOut(Slot slot);
    void dropHidden();
    // The rows from an index on have other records.
    void rowsMoved(std::size_t index);
    void reset();

private:
    void changedByHand(bool changed);
    void forget(Slot slot);
    bool isFew() const { return m_held.count() < m_visible.order().size() / 64; }

    const VisibleRows& m_visible;
    RowSelection m_held;
    RememberedSelection m_remembered{m_held};
    std::size_t m_deselectedByFilter = 0;
    // The selected rows as last counted, and at which revision.
    mutable std::vector<std::size_t> m_rows;
    mutable std::optional<std::uint64_t> m_countedAt;
};

}  // namespace mc
