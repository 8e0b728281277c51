// Finds the halves of investors' pairs by the hash of their user id, among all pending changes.
//
// Halves of the same hash are linked in both directions, by slot: taking one in or out and finding
// the first costs no more when many share a user id. Twelve bytes a slot once there is a half. One
// thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "listctrl/model/table/slot_sequence.h"

namespace mc {

class PairIndex {
public:
    using Hash = std::uint32_t;

    // The change in a slot is a half with this hash now; with none, it is no half.
    void set(Slot slot, std::optional<Hash> hash) {
        const bool listed = slot < m_links.size() && m_links[slot].before != kNoSlot;
        if (hash ? listed && m_links[slot].hash == *hash : !listed) return;
        if (listed) unlink(slot);
        if (hash) link(slot, *hash);
    }

    void clear() { *this = {}; }

    // The first half with this hash that `accept(slot)` takes; kNoSlot when there is none.
    template <class Accept>
    Slot find(Hash hash, Accept accept) const {
        if (m_heads.empty()) return kNoSlot;
        Slot slot = m_heads[hash & (m_heads.size() - 1)];
        while (slot != kNoSlot && (m_links[slot].hash != hash || !accept(slot)))
            slot = m_links[slot].next;
        return slot;
    }

private:
    struct Link {
        Hash hash = 0;
        Slot next = kNoSlot;
        Slot before = kNoSlot;  // kFirst: it is the head of its list; kNoSlot: it is in none
    };
    static constexpr Slot kFirst = kNoSlot - 1;

    Slot& headOf(Hash hash) { return m_heads[hash & (m_heads.size() - 1)]; }

    void link(Slot slot, Hash hash) {
        if (slot >= m_links.size()) m_links.resize(slot + std::size_t{1});
        if (m_size++ >= m_heads.size()) grow();
        Slot& head = headOf(hash);
        m_links[slot] = {hash, head, kFirst};
        if (head != kNoSlot) m_links[head].before = slot;
        head = slot;
    }

    void unlink(Slot slot) {
        const Link link = m_links[slot];
        (link.before == kFirst ? headOf(link.hash) : m_links[link.before].next) = link.next;
        if (link.next != kNoSlot) m_links[link.next].before = link.before;
        m_links[slot] = {};
        --m_size;
    }

    void grow() {
        std::vector<Slot> before(m_heads.empty() ? 64 : m_heads.size() * 2, kNoSlot);
        before.swap(m_heads);
        m_size = 1;
        for (Slot slot : before)
            while (slot != kNoSlot) {
                const Slot next = m_links[slot].next;
                link(slot, m_links[slot].hash);
                slot = next;
            }
    }

    std::vector<Slot> m_heads;  // by hash: a power of two of them, or none
    std::vector<Link> m_links;  // by slot
    std::size_t m_size = 0;
};

}  // namespace mc
