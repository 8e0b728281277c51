// The slots that have no change. While there is a hold, none that becomes free is given out again.
#pragma once

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

#include "listctrl/model/table/slot_sequence.h"

namespace mc {

// Without memory to note a slot it is used again only after clear().
class FreeSlots {
public:
    // One that had a change before; kNoSlot when there is none.
    Slot take() {
        if (m_free.size() == m_gone) return kNoSlot;
        std::swap(m_free[m_free.size() - m_gone - 1], m_free.back());
        const Slot slot = m_free.back();
        m_free.pop_back();
        return slot;
    }

    // A slot of which nobody knows, and one whose change went.
    void giveBack(Slot slot) noexcept {
        if (note(slot)) std::swap(m_free[m_free.size() - m_gone - 1], m_free.back());
    }
    void left(Slot slot) noexcept {
        if (!held()) return giveBack(slot);
        m_gone += note(slot);
    }
    void clear() { m_free.clear(); }

    bool held() const { return m_holds > 0; }
    void hold() { ++m_holds; }
    void release() {
        if (--m_holds == 0) m_gone = 0;
    }

private:
    bool note(Slot slot) noexcept try {
        m_free.push_back(slot);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }

    std::vector<Slot> m_free;  // last those that went while there is a hold
    std::size_t m_gone = 0;    // how many of them
    int m_holds = 0;
};

}  // namespace mc
