// An ordered sequence of slots: the numbers under which a store keeps what belongs to its records.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "listctrl/model/table/blocked_sequence.h"

namespace mc {

// A record's number while it is stored; it is given again after the record is gone.
using Slot = std::uint32_t;
inline constexpr Slot kNoSlot = ~Slot{0};

// Makes room for slots below `count` in what is kept by slot, and for half as many more, so that it
// seldom has to; in a short list for a thousand more.
template <class Kept>
void growBySlot(std::vector<Kept>& kept, std::size_t count, const Kept& empty = {}) {
    if (count <= kept.size()) return;
    kept.reserve(count + std::max<std::size_t>(count / 2, 1024));  // resize() alone would double it
    kept.resize(kept.capacity(), empty);
}

// What is kept of a slot, or of kNoSlot, will be read soon: it comes into the cache meanwhile.
template <class Kept>
void prefetchBySlot(const std::vector<Kept>& kept, Slot slot) {
    if (slot < kept.size()) __builtin_prefetch(kept.data() + slot);
}

class SlotHomes {
public:
    using Block = SequenceBlock<Slot>;
    Block*& operator()(Slot slot) { return m_homes[slot]; }
    Block* operator()(Slot slot) const { return m_homes[slot]; }
    bool has(Slot slot) const { return slot < m_homes.size() && m_homes[slot] != nullptr; }
    void prefetch(Slot slot) const { prefetchBySlot(m_homes, slot); }

    void grow(std::size_t count) { growBySlot(m_homes, count); }

private:
    std::vector<Block*> m_homes;
};

class SlotSequence : public BlockedSequence<Slot, SlotHomes> {
public:
    // Of any number, kNoSlot too.
    bool contains(Slot slot) const { return homes().has(slot); }
    void prefetch(Slot slot) const { homes().prefetch(slot); }

    // Takes every slot out, and gives back the room that was made for them.
    void reset() {
        clear();
        homes() = {};
    }
};

}  // namespace mc
