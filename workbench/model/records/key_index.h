// The index of the pending changes: from key to record, one probe of one table.
//
// A table of hash and pointer with linear probing: a new key costs one cache miss where a map of
// nodes costs three. Built for hundreds of thousands of changes; it grows by doubling and gives the
// memory back when it is cleared.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace mc {

// `Record` has a text `key`, which must not change while the record is in the index. The records
// are the caller's.
template <class Record>
class KeyIndex {
public:
    std::size_t size() const { return m_size; }

    Record* find(std::string_view key) const {
        if (m_size == 0) return nullptr;
        return m_slots[slotOf(key, hashOf(key))].record;
    }

    // Adds the record; false, and nothing changes, when its key is in the index already.
    bool insert(Record& record) {
        if (m_size + 1 > m_slots.size() * 3 / 4) grow();
        const std::size_t hash = hashOf(record.key);
        Slot& slot = m_slots[slotOf(record.key, hash)];
        if (slot.record != nullptr) return false;
        slot = {hash, &record};
        ++m_size;
        return true;
    }

    // Takes the key out; returns its record, or null when it is not there.
    Record* erase(std::string_view key) {
        if (m_size == 0) return nullptr;
        std::size_t hole = slotOf(key, hashOf(key));
        Record* const found = m_slots[hole].record;
        if (found == nullptr) return nullptr;
        // Entries behind the hole move up, as long as that brings them no further than their home.
        for (std::size_t at = next(hole); m_slots[at].record != nullptr; at = next(at)) {
            const std::size_t home = m_slots[at].hash & mask();
            if (((at - home) & mask()) < ((at - hole) & mask())) continue;
            m_slots[hole] = m_slots[at];
            hole = at;
        }
        m_slots[hole] = {};
        --m_size;
        return found;
    }

    void clear() {
        m_slots = std::vector<Slot>();
        m_size = 0;
    }

private:
    struct Slot {
        std::size_t hash = 0;
        Record* record = nullptr;
    };

    // Up to four keys that differ in the last character only stand side by side: changes numbered
    // in turn share the cache line that each would fetch.
    static std::size_t hashOf(std::string_view key) {
        if (key.empty()) return 0;
        const std::size_t last = static_cast<unsigned char>(key.back());
        key.remove_suffix(1);
        return (std::hash<std::string_view>()(key) + last / 4 * 0x9E3779B1) * 4 + last % 4;
    }
    std::size_t mask() const { return m_slots.size() - 1; }
    std::size_t next(std::size_t slot) const { return (slot + 1) & mask(); }

    // The slot that holds the key, or the empty one at which the search for it ends.
    std::size_t slotOf(std::string_view key, std::size_t hash) const {
        std::size_t at = hash & mask();
        while (m_slots[at].record != nullptr &&
               (m_slots[at].hash != hash || m_slots[at].record->key != key))
            at = next(at);
        return at;
    }

    void grow() {
        std::vector<Slot> before(m_slots.empty() ? 64 : m_slots.size() * 2);
        before.swap(m_slots);
        for (const Slot& slot : before) {
            if (slot.record == nullptr) continue;
            std::size_t at = slot.hash & mask();
            while (m_slots[at].record != nullptr) at = next(at);
            m_slots[at] = slot;
        }
    }

    std::vector<Slot> m_slots;  // a power of two of them, or none
    std::size_t m_size = 0;
};

}  // namespace mc
