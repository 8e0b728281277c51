#include "listctrl/model/table/text_search.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "text/text_bytes.h"

namespace mc {
namespace {

using Code = TextTable::Code;
using Alternatives = std::span<const FilterPattern::Alternative>;

static_assert(std::endian::native == std::endian::little, "loadBytes() compares from the front");

template <class Test>
void mark(const TextTable& texts, std::vector<std::uint8_t>& marks, Test test) {
    for (Code code = 0; code < texts.size(); ++code)
        marks[code] |= static_cast<std::uint8_t>(test(texts.lowered(code)));
}

// A text to look for, up to eight bytes of which are compared as one number.
class Needle {
public:
    explicit Needle(std::string_view text)
        : m_text(text), m_first(text.substr(0, std::min<std::size_t>(text.size(), 8))) {
        std::memcpy(&m_number, m_first.data(), m_first.size());
        if (text.empty()) return;
        m_mask = ~std::uint64_t{0} >> (64 - 8 * m_first.size());
        m_front += text.front();
        m_middle += text[text.size() / 2];
        m_back += text.back();
    }

    static constexpr std::size_t kOffsets = 16;
    static_assert(kOffsets <= TextTable::kMargin);

    std::size_t size() const { return m_text.size(); }

    // Whether the text is at `at`, where at least its length and eight bytes more are readable.
    bool isAt(const char* at) const {
        const bool begins = (loadBytes(at) & m_mask) == m_number;
        if (size() <= 8) return begins;
        return begins && std::memcmp(at + 8, m_text.data() + 8, size() - 8) == 0;
    }

    // Tries sixteen offsets from `at` on by the first, middle and last byte; returns the first
    // at which it may be, 16 when there is none. Fifteen bytes more are readable.
    std::size_t mayBeAt(const char* at) const {
        const auto hits = (load(at) == m_front) & (load(at + size() / 2) == m_middle) &
                          (load(at + size() - 1) == m_back);
        std::array<std::uint64_t, 2> halves;
        std::memcpy(&halves, &hits, sizeof halves);
        if ((halves[0] | halves[1]) == 0) return kOffsets;
        const bool second = halves[0] == 0;
        return static_cast<std::size_t>(std::countr_zero(halves[second])) / 8 + (second ? 8 : 0);
    }

private:
    // What one instruction of any x64 processor compares; gcc and clang know it by this name.
    using Bytes = char __attribute__((vector_size(kOffsets)));

    static Bytes load(const char* at) {
        Bytes bytes;
        std::memcpy(&bytes, at, sizeof bytes);
        return bytes;
    }
    std::string_view m_text;
    std::string_view m_first;
    std::uint64_t m_number = 0;
    std::uint64_t m_mask = 0;
    Bytes m_front{}, m_middle{}, m_back{};  // of the text, each sixteen times
};

// One search through all texts as if they were one; only where something is found it matters whose
// it is.
void markContaining(const Needle& needle, const TextTable& texts,
                    std::vector<std::uint8_t>& marks) {
    const std::size_t end = texts.end(static_cast<Code>(texts.size() - 1));
    Code code = 0;
    for (std::size_t at = texts.begin(0); at + needle.size() <= end;) {
        const std::size_t skipped = needle.mayBeAt(texts.lowered() + at);
        if (skipped == Needle::kOffsets) {
            at += Needle::kOffsets;  // not `skipped`: the next step needn't wait for this one
            continue;
        }
        at += skipped;
        if (at + needle.size() > end) break;
        while (texts.end(code) <= at) ++code;
        const bool found =
            at + needle.size() <= texts.end(code) && needle.isAt(texts.lowered() + at);
        if (found) marks[code] = 1;
        at = found ? texts.end(code) : at + 1;
    }
}

void markAlternative(const FilterPattern::Alternative& alternative, const TextTable& texts,
                     std::vector<std::uint8_t>& marks) {
    const Needle needle(alternative.text);
    const std::size_t size = needle.size();
    switch (alternative.kind) {
        case FilterPattern::Kind::equals:
            return mark(texts, marks, [&](std::string_view text) {
                return text.size() == size && needle.isAt(text.data());
            });
        case FilterPattern::Kind::startsWith:
            return mark(texts, marks, [&](std::string_view text) {
                return text.size() >= size && needle.isAt(text.data());
            });
        case FilterPattern::Kind::endsWith:
            return mark(texts, marks, [&](std::string_view text) {
                return text.size() >= size && needle.isAt(text.data() + text.size() - size);
            });
        case FilterPattern::Kind::contains:
            if (size == 0) return marks.assign(marks.size(), 1);
            return markContaining(needle, texts, marks);
    }
}

// Many whole texts or beginnings: none of them covers another, so only the one that a text would
// sort right behind can match it.
void markAnyOf(Alternatives sorted, const TextTable& texts, std::vector<std::uint8_t>& marks) {
    const bool whole = sorted.front().kind == FilterPattern::Kind::equals;
    mark(texts, marks, [&](std::string_view text) {
        const auto behind = std::upper_bound(
            sorted.begin(), sorted.end(), text,
            [](std::string_view cell, const auto& alternative) { return cell < alternative.text; });
        if (behind == sorted.begin()) return false;
        const std::string& nearest = std::prev(behind)->text;
        return whole ? text == nearest : text.starts_with(nearest);
    });
}

// Alternatives of one kind.
void markKind(Alternatives alternatives, const TextTable& texts, std::vector<std::uint8_t>& marks) {
    constexpr std::size_t kFew = 4;
    const auto kind = alternatives.front().kind;
    if (alternatives.size() > kFew &&
        (kind == FilterPattern::Kind::equals || kind == FilterPattern::Kind::startsWith))
        return markAnyOf(alternatives, texts, marks);
    for (const auto& alternative : alternatives) markAlternative(alternative, texts, marks);
}

}  // namespace

void markMatches(const FilterPattern& pattern, TextTable& texts, std::span<const double> numbers,
                 std::vector<std::uint8_t>& marks) {
    texts.lower();
    marks.assign(texts.size(), static_cast<std::uint8_t>(pattern.matchesEverything()));
    if (pattern.asksNumbers())
        for (Code code = 0; code < texts.size(); ++code)
            marks[code] = static_cast<std::uint8_t>(pattern.matchesNumber(numbers[code]));
    for (Alternatives left = pattern.alternatives(); !left.empty();) {
        const auto end = std::find_if(left.begin(), left.end(), [&](const auto& alternative) {
            return alternative.kind != left.front().kind;
        });
        const auto count = static_cast<std::size_t>(end - left.begin());
        markKind(left.first(count), texts, marks);
        left = left.subspan(count);
    }
}

}  // namespace mc
