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

    // Makes room for slots below `count`, and for as many more, so that it seldom has to.
    void grow(std::size_t count) {
        if (count > m_entries.size()) m_entries.resize(2 * count, kNone);
    }

    bool selected(Slot slot) const { return m_entries[slot] != kNone; }
    // Whether it is selected, and by the list alone.
    bool chosenByList(Slot slot) const {
        return selected(slot) && (m_entries[slot] & kByList) != 0;
    }
    std::size_t count() const { return m_slots.size(); }
    const std::vector<Slot>& slots() const { return m_slots; }  // in no order
    Slot focus() const { return m_focus; }
    Slot anchor() const { return m_anchor; }

    // Grows with every change of which records are selected, and never comes back to a value.
    std::uint64_t revision() const { return m_revision; }

    // Each returns whether it changed anything. What the hand selected stays the hand's.
    bool select(Slot slot, bool on, By by = By::hand) {
        if (on == selected(slot)) return on && by == By::hand && takeOver(slot);
        if (on)
            add(slot, by);
        else
            remove(slot);
        ++m_revision;
        return true;
    }
    bool setFocus(Slot slot) { return set(m_focus, slot); }
    bool setAnchor(Slot slot) { return set(m_anchor, slot); }

    // The record is out of sight or gone: nothing of the selection is left with it.
    bool forget(Slot slot) { return handOn(slot, kNoSlot) | select(slot, false); }

    // Focus and anchor of a record that goes become those of another, or end.
    bool handOn(Slot slot, Slot heir) {
        return (m_focus == slot && setFocus(heir)) | (m_anchor == slot && setAnchor(heir));
    }

    // Deselects all; focus and anchor stay. Costs the number of selected ones.
    bool clear() {
        if (m_slots.empty()) return false;
        for (const Slot slot : m_slots) m_entries[slot] = kNone;
        m_slots.clear();
        ++m_revision;
        return true;
    }

    // All slots are gone.
    void reset() {
        m_entries.clear();
        m_slots.clear();
        m_focus = m_anchor = kNoSlot;
        ++m_revision;
    }

private:
    static constexpr std::uint32_t kNone = 0x7FFFFFFF;
    static constexpr std::uint32_t kByList = 0x80000000;

    static bool set(Slot& held, Slot slot) {
        const bool changed = held != slot;
        held = slot;
        return changed;
    }

    void add(Slot slot, By by) {
        m_entries[slot] =
            static_cast<std::uint32_t>(m_slots.size()) | (by == By::list ? kByList : 0);
        m_slots.push_back(slot);
    }

    // The last of the selected takes its position in their list.
    void remove(Slot slot) {
        const std::uint32_t index = m_entries[slot] & ~kByList;
        const Slot last = m_slots.back();
        m_slots[index] = last;
        m_entries[last] = index | (m_entries[last] & kByList);
        m_slots.pop_back();
        m_entries[slot] = kNone;
    }

    bool takeOver(Slot slot) {
        if (!chosenByList(slot)) return false;
        m_entries[slot] &= ~kByList;
        ++m_revision;
        return true;
    }

    std::vector<std::uint32_t> m_entries;  // by slot: its index in m_slots and kByList, or kNone
    std::vector<Slot> m_slots;
    std::uint64_t m_revision = 0;
    Slot m_focus = kNoSlot;
    Slot m_anchor = kNoSlot;
};

}  // namespace mc
