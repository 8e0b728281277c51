// Which records are selected, which has the focus, and from which Shift selects (the anchor), by
// slot: they stay so wherever the rows go.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "listctrl/model/table/slot_sequence.h"

namespace mc {

class RowSelection {
public:
    // Makes room for slots below `count`, and for as many more, so that it seldom has to.
    void grow(std::size_t count) {
        if (count > m_selected.size()) m_selected.resize(2 * count, 0);
    }

    bool selected(Slot slot) const { return m_selected[slot] != 0; }
    std::size_t count() const { return m_count; }
    Slot focus() const { return m_focus; }
    Slot anchor() const { return m_anchor; }
    bool any() const { return m_count != 0 || m_focus != kNoSlot || m_anchor != kNoSlot; }

    // Grows with every change of which records are selected, and never comes back to a value.
    std::uint64_t revision() const { return m_revision; }

    // Each returns whether it changed anything.
    bool select(Slot slot, bool on) {
        if (selected(slot) == on) return false;
        m_selected[slot] = on ? 1 : 0;
        m_count += on ? 1 : static_cast<std::size_t>(-1);
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

    // Deselects all; focus and anchor stay.
    bool clear() {
        if (m_count == 0) return false;
        m_selected.assign(m_selected.size(), 0);
        m_count = 0;
        ++m_revision;
        return true;
    }

    // All slots are gone.
    void reset() {
        m_selected.clear();
        m_count = 0;
        m_focus = m_anchor = kNoSlot;
        ++m_revision;
    }

private:
    static bool set(Slot& held, Slot slot) {
        const bool changed = held != slot;
        held = slot;
        return changed;
    }

    std::vector<std::uint8_t> m_selected;
    std::size_t m_count = 0;
    std::uint64_t m_revision = 0;
    Slot m_focus = kNoSlot;
    Slot m_anchor = kNoSlot;
};

}  // namespace mc
