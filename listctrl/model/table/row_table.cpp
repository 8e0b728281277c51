#include "listctrl/model/table/row_table.h"

namespace mc {

void RowTable::store(std::size_t position, Slot slot) {
    const std::size_t slots = slot + std::size_t{1};
    m_stored.homes().grow(slots);
    m_visible.grow(slots);
    m_selection.grow(slots);
    m_stored.insert(position, slot);
}

void RowTable::remove(Slot slot) {
    if (m_visible.order().contains(slot)) {
        m_selection.beforeRemoval(slot);
        m_selection.rowsMoved(m_visible.remove(slot));
    }
    m_stored.remove(slot);
}

void RowTable::show(Slot slot, std::size_t index) {
    m_visible.insert(index, slot);
    m_selection.rowsMoved(index);
}

void RowTable::hide(Slot slot) {
    m_selection.filteredOut(slot);
    m_selection.rowsMoved(m_visible.remove(slot));
}

// A row that was taken out comes in again, whatever memory there is.
void RowTable::move(Slot slot, std::size_t index) {
    m_visible.makeRoom();
    m_selection.rowsMoved(m_visible.remove(slot));
    show(slot, index);
}

void RowTable::replaceRows(std::span<const Slot> slots) {
    m_visible.assign(slots);
    m_selection.dropHidden();
    m_selection.rowsMoved(0);
}

void RowTable::setReversed(bool reversed) {
    m_visible.setReversed(reversed);
    m_selection.rowsMoved(0);
}

void RowTable::reset() {
    m_stored.reset();
    m_visible.reset();
    m_selection.reset();
}

}  // namespace mc
