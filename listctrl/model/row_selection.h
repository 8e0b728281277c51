// Which records are selected and which has the focus, by slot: they stay so wherever the rows go.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "listctrl/model/slot_sequence.h"

class RowSelection {
public:
    // Makes room for slots below `count`, and for as many more, so that it seldom has to.
    void grow(std::size_t count) {
        if (count > m_flags.size()) m_flags.resize(2 * count, 0);
    }

    bool selected(Slot slot) const { return m_flags[slot] != 0; }

    // Selected by the list itself, and not touched since.
    bool autoSelected(Slot slot) const { return m_flags[slot] == kAuto; }

    std::size_t count() const { return m_count; }
    Slot focus() const { return m_focus; }
    bool any() const { return m_count != 0 || m_focus != kNoSlot; }

    // Each returns whether it changed anything. What the user does ends an auto-selection.
    bool select(Slot slot, bool on) { return set(slot, on ? kByUser : 0); }
    bool autoSelect(Slot slot) { return !selected(slot) && set(slot, kAuto); }
    bool setFocus(Slot slot) {
        const bool changed = m_focus != slot;
        m_focus = slot;
        return changed;
    }

    // The record is out of sight or gone: neither selected nor focused any longer.
    bool forget(Slot slot) {
        const bool focused = m_focus == slot && setFocus(kNoSlot);
        return set(slot, 0) || focused;
    }

    // Deselects all; the focus stays.
    bool clear() {
        if (m_count == 0) return false;
        m_flags.assign(m_flags.size(), 0);
        m_count = 0;
        return true;
    }

private:
    static constexpr std::uint8_t kByUser = 1;
    static constexpr std::uint8_t kAuto = 2;

    bool set(Slot slot, std::uint8_t flag) {
        if (m_flags[slot] == flag) return false;
        m_count += static_cast<std::size_t>(flag != 0) - static_cast<std::size_t>(selected(slot));
        m_flags[slot] = flag;
        return true;
    }

    std::vector<std::uint8_t> m_flags;
    std::size_t m_count = 0;
    Slot m_focus = kNoSlot;
};
