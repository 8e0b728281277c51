// The index of the pending changes by what they are about: from an entity to the slots of its
// changes, in order of arrival.
//
// Slots whose entities fall into the same bucket are a ring, so that adding and removing one costs
// the same however many changes an entity has. A change takes eight bytes, and two to four for its
// bucket. It grows by doubling, which reads the entities again. The users of investors' clients,
// whom these are about as well, are kept in a set of their own. One thread.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <initializer_list>
#include <set>
#include <utility>
#include <vector>

#include "link/model/entity.h"
#include "listctrl/model/table/slot_sequence.h"

namespace mc {

// `Entities` tells what the change in a slot of the index is about: `Entity own(Slot)` and `Entity
// linked(Slot)`. Both must not change while the slot is there.
template <class Entities>
class EntityIndex {
public:
    explicit EntityIndex(Entities entities) : m_entities(std::move(entities)) {}

    // Adds a slot that is not there. A change that is about nothing is not kept.
    void insert(Slot slot) {
        const Entity own = m_entities.own(slot), linked = m_entities.linked(slot);
        if (linked.kind != EntityKind::none) m_linked.emplace(hashOf(linked), slot);
        if (own.kind == EntityKind::none) return;
        if (m_size + 1 > m_first.size() * 2) grow();
        if (m_links.size() <= slot) m_links.resize(slot + std::size_t{1});
        append(m_first, slot, hashOf(own));
        ++m_size;
    }

    // Removes a slot; one that is not there is ignored.
    void erase(Slot slot) {
        m_linked.erase({hashOf(m_entities.linked(slot)), slot});
        if (slot >= m_links.size() || m_links[slot].next == kNoSlot) return;
        Slot& first = m_first[hashOf(m_entities.own(slot)) & (m_first.size() - 1)];
        const Links links = std::exchange(m_links[slot], Links{});
        --m_size;
        if (links.next == slot) {
            first = kNoSlot;
            return;
        }
        m_links[links.before].next = links.next;
        m_links[links.next].before = links.before;
        if (first == slot) first = links.next;
    }

    // The slots of the changes about any of the entities, `most` at most, each entity's oldest
    // first. Costs a look at each slot found, and at those of the same bucket before them.
    std::vector<Slot> find(std::initializer_list<Entity> entities, std::size_t most) const {
        std::vector<Slot> found;
        for (const Entity& entity : entities) {
            if (entity.kind == EntityKind::none) continue;
            addRing(entity, most, found);
            addLinked(entity, most, found);
        }
        return found;
    }

    // The first slot of a change about the entity that `accept(slot)` takes; kNoSlot when none is.
    template <class Accept>
    Slot findIf(const Entity& entity, Accept accept) const {
        const std::size_t hash = hashOf(entity);
        const Slot first = m_size != 0 ? m_first[hash & (m_first.size() - 1)] : kNoSlot;
        for (Slot slot = first; slot != kNoSlot;) {
            if (m_entities.own(slot) == entity && accept(slot)) return slot;
            slot = m_links[slot].next != first ? m_links[slot].next : kNoSlot;
        }
        for (auto at = m_linked.lower_bound({hash, 0}); at != m_linked.end() && at->first == hash;
             ++at)
            if (m_entities.linked(at->second) == entity && accept(at->second)) return at->second;
        return kNoSlot;
    }

    void clear() {
        m_first = {};
        m_links.clear();
        m_linked.clear();
        m_size = 0;
    }

private:
    struct Links {
        Slot next = kNoSlot, before = kNoSlot;
    };

    static std::size_t hashOf(const Entity& entity) {
        return std::hash<std::string_view>()(entity.id) * 31 +
               static_cast<std::size_t>(entity.kind);
    }

    void append(std::vector<Slot>& buckets, Slot slot, std::size_t hash) {
        Slot& first = buckets[hash & (buckets.size() - 1)];
        if (first == kNoSlot) {
            first = slot;
            m_links[slot] = {slot, slot};
            return;
        }
        const Slot last = m_links[first].before;
        m_links[slot] = {first, last};
        m_links[last].next = m_links[first].before = slot;
    }

    // The changes of an entity share a bucket, and so keep their order.
    void grow() {
        std::vector<Slot> grown(m_first.empty() ? 32 : m_first.size() * 2, kNoSlot);
        for (const Slot first : m_first) {
            for (Slot slot = first; slot != kNoSlot;) {
                const Slot next = m_links[slot].next;
                append(grown, slot, hashOf(m_entities.own(slot)));
                slot = next != first ? next : kNoSlot;
            }
        }
        m_first = std::move(grown);
    }

    void addRing(const Entity& entity, std::size_t most, std::vector<Slot>& found) const {
        if (m_size == 0) return;
        const Slot first = m_first[hashOf(entity) & (m_first.size() - 1)];
        for (Slot slot = first; slot != kNoSlot && found.size() < most;) {
            if (m_entities.own(slot) == entity) found.push_back(slot);
            slot = m_links[slot].next != first ? m_links[slot].next : kNoSlot;
        }
    }

    void addLinked(const Entity& entity, std::size_t most, std::vector<Slot>& found) const {
        const std::size_t hash = hashOf(entity);
        for (auto at = m_linked.lower_bound({hash, 0});
             at != m_linked.end() && at->first == hash && found.size() < most; ++at)
            if (m_entities.linked(at->second) == entity) found.push_back(at->second);
    }

    Entities m_entities;
    std::vector<Slot> m_first;  // by bucket: a power of two of them, or none
    std::deque<Links> m_links;  // by slot
    std::set<std::pair<std::size_t, Slot>> m_linked;
    std::size_t m_size = 0;
};

}  // namespace mc
