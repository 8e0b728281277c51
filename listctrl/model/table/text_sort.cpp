#include "listctrl/model/table/text_sort.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

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

// As many bytes of some texts as fit in one number that orders as they do: each takes the bits that
// tell apart what comes at its offset, the end of a text before any byte.
class Packing {
public:
    // One of the texts, from where they are packed on.
    void see(std::string_view text) {
        const std::size_t size = std::min(text.size(), kMaxBytes);
        m_shortest = std::min(m_shortest, size);
        for (std::size_t at = 0; at < size; ++at) {
            const auto byte = static_cast<unsigned char>(text[at]);
            m_seen[at][byte / 64] |= std::uint64_t{1} << byte % 64;
        }
    }

    // All were seen. Returns how many bytes are packed.
    std::size_t settle() {
        int left = 64;
        for (m_bytes = 0; m_bytes < kMaxBytes; ++m_bytes) {
            std::uint64_t different = m_shortest <= m_bytes;
            for (const std::uint64_t bits : m_seen[m_bytes])
                different += static_cast<std::uint64_t>(std::popcount(bits));
            left -= static_cast<int>(std::bit_width(different - 1));
            if (left < 0) break;
            std::uint64_t next = m_shortest <= m_bytes;
            for (std::size_t i = 0; i < 4; ++i)
                for (std::uint64_t bits = m_seen[m_bytes][i]; bits != 0; bits &= bits - 1)
                    m_values[m_bytes][i * 64 + static_cast<std::size_t>(std::countr_zero(bits))] =
                        next++ << left;
        }
        m_seen = {};
        m_shortest = kMaxBytes;
        return m_bytes;
    }

    std::uint64_t pack(std::string_view text) const {
        std::uint64_t key = 0;
        for (std::size_t at = 0; at < std::min(text.size(), m_bytes); ++at)
            key |= m_values[at][static_cast<unsigned char>(text[at])];
        return key;
    }

private:
    static constexpr std::size_t kMaxBytes = 16;
    std::array<std::array<std::uint64_t, 4>, kMaxBytes> m_seen{};  // bits by offset and byte
    std::size_t m_shortest = kMaxBytes;
    std::size_t m_bytes = 0;
    std::array<std::array<std::uint64_t, 256>, kMaxBytes> m_values;  // of the bytes that were seen
};

// Ranks texts that are equal up to a depth.
class Ranking {
public:
    Ranking(const TextTable& texts, const LongWork& work)
        : m_texts(texts), m_work(work), m_ranks(texts.size()) {}

    // The first of `codes` gets the rank `first`. They are sorted by the bytes that are packed
    // next, then each run of equal ones by those behind.
    void rank(std::span<Keyed> codes, std::span<Keyed> scratch, std::size_t depth,
              std::uint64_t first) {
        constexpr std::size_t kFew = 48, kDeep = 64;
        m_work.did(codes.size());
        if (codes.size() <= kFew || depth >= kDeep) return rankFew(codes, first);
        const auto rest = [&](const Keyed& item) {
            const std::string_view text = m_texts.text(item.value);
            return text.substr(std::min(text.size(), depth));
        };
        for (const Keyed& item : codes) m_packing.see(rest(item));
        const std::size_t packed = m_packing.settle();
        for (Keyed& item : codes) item.key = m_packing.pack(rest(item));
        sortByKey(codes, scratch);
        for (std::size_t begin = 0, end = 0; begin < codes.size(); begin = end) {
            while (end < codes.size() && codes[end].key == codes[begin].key) ++end;
            const std::size_t run = end - begin;
            if (run == 1)
                m_ranks[codes[begin].value] = first + begin;
            else
                rank(codes.subspan(begin, run), scratch.first(run), depth + packed, first + begin);
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
    Packing m_packing;
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
