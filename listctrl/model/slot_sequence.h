// An ordered sequence of slots: the numbers under which a store keeps what belongs to its records.
#pragma once

#include <cstdint>
#include <vector>

#include "listctrl/model/blocked_sequence.h"

// A record's number while it is stored; it is given again after the record is gone.
using Slot = std::uint32_t;
inline constexpr Slot kNoSlot = ~Slot{0};

class SlotHomes {
public:
    using Block = SequenceBlock<Slot>;
    Block*& operator()(Slot slot) { return m_homes[slot]; }
    Block* operator()(Slot slot) const { return m_homes[slot]; }

    // Makes room for slots below `count`.
    void resize(std::size_t count) { m_homes.resize(count, nullptr); }

private:
    std::vector<Block*> m_homes;
};

class SlotSequence : public BlockedSequence<Slot, SlotHomes> {
public:
    bool contains(Slot slot) const { return homes()(slot) != nullptr; }
};
