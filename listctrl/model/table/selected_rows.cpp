#include "listctrl/model/table/selected_rows.h"

#include <algorithm>
#include <new>

namespace mc {

void SelectedRows::select(std::size_t row, bool on) {
    const Slot slot = m_visible.slotAt(row);
    if (slot != kNoSlot) changedByHand(m_held.select(slot, on));
}

void SelectedRows::selectAll() {
    m_visible.order().forEach([this](Slot slot) { changedByHand(m_held.select(slot, true)); });
}

void SelectedRows::changedByHand(bool changed) {
    if (changed) m_deselectedByFilter = 0;
}

const std::vector<std::size_t>& SelectedRows::rows() const {
    if (m_countedAt == revision()) return m_rows;
    m_countedAt = revision();
    m_rows.clear();
    if (count() == 0) return m_rows;
    m_rows.reserve(count());
    if (isFew()) {
        for (const Slot slot : m_held.slots()) m_rows.push_back(*m_visible.rowOf(slot));
        std::sort(m_rows.begin(), m_rows.end());
        return m_rows;
    }
    std::size_t index = 0;
    m_visible.order().forEach([&](Slot slot) {
        if (m_held.selected(slot)) m_rows.push_back(m_visible.mirrored(index));
        ++index;
    });
    if (m_visible.reversed()) std::reverse(m_rows.begin(), m_rows.end());
    return m_rows;
}

// Finding the record of each of many rows would take longer than going over them all.
std::vector<Slot> SelectedRows::inOrder() const {
    std::vector<Slot> slots;
    slots.reserve(count());
    if (isFew()) {
        for (const std::size_t row : rows()) slots.push_back(m_visible.slotAt(row));
        return slots;
    }
    m_visible.order().forEach([&](Slot slot) {
        if (m_held.selected(slot)) slots.push_back(slot);
    });
    if (m_visible.reversed()) std::reverse(slots.begin(), slots.end());
    return slots;
}

void SelectedRows::beforeRemoval(Slot slot) {
    const std::size_t row = *m_visible.rowOf(slot);
    const Slot after = m_visible.slotAt(row + 1);
    try {
        if (after != kNoSlot && m_held.selected(slot))
            m_held.select(after, true, RowSelection::By::list);
    } catch (const std::bad_alloc&) {
        // The record goes; the next is not selected.
    }
    const Slot heir = after != kNoSlot || row == 0 ? after : m_visible.slotAt(row - 1);
    m_held.handOn(slot, heir);
    m_remembered.handOn(slot, heir);
    forget(slot);
}

void SelectedRows::forget(Slot slot) {
    m_held.forget(slot);
    m_remembered.forget(slot);
}

void SelectedRows::filteredOut(Slot slot) {
    if (m_held.selected(slot)) ++m_deselectedByFilter;
    forget(slot);
}

// What deselects does not shorten the list of those that were selected.
void SelectedRows::dropHidden() {
    const auto hidden = [this](Slot slot) {
        return slot != kNoSlot && !m_visible.order().contains(slot);
    };
    for (const Slot slot : m_held.slots())
        if (hidden(slot)) filteredOut(slot);
    for (const Slot slot : {m_held.focus(), m_held.anchor()})
        if (hidden(slot)) filteredOut(slot);
    m_remembered.forgetIf(hidden);
}

void SelectedRows::rowsMoved(std::size_t index) {
    if (m_visible.reversed() || (!m_rows.empty() && m_rows.back() >= index)) m_countedAt.reset();
}

void SelectedRows::reset() {
    m_held.reset();
    m_remembered.reset();
    m_deselectedByFilter = 0;
}

}  // namespace mc
