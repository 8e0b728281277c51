// An ordered sequence of slots: the numbers under which a store keeps what belongs to its records.
#pragma once

#include <cstdint>
#include <vector>

#include "listctrl/model/table/blocked_sequence.h"

namespace mc {

// A record's number while it is stored; it is given again after the record is gone.
using Slot = std::uint32_t;
inline constexpr Slot kNoSlot = ~Slot{0};

class SlotHomes {
public:
    using Block = SequenceBlock<Slot>;
    Block*& operator()(Slot slot) { return m_homes[slot]; }
    Block* operator()(Slot slot) const { return m_homes[slot]; }

    // Makes room for slots below `count`, and for as many more, so that it seldom has to.
    void grow(std::size_t count) {
        if (count > m_homes.size()) m_homes.resize(2 * count, nullptr);
    }

private:
    std::vector<Block*> m_homes;
};

class SlotSequence : public BlockedSequence<Slot, SlotHomes> {
public:
    bool contains(Slot slot) const { return homes()(slot) != nullptr; }
};

}  // namespace mc
