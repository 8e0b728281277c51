// What was selected in a list at one moment, and where focus and anchor were; it can be put back.
//
// Records that lost their rows or were removed since then are left out.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "listctrl/model/table/row_selection.h"

namespace mc {

class RememberedSelection {
public:
    // The selection, which must outlive the object.
    explicit RememberedSelection(RowSelection& selection) : m_selection(selection) {}

    // Remembers what is selected now, and by whom, instead of what was before. Costs the number of
    // both, and the first time a pass over the slots.
    void remember() {
        forgetAll();
        m_slots = m_selection.slots();
        if (!m_slots.empty()) growBySlot(m_marks, std::ranges::max(m_slots) + std::size_t{1});
        for (const Slot slot : m_slots)
            m_marks[slot] = m_selection.chosenByList(slot) ? Mark::byList : Mark::byHand;
        m_focus = m_selection.focus();
        m_anchor = m_selection.anchor();
    }

    // Of any number, kNoSlot too.
    bool has(Slot slot) const { return slot < m_marks.size() && m_marks[slot] != Mark::none; }

    // Selects it beside what is selected.
    void select() {
        for (const Slot slot : m_slots)
            if (has(slot))
                m_selection.select(slot, true,
                                   m_marks[slot] == Mark::byList ? RowSelection::By::list
                                                                 : RowSelection::By::hand);
    }

    // Selection, focus and anchor are as they were.
    void putBack() {
        m_selection.clear();
        select();
        m_selection.setFocus(m_focus);
        m_selection.setAnchor(m_anchor);
    }

    // As in the selection. None of these fails.
    void forget(Slot slot) {
        handOn(slot, kNoSlot);
        if (has(slot)) m_marks[slot] = Mark::none;
    }
    template <class Gone>
    void forgetIf(Gone gone) {
        for (const Slot slot : m_slots)
            if (has(slot) && gone(slot)) forget(slot);
        if (gone(m_focus)) m_focus = kNoSlot;
        if (gone(m_anchor)) m_anchor = kNoSlot;
    }
    void handOn(Slot slot, Slot heir) {
        if (m_focus == slot) m_focus = heir;
        if (m_anchor == slot) m_anchor = heir;
    }

    // Nothing is remembered.
    void reset() {
        forgetAll();
        m_focus = m_anchor = kNoSlot;
    }

private:
    enum class Mark : std::uint8_t { none, byHand, byList };

    void forgetAll() {
        for (const Slot slot : m_slots)
            if (slot < m_marks.size()) m_marks[slot] = Mark::none;
        m_slots.clear();
    }

    RowSelection& m_selection;
    std::vector<Slot> m_slots;  // those of them that have no mark, went
    std::vector<Mark> m_marks;  // by slot
    Slot m_focus = kNoSlot;
    Slot m_anchor = kNoSlot;
};

}  // namespace mc
