// The index of the pending changes by what they are about: from an entity to the slots of its
// changes.
//
// It is asked when a checker looks at a change, far less often than changes come: a new slot is
// taken in with the next question, and costs nothing before. Entities of the same bucket are a
// ring, so that removing one costs the same however many changes an entity has. A slot takes
// sixteen bytes once it is taken in, and each entity two to four for its bucket. One thread.
#pragma once

#include <cstddef>
#include <deque>
#include <initializer_list>
#include <new>
#include <utility>
#include <vector>

#include "link/model/entity.h"
#include "listctrl/model/table/slot_sequence.h"
#include "text/text_bytes.h"

namespace mc {

// `Entities` tells what the change in a slot is about, `Entity own(Slot)` and `Entity
// linked(Slot)`, neither of which changes while the slot is in the index; and which slots there
// are: `Slot end()`, behind the largest, and `bool pending(Slot)`.
template <class Entities>
class EntityIndex {
public:
    explicit EntityIndex(Entities entities) : m_entities(std::move(entities)) {}

    // The slot is pending from now on, or about something else. Without memory the next question
    // takes in all slots again.
    void insert(Slot slot) try {
        if (slot < m_end) add(slot);
    } catch (const std::bad_alloc&) {
        clear();
    }

    // Removes a slot; one that is not there is ignored.
    void erase(Slot slot) {
        remove(2 * slot);
        remove(2 * slot + 1);
    }

    // The slots of the changes about any of the entities, `most` at most, each entity's together.
    // Costs a look at each slot found, and at those of the same bucket before them; and, the first
    // time after they came, reading the texts of new ones.
    std::vector<Slot> find(std::initializer_list<Entity> entities, std::size_t most) {
        std::vector<Slot> found;
        for (const Entity& entity : entities)
            if (found.size() < most)
                findIf(entity, [&](Slot slot) {
                    found.push_back(slot);
                    return found.size() == most;
                });
        return found;
    }

    // A slot of a change about the entity that `accept(slot)` takes; kNoSlot when none is.
    template <class Accept>
    Slot findIf(const Entity& entity, Accept accept) {
        catchUp();
        if (entity.kind == EntityKind::none || m_size == 0) return kNoSlot;
        const Node first = bucketOf(entity);
        for (Node node = first; node != kNone;) {
            if (entityOf(node) == entity && accept(node / 2)) return node / 2;
            node = m_links[node].next != first ? m_links[node].next : kNone;
        }
        return kNoSlot;
    }

    void clear() {
        m_first = {};
        m_links.clear();
        m_size = 0;
        m_end = 0;
    }

private:
    // What a slot is about is a node twice its number, what is linked is the one behind.
    using Node = Slot;
    static constexpr Node kNone = ~Node{0};

    struct Links {
        Node next = kNone, before = kNone;
    };

    Entity entityOf(Node node) const {
        return node % 2 == 0 ? m_entities.own(node / 2) : m_entities.linked(node / 2);
    }

    Node& bucketOf(const Entity& entity) {
        const std::size_t hash =
            std::size_t{hashOf(entity.id)} * 31 + static_cast<std::size_t>(entity.kind);
        return m_first[hash & (m_first.size() - 1)];
    }

    void catchUp() try {
        const Slot end = m_entities.end();
        if (m_end >= end) return;
        m_links.resize(std::size_t{end} * 2);
        makeRoom(m_size + (end - m_end));
        for (Slot slot = std::exchange(m_end, end); slot < end; ++slot)
            if (m_entities.pending(slot)) add(slot);
    } catch (...) {
        clear();
        throw;
    }

    void add(Slot slot) {
        for (const Node node : {2 * slot, 2 * slot + 1}) {
            const Entity entity = entityOf(node);
            if (entity.kind == EntityKind::none) continue;
            makeRoom(m_size + 1);
            append(bucketOf(entity), node);
            ++m_size;
        }
    }

    void append(Node& first, Node node) {
        if (first == kNone) {
            first = node;
            m_links[node] = {node, node};
            return;
        }
        const Node last = m_links[first].before;
        m_links[node] = {first, last};
        m_links[last].next = m_links[first].before = node;
    }

    void remove(Node node) {
        if (node >= m_links.size() || m_links[node].next == kNone) return;
        Node& first = bucketOf(entityOf(node));
        const Links links = std::exchange(m_links[node], Links{});
        --m_size;
        if (links.next == node) {
            first = kNone;
            return;
        }
        m_links[links.before].next = links.next;
        m_links[links.next].before = links.before;
        if (first == node) first = links.next;
    }

    // Doubles the buckets until no more than two of `count` nodes share one. Those of an entity
    // share theirs afterwards as well, and so keep their order.
    void makeRoom(std::size_t count) {
        if (count <= m_first.size() * 2) return;
        std::size_t buckets = m_first.empty() ? 32 : m_first.size();
        while (count > buckets * 2) buckets *= 2;
        const auto before = std::exchange(m_first, std::vector<Node>(buckets, kNone));
        for (const Node first : before) {
            for (Node node = first; node != kNone;) {
                const Node next = m_links[node].next;
                append(bucketOf(entityOf(node)), node);
                node = next != first ? next : kNone;
            }
        }
    }

    Entities m_entities;
    std::vector<Node> m_first;  // by bucket: a power of two of them, or none
    std::deque<Links> m_links;  // by node
    std::size_t m_size = 0;     // of the nodes
    Slot m_end = 0;             // behind the slots that were taken in
};

}  // namespace mc
