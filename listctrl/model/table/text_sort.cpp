#include "listctrl/model/table/text_sort.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/text_bytes.h"

namespace mc {
namespace {

constexpr std::size_t kDigits = 8;
using Counts = std::array<std::array<std::uint32_t, 256>, kDigits>;

std::uint8_t digitOf(std::uint64_t key, std::size_t digit) {
    return static_cast<std::uint8_t>(key >> (8 * digit));
}

Counts countDigits(std::span<const Keyed> items) {
    Counts counts{};
    for (const Keyed& item : items)
        for (std::size_t digit = 0; digit < kDigits; ++digit)
            ++counts[digit][digitOf(item.key, digit)];
    return counts;
}

void distribute(std::span<const Keyed> from, std::span<Keyed> to, std::size_t digit,
                const std::array<std::uint32_t, 256>& counts) {
    std::array<std::uint32_t, 256> starts;
    std::uint32_t total = 0;
    for (std::size_t i = 0; i < starts.size(); ++i) {
        starts[i] = total;
        total += counts[i];
    }
    for (const Keyed& item : from) to[starts[digitOf(item.key, digit)]++] = item;
}

// Eight bytes of a text from `depth` on as a number that orders as they do.
std::uint64_t bytesAt(std::string_view text, std::size_t depth) {
    if (depth >= text.size()) return 0;
    const std::uint64_t bytes = __builtin_bswap64(loadBytes(text.data() + depth));
    const std::size_t left = text.size() - depth;
    return left >= 8 ? bytes : bytes & ~(~std::uint64_t{0} >> (8 * left));
}

// Ranks texts that are equal up to a depth.
class Ranking {
public:
    Ranking(const TextTable& texts, const LongWork& work)
        : m_texts(texts), m_work(work), m_ranks(texts.size()) {}

    // The first of `codes` gets the rank `first`. They are sorted by their next eight bytes, then
    // each run of equal ones by the bytes behind.
    void rank(std::span<Keyed> codes, std::span<Keyed> scratch, std::size_t depth,
              std::uint64_t first) {
        constexpr std::size_t kFew = 48, kDeep = 64;
        m_work.did(codes.size());
        if (codes.size() <= kFew || depth >= kDeep) return rankFew(codes, first);
        for (Keyed& item : codes) item.key = bytesAt(m_texts.text(item.value), depth);
        sortByKey(codes, scratch);
        for (std::size_t begin = 0, end = 0; begin < codes.size(); begin = end) {
            while (end < codes.size() && codes[end].key == codes[begin].key) ++end;
            const std::size_t run = end - begin;
            rank(codes.subspan(begin, run), scratch.first(run), depth + 8, first + begin);
        }
    }

    std::vector<std::uint64_t>& ranks() { return m_ranks; }

private:
    void rankFew(std::span<Keyed> codes, std::uint64_t first) {
        const auto text = [this](const Keyed& item) { return m_texts.text(item.value); };
        if (codes.size() > 1) std::ranges::sort(codes, {}, text);
        for (std::size_t i = 0; i < codes.size(); ++i)
            m_ranks[codes[i].value] = i > 0 && text(codes[i]) == text(codes[i - 1])
                                          ? m_ranks[codes[i - 1].value]
                                          : first + i;
    }

    const TextTable& m_texts;
    const LongWork& m_work;
    std::vector<std::uint64_t> m_ranks;
};

}  // namespace

void sortByKey(std::span<Keyed> items, std::span<Keyed> scratch) {
    if (items.empty()) return;
    const Counts counts = countDigits(items);
    std::span<Keyed> from = items, to = scratch;
    for (std::size_t digit = 0; digit < kDigits; ++digit) {
        const std::uint8_t any = digitOf(items.front().key, digit);
        if (counts[digit][any] == items.size()) continue;
        distribute(from, to, digit, counts[digit]);
        std::swap(from, to);
    }
    if (from.data() != items.data()) std::copy(from.begin(), from.end(), items.begin());
}

std::vector<std::uint64_t> ranksOf(const TextTable& texts, const LongWork& work) {
    std::vector<Keyed> codes(texts.size()), scratch(texts.size());
    for (std::uint32_t code = 0; code < codes.size(); ++code) codes[code].value = code;
    Ranking ranking(texts, work);
    ranking.rank(codes, scratch, 0, 0);
    return std::move(ranking.ranks());
}

}  // namespace mc
