#include "listctrl/model/table/column_texts.h"

#include <algorithm>
#include <limits>
#include <new>
#include <numeric>
#include <utility>

#include "listctrl/model/table/text_search.h"
#include "listctrl/model/table/text_sort.h"
#include "text/read_number.h"
#include "text/text_bytes.h"

namespace mc {

// Where nearly all texts differ there will be one for each slot: room for them is made at once.
void ColumnTexts::sampled(std::size_t slots) {
    m_shared = m_table.size() < kSample - kSample / 8;
    grow(slots);
    if (!m_shared) m_table.reserve(slots);
}

// A new text is used by no slot so far.
ColumnTexts::Code ColumnTexts::codeFor(std::string_view text) {
    if (!m_shared) return m_table.append(text);
    const Code code = m_table.add(text);
    if (code < m_uses.size()) return code;
    const std::size_t fresh = m_table.size() - m_uses.size();
    m_uses.resize(m_table.size());
    m_unused += fresh;
    return code;
}

// A slot holds the code no longer. When more than half of the texts are unused, and enough of them
// that a pass over all slots is cheap for each, they go; without memory, when there is some.
void ColumnTexts::letGo(Code code) noexcept try {
    if (m_shared && --m_uses[code] != 0) return;
    ++m_unused;
    if (m_unused > 1024 && m_unused > m_table.size() / 2 && m_unused > m_codes.size() / 16)
        rebuild();
} catch (const std::bad_alloc&) {
}

// Keeps the texts that are used alone.
void ColumnTexts::rebuild() {
    TextTable used;
    std::vector<Code> codes(m_table.size(), 0);
    for (const Code code : m_codes)
        if (code != 0 && codes[code] == 0) {
            const std::string_view text = m_table.text(code);
            codes[code] = m_shared ? used.add(text) : used.append(text);
        }
    std::vector<std::uint32_t> uses(used.size(), 0);
    for (Code& code : m_codes) ++uses[code = codes[code]];
    m_table = std::move(used);
    m_uses = std::move(uses);
    m_unused = 0;
    m_numbers.clear();
    m_keys.clear();
}

// From now on slots with equal texts have the same code.
void ColumnTexts::share(const LongWork& work) {
    const std::vector<Code> firsts = m_table.unite([&] { work.did(); });
    std::vector<std::uint32_t> uses(m_table.size(), 0);
    for (Code& code : m_codes) ++uses[code = firsts[code]];
    m_uses = std::move(uses);
    m_unused = static_cast<std::size_t>(std::count(m_uses.begin() + 1, m_uses.end(), 0U));
    m_shared = true;
}

void ColumnTexts::keepMatching(const FilterPattern& pattern, std::vector<Slot>& slots,
                               const LongWork& work) {
    if (pattern.asksNumbers()) readNumbers(work);
    markMatches(pattern, m_table, m_numbers, m_marks);
    work.did(m_table.size());
    std::size_t kept = 0;
    for (const Slot slot : slots) {
        slots[kept] = slot;
        kept += m_marks[m_codes[slot]];
    }
    slots.resize(kept);
}

void ColumnTexts::sort(std::vector<Slot>& slots, Comparison comparison, int direction,
                       const LongWork& work) {
    if (comparison == Comparison::equal) return;
    const auto compareAsText = [&](Slot a, Slot b) {
        work.did();
        return compareTexts(Comparison::text, text(a), text(b));
    };
    // Ranking all texts pays only for rows that show a good part of them.
    if (comparison == Comparison::text && slots.size() < m_table.size() / 8)
        return sortByComparing(slots, direction, compareAsText);
    makeKeys(comparison, work);
    constexpr std::size_t kCounted = 1 << 17;  // counts that the cache holds
    if (comparison == Comparison::text && m_table.size() < kCounted)
        return sortByRanks(slots, direction);
    if (comparison != Comparison::dateTime) return sortByKeys(slots, direction);
    sortByComparing(slots, direction, [&](Slot a, Slot b) {
        work.did();
        return compareDates(text(a), m_keys[m_codes[a]], text(b), m_keys[m_codes[b]]);
    });
}

DistinctValues ColumnTexts::distinct(const SlotSequence& stored, std::span<const Slot> counted,
                                     ValueOrder order, const LongWork& work) {
    if (!m_shared) share(work);
    std::vector<std::size_t> rows(m_table.size());
    for (const Slot slot : counted) ++rows[m_codes[slot]];
    const bool ranked = order == ValueOrder::alphabetical;
    const std::vector<std::uint64_t> ranks =
        ranked ? ranksOf(m_table, work) : std::vector<std::uint64_t>();
    std::vector<bool> seen(m_table.size());
    seen[0] = true;
    std::vector<Keyed> items;
    stored.forEach([&](Slot slot) {
        const Code code = m_codes[slot];
        if (!seen[code]) items.push_back({ranked ? ranks[code] : ~std::uint64_t{rows[code]}, code});
        seen[code] = true;
        work.did();
    });
    std::vector<Keyed> scratch(items.size());
    sortByKey(items, scratch);
    DistinctValues found{{}, counted.size()};
    found.values.reserve(items.size());
    for (const Keyed& item : items) {
        found.values.push_back({std::string(m_table.text(item.value)), rows[item.value]});
        work.did();
    }
    return found;
}

void ColumnTexts::readNumbers(const LongWork& work) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    m_numbers.reserve(m_table.size());
    while (m_numbers.size() < m_table.size()) {
        m_numbers.push_back(
            readNumber(m_table.text(static_cast<Code>(m_numbers.size()))).value_or(kNone));
        work.did();
    }
}

void ColumnTexts::makeKeys(Comparison comparison, const LongWork& work) {
    if (m_keysFor != comparison) m_keys.clear();
    m_keysFor = comparison;
    if (m_keys.size() == m_table.size()) return;
    if (comparison == Comparison::text) {
        m_keys = ranksOf(m_table, work);
        return;
    }
    m_keys.reserve(m_table.size());
    while (m_keys.size() < m_table.size()) {
        m_keys.push_back(sortKey(comparison, m_table.text(static_cast<Code>(m_keys.size()))));
        work.did();
    }
}

// Ranks are numbers below that of the texts: the slots of each are counted, and then put there.
void ColumnTexts::sortByRanks(std::vector<Slot>& slots, int direction) const {
    const auto placeOf = [&, last = m_keys.size() - 1](Slot slot) {
        const auto rank = static_cast<std::size_t>(m_keys[m_codes[slot]]);
        return direction < 0 ? rank : last - rank;
    };
    std::vector<std::uint32_t> begins(m_keys.size() + 1);
    for (const Slot slot : slots) ++begins[placeOf(slot) + 1];
    std::partial_sum(begins.begin(), begins.end(), begins.begin());
    std::vector<Slot> sorted(slots.size());
    for (const Slot slot : slots) sorted[begins[placeOf(slot)]++] = slot;
    slots.swap(sorted);
}

void ColumnTexts::sortByKeys(std::vector<Slot>& slots, int direction) const {
    std::vector<Keyed> items(slots.size()), scratch(slots.size());
    const std::uint64_t turned = direction < 0 ? 0 : ~std::uint64_t{0};
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i] = {m_keys[m_codes[slots[i]]] ^ turned, slots[i]};
    sortByKey(items, scratch);
    for (std::size_t i = 0; i < items.size(); ++i) slots[i] = items[i].value;
}

template <class Compare>
void ColumnTexts::sortByComparing(std::vector<Slot>& slots, int direction, Compare compare) const {
    std::stable_sort(slots.begin(), slots.end(), [&](Slot a, Slot b) {
        return m_codes[a] != m_codes[b] && direction * compare(b, a) < 0;
    });
}

}  // namespace mc
