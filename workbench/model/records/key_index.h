// The index of the pending changes: from key to slot, one probe of one table.
//
// A table of hashes and slots with linear probing: a new key costs one cache miss where a map of
// nodes costs three. Built for hundreds of thousands of changes; it grows by doubling and gives the
// memory back when it is cleared. One thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "listctrl/model/table/slot_sequence.h"
#include "text/text_bytes.h"

namespace mc {

// `KeyOf` tells the key of a slot that is in the index: `std::string_view operator()(Slot)`. It
// must not change while the slot is there.
template <class KeyOf>
class KeyIndex {
public:
    explicit KeyIndex(KeyOf keyOf) : m_keyOf(std::move(keyOf)) {}

    std::size_t size() const { return m_size; }

    // The slot under the key; kNoSlot when there is none.
    Slot find(std::string_view key) const {
        return m_size != 0 ? m_entries[indexOf(key, hashOf(key))].slot : kNoSlot;
    }

    // Adds a slot under its key; false, and nothing changes, when the key is in the index already.
    bool insert(std::string_view key, Slot slot) {
        if (m_size + 1 > m_entries.size() / 2) grow();
        const std::uint32_t hash = hashOf(key);
        Entry& entry = m_entries[indexOf(key, hash)];
        if (entry.slot != kNoSlot) return false;
        entry = {hash, slot};
        ++m_size;
        return true;
    }

    // Removes the key; returns its slot, kNoSlot when it is not there.
    Slot erase(std::string_view key) {
        if (m_size == 0) return kNoSlot;
        std::size_t hole = indexOf(key, hashOf(key));
        const Slot found = m_entries[hole].slot;
        if (found == kNoSlot) return kNoSlot;
        // Entries behind the hole move up, as long as that brings them no further than their home.
        for (std::size_t at = next(hole); m_entries[at].slot != kNoSlot; at = next(at)) {
            if (steps(m_entries[at].hash & mask(), at) < steps(hole, at)) continue;
            m_entries[hole] = m_entries[at];
            hole = at;
        }
        m_entries[hole] = {};
        --m_size;
        return found;
    }

    void clear() {
        m_entries = std::vector<Entry>();
        m_size = 0;
    }

private:
    struct Entry {
        std::uint32_t hash = 0;
        Slot slot = kNoSlot;
    };

    // Up to eight keys that differ in the last character only are neighbours: changes numbered in
    // turn share the cache line that each would fetch.
    static std::uint32_t hashOf(std::string_view key) {
        if (key.empty()) return 0;
        const auto last = static_cast<unsigned char>(key.back());
        key.remove_suffix(1);
        return (mc::hashOf(key) + last / 8 * 0x9E3779B1) * 8 + last % 8;
    }
    std::size_t mask() const { return m_entries.size() - 1; }

    // The next entry of a search lies one group of neighbours and one entry further: where two
    // groups meet, none of the keys passes all of the other's. So many steps lead from one entry to
    // another: the step has an inverse among numbers of 32 bits.
    static constexpr std::size_t kStep = 9, kInverse = 0x38E38E39;
    static_assert(static_cast<std::uint32_t>(kStep * kInverse) == 1);
    std::size_t next(std::size_t index) const { return (index + kStep) & mask(); }
    std::size_t steps(std::size_t from, std::size_t to) const {
        return (to - from) * kInverse & mask();
    }

    // The entry that holds the key, or the empty one at which the search for it ends.
    std::size_t indexOf(std::string_view key, std::uint32_t hash) const {
        std::size_t at = hash & mask();
        while (m_entries[at].slot != kNoSlot &&
               (m_entries[at].hash != hash || !same(m_keyOf(m_entries[at].slot), key)))
            at = next(at);
        return at;
    }

    void grow() {
        std::vector<Entry> before(m_entries.empty() ? 4096 : m_entries.size() * 2);
        before.swap(m_entries);
        for (const Entry& entry : before) {
            if (entry.slot == kNoSlot) continue;
            std::size_t at = entry.hash & mask();
            while (m_entries[at].slot != kNoSlot) at = next(at);
            m_entries[at] = entry;
        }
    }

    KeyOf m_keyOf;
    std::vector<Entry> m_entries;  // a power of two of them, or none
    std::size_t m_size = 0;
};

}  // namespace mc
