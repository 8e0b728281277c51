// The texts of one column, kept by slot so that a pass over all records reads none of them twice.
//
// Each different text is stored once and a slot holds its code: a filter is tried, a number read
// and a sort key made once per different text, not per record. Where nearly all texts differ,
// looking each up would take several times as long as all of that: there each slot's is stored,
// until somebody asks for the different ones. What is derived from the texts is made when first
// asked for and grows with them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "listctrl/model/table/distinct_values.h"
#include "listctrl/model/table/long_work.h"
#include "listctrl/model/table/slot_sequence.h"
#include "listctrl/model/table/sort_order.h"
#include "listctrl/model/table/text_table.h"
#include "text/filter_pattern.h"
#include "text/text_bytes.h"

namespace mc {

class ColumnTexts {
public:
    // Makes room for slots below `slots`; their texts are empty.
    void grow(std::size_t slots) { growBySlot(m_codes, slots); }

    // Reads the texts of many slots, none of which has one yet, in one pass. Of no use where it is
    // ended on the way.
    template <class Read>
    void fill(const SlotSequence& slots, Read read, const LongWork& work = {}) {
        std::size_t left = kSample;
        slots.forEach([&](Slot slot) {
            if (m_shared) {
                set(slot, read(slot));
            } else {
                grow(slot + std::size_t{1});
                m_codes[slot] = m_table.append(read(slot));
            }
            if (--left == 0) sampled(slots.size());
            work.did();
        });
    }

    // Sets a slot's text, making room if there is none; returns whether it was another. Costs a
    // look-up among the different texts. Now and then, when most of these belong to no slot any
    // longer, one pass lets them go.
    bool set(Slot slot, std::string_view text) {
        grow(slot + std::size_t{1});
        return put(slot, codeFor(slot, text));
    }

    // The two steps of set() for a slot that there is room for: the first may run out of memory,
    // the second gives the slot what the first found, and cannot.
    using Code = TextTable::Code;
    Code codeFor(Slot slot, std::optional<std::string_view> text) {
        const Code before = m_codes[slot];
        if (!text || (before != 0 && same(m_table.text(before), *text))) return before;
        return codeFor(*text);
    }
    bool put(Slot slot, Code code) noexcept {
        const Code before = std::exchange(m_codes[slot], code);
        if (before == code) return false;
        if (m_shared && code != 0) m_unused -= m_uses[code]++ == 0;
        if (before != 0) letGo(before);
        return true;
    }

    // The slot's text; it lives until the next set().
    std::string_view text(Slot slot) const { return m_table.text(m_codes[slot]); }

    // The slot's text will be read or set soon: it comes into the cache meanwhile.
    void prefetch(Slot slot) const { prefetchBySlot(m_codes, slot); }

    // Each of these three may be ended on the way: `slots` are then of no use, and the texts as
    // good as before.

    // Takes the slots out whose texts don't match.
    void keepMatching(const FilterPattern& pattern, std::vector<Slot>& slots,
                      const LongWork& work = {});

    // Sorts slots by the column; those that compare equal keep their order.
    void sort(std::vector<Slot>& slots, Comparison comparison, int direction,
              const LongWork& work = {});

    // The different texts of all `stored` slots, each with how many of `counted` hold it. One pass
    // over both, and one over the different texts; the first time after fill(), looks all up.
    DistinctValues distinct(const SlotSequence& stored, std::span<const Slot> counted,
                            ValueOrder order, const LongWork& work = {});

private:
    static constexpr std::size_t kSample = 1024;  // texts that tell whether nearly all differ

    void sampled(std::size_t slots);
    Code codeFor(std::string_view text);
    void letGo(Code code) noexcept;
    void rebuild();
    void share(const LongWork& work);
    void readNumbers(const LongWork& work);
    void makeKeys(Comparison comparison, const LongWork& work);
    void sortByRanks(std::vector<Slot>& slots, int direction) const;
    void sortByKeys(std::vector<Slot>& slots, int direction) const;
    template <class Compare>
    void sortByComparing(std::vector<Slot>& slots, int direction, Compare compare) const;

    TextTable m_table;
    bool m_shared = true;                     // slots with equal texts have the same code
    std::vector<Code> m_codes;                // by slot
    std::vector<std::uint32_t> m_uses = {0};  // by code, if shared: slots that hold it; not code 0
    std::size_t m_unused = 0;                 // codes that no slot holds

    // By code, as far as made: what filters on numbers and the last sort asked for.
    std::vector<double> m_numbers;
    std::vector<std::uint64_t> m_keys;
    Comparison m_keysFor = Comparison::equal;
    std::vector<std::uint8_t> m_marks;  // of the current filter
};

}  // namespace mc
