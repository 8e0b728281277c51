// The records of a list, the rows that some of them have, and the selection: what changes one of
// the three is carried through to the others here.
//
// It knows nothing of texts: who has a row, and where, is for the caller to say. Where no other
// cost is stated, a call takes at most a time that grows with the logarithm of the number of
// records.
#pragma once

#include <cstddef>
#include <span>

#include "listctrl/model/table/selected_rows.h"
#include "listctrl/model/table/slot_sequence.h"
#include "listctrl/model/table/visible_rows.h"

namespace mc {

class RowTable {
public:
    RowTable() = default;
    RowTable(const RowTable&) = delete;
    RowTable& operator=(const RowTable&) = delete;

    // All records in order of insertion.
    const SlotSequence& stored() const { return m_stored; }
    const VisibleRows& visible() const { return m_visible; }
    SelectedRows& selection() { return m_selection; }
    const SelectedRows& selection() const { return m_selection; }

    // Stores a record under a slot that none of the others has, without a row.
    void store(std::size_t position, Slot slot);
    // Removes a stored record. If it had a row, what this had of selection, focus and anchor goes
    // to a neighbour, which is selected by the list.
    void remove(Slot slot);

    // A stored record gets a row, or loses it and is deselected. An index counts visible records.
    void show(Slot slot, std::size_t index);
    void hide(Slot slot);
    // A visible record has its row elsewhere; the index is one among the others.
    void move(Slot slot, std::size_t index);

    // These records and no others have rows, in this order; those that lost theirs are deselected.
    // The number of rows is as it was until recount(). Costs a pass over both.
    void replaceRows(std::span<const Slot> slots);
    void recount() { m_visible.recount(); }

    void setReversed(bool reversed);

    // Removes all records, in a time that grows with their number.
    void reset();

private:
    SlotSequence m_stored;
    VisibleRows m_visible;
    SelectedRows m_selection{m_visible};
};

}  // namespace mc
