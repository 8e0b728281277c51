// The slots that have no change. While there is a hold, none that becomes free is given out again.
#pragma once

#include <vector>

#include "listctrl/model/table/slot_sequence.h"

namespace mc {

class FreeSlots {
public:
    // One that had a change before; kNoSlot when there is none.
    Slot take() {
        if (m_free.empty()) return kNoSlot;
        const Slot slot = m_free.back();
        m_free.pop_back();
        return slot;
    }

    // A slot of which nobody knows, and one whose change went.
    void giveBack(Slot slot) { m_free.push_back(slot); }
    void left(Slot slot) { (held() ? m_gone : m_free).push_back(slot); }
    void clear() { m_free.clear(); }

    bool held() const { return m_holds > 0; }
    void hold() { ++m_holds; }
    void release() {
        if (--m_holds > 0) return;
        m_free.insert(m_free.end(), m_gone.begin(), m_gone.end());
        m_gone.clear();
    }

private:
    std::vector<Slot> m_free;
    std::vector<Slot> m_gone;  // those that went while there is a hold
    int m_holds = 0;
};

}  // namespace mc
