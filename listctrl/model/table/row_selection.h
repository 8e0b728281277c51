// Which records are selected, which has the focus, and from which Shift selects (the anchor), by
// slot: they stay so wherever the rows go.
//
// Beside each selected record it keeps who selected it: the hand, or the list after a removal.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "listctrl/model/table/slot_sequence.h"

namespace mc {

class RowSelection {
public:
    enum class By { hand, list };

    // Makes room for slots below `count`.
    void grow(std::size_t count) { growBySlot(m_entries, count); }

    // Of any number, kNoSlot too.
    bool selected(Slot slot) const { return slot < m_entries.size() && m_entries[slot].selected; }
    // Whether it is selected, and by the list alone.
    bool chosenByList(Slot slot) const { return slot < m_entries.size() && m_entries[slot].byList; }
    std::size_t count() const { return m_count; }

    // In no order. The first time after some were deselected, costs a pass over them.
    const std::vector<Slot>& slots() const {
        if (m_slots.size() != m_count)
            std::erase_if(m_slots, [this](Slot slot) {
                return !(m_entries[slot].listed = m_entries[slot].selected);
            });
        return m_slots;
    }
    Slot focus() const { return m_focus; }
    Slot anchor() const { return m_anchor; }

    // Grows with every change of which records are selected, and never comes back to a value.
    std::uint64_t revision() const { return m_revision; }

    // Returns whether it changed anything. What the hand selected stays the hand's.
    bool select(Slot slot, bool on, By by = By::hand) {
        if (on == selected(slot)) return on && by == By::hand && takeOver(slot);
        if (on && !m_entries[slot].listed) m_slots.push_back(slot);
        Entry& entry = m_entries[slot];
        entry.selected = on;
        entry.byList = on && by == By::list;
        entry.listed = true;
        on ? ++m_count : --m_count;
        ++m_revision;
        return true;
    }
    void setFocus(Slot slot) { m_focus = slot; }
    void setAnchor(Slot slot) { m_anchor = slot; }

    // The record is out of sight or gone: nothing of the selection is left with it.
    void forget(Slot slot) {
        handOn(slot, kNoSlot);
        select(slot, false);
    }

    // Focus and anchor of a record that goes become those of another, or end.
    void handOn(Slot slot, Slot heir) {
        if (m_focus == slot) m_focus = heir;
        if (m_anchor == slot) m_anchor = heir;
    }

    // Deselects all; focus and anchor stay. Returns whether any was selected. Costs the number of
    // those selected since the last time.
    bool clear() {
        if (m_count == 0) return false;
        for (const Slot slot : m_slots) {
            Entry& entry = m_entries[slot];
            entry.selected = entry.byList = entry.listed = false;
        }
        m_slots.clear();
        m_count = 0;
        ++m_revision;
        return true;
    }

    // All slots are gone.
    void reset() {
        m_entries.clear();
        m_slots.clear();
        m_count = 0;
        m_focus = m_anchor = kNoSlot;
        ++m_revision;
    }

private:
    struct Entry {
        bool selected : 1, byList : 1;
        bool listed : 1;  // in m_slots, where it stays for a while when it is deselected
    };

    bool takeOver(Slot slot) {
        if (!chosenByList(slot)) return false;
        m_entries[slot].byList = false;
        ++m_revision;
        return true;
    }

    mutable std::vector<Entry> m_entries;  // by slot
    mutable std::vector<Slot> m_slots;     // each once: the selected ones, and some that were
    std::size_t m_count = 0;               // of the selected
    std::uint64_t m_revision = 0;
    Slot m_focus = kNoSlot;
    Slot m_anchor = kNoSlot;
};

}  // namespace mc
