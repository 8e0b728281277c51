// Which records of a list are visible, in which order, and which row each has.
//
// Rows count from the top of the window. They are the records in order, or, while the list is
// reversed, from the last record to the first: an index counts the records and stays as it is. No
// row is kept anywhere, it is counted when asked for, in a time that grows with the logarithm of
// the number of records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "listctrl/model/table/slot_sequence.h"

namespace mc {

class VisibleRows {
public:
    // Rows the list reports. Differs from the visible records only after a failed filter pass.
    std::size_t count() const { return m_count; }

    // The record in a row; kNoSlot beyond the end.
    Slot slotAt(std::size_t row) const {
        if (row >= m_count) return kNoSlot;
        const std::size_t index = mirrored(row);
        return index < m_order.size() ? m_order.at(index) : kNoSlot;
    }

    // The row of a record; none when it is not visible.
    std::optional<std::size_t> rowOf(Slot slot) const {
        return m_order.contains(slot) ? std::optional(mirrored(m_order.rowOf(slot))) : std::nullopt;
    }

    // The row of the record at an index, or the index of that in a row.
    std::size_t mirrored(std::size_t index) const {
        return m_reversed ? m_count - 1 - index : index;
    }
    bool reversed() const { return m_reversed; }
    void setReversed(bool reversed) {
        m_reversed = reversed;
        ++m_revision;
    }

    // Another value after every change of which records have rows, and which.
    std::uint64_t revision() const { return m_revision; }

    // The visible records by index.
    const SlotSequence& order() const { return m_order; }

    // The index of the first record of which `before` does not hold; it holds of none behind that.
    // `without` is the index of a record that is left out of both, or kNone.
    static constexpr std::size_t kNone = ~std::size_t{0};
    template <class Before>
    std::size_t firstNot(Before before, std::size_t without = kNone) const {
        std::size_t first = 0;
        for (std::size_t count = m_order.size() - (without != kNone); count > 0;) {
            const std::size_t half = count / 2;
            if (before(m_order.at(first + half + (first + half >= without)))) {
                first += half + 1;
                count -= half + 1;
            } else {
                count = half;
            }
        }
        return first;
    }

    // Makes room for slots below `count`.
    void grow(std::size_t count) { m_order.homes().grow(count); }

    // The next insert() asks for no memory.
    void makeRoom() { m_order.makeRoom(); }

    void insert(std::size_t index, Slot slot) {
        m_order.insert(index, slot);
        ++m_count;
        ++m_revision;
    }
    // Returns the index that the record had.
    std::size_t remove(Slot slot) {
        --m_count;
        ++m_revision;
        return m_order.remove(slot);
    }
    // Other records, in other order; the number of rows is as it was until recount().
    void assign(std::span<const Slot> slots) {
        m_order.assign(slots);
        ++m_revision;
    }
    void recount() { m_count = m_order.size(); }
    void reset() {
        m_order.reset();
        m_count = 0;
        ++m_revision;
    }

private:
    SlotSequence m_order;
    std::size_t m_count = 0;
    std::uint64_t m_revision = 0;
    bool m_reversed = false;
};

}  // namespace mc
