#include "listctrl/model/text_search.h"

#include <algorithm>
#include <bit>
#include <cstring>

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
        if (!m_first.empty()) m_mask = ~std::uint64_t{0} >> (64 - 8 * m_first.size());
    }

    std::size_t size() const { return m_text.size(); }

    // Whether the text stands at `at`, where at least its length and eight bytes more are readable.
    bool standsAt(const char* at) const {
        return (loadBytes(at) & m_mask) == m_number &&
               (size() <= 8 || std::memcmp(at + 8, m_text.data() + 8, size() - 8) == 0);
    }

    // Tries sixteen places at once, by the first and last byte; the compiler makes it one step.
    bool standsIn(std::string_view text) const {
        const char front = m_text.front(), back = m_text.back();
        const std::size_t places = text.size() - size() + 1;
        for (std::size_t at = 0; at < places; at += kPlaces) {
            const char* const starts = text.data() + at;
            const char* const ends = starts + size() - 1;
            char hits[kPlaces];
            for (std::size_t i = 0; i < kPlaces; ++i)
                hits[i] = static_cast<char>((starts[i] == front) & (ends[i] == back));
            if ((loadBytes(hits) | loadBytes(hits + 8)) == 0) continue;
            for (std::size_t i = 0; i < std::min(kPlaces, places - at); ++i)
                if (hits[i] != 0 && standsAt(starts + i)) return true;
        }
        return false;
    }

private:
    static constexpr std::size_t kPlaces = 16;
    static_assert(kPlaces <= TextTable::kMargin);

    std::string_view m_text;
    std::string_view m_first;
    std::uint64_t m_number = 0;
    std::uint64_t m_mask = 0;
};

void markAlternative(const FilterPattern::Alternative& alternative, const TextTable& texts,
                     std::vector<std::uint8_t>& marks) {
    const Needle needle(alternative.text);
    const std::size_t size = needle.size();
    switch (alternative.kind) {
        case FilterPattern::Kind::equals:
            return mark(texts, marks, [&](std::string_view text) {
                return text.size() == size && needle.standsAt(text.data());
            });
        case FilterPattern::Kind::startsWith:
            return mark(texts, marks, [&](std::string_view text) {
                return text.size() >= size && needle.standsAt(text.data());
            });
        case FilterPattern::Kind::endsWith:
            return mark(texts, marks, [&](std::string_view text) {
                return text.size() >= size && needle.standsAt(text.data() + text.size() - size);
            });
        case FilterPattern::Kind::contains:
            if (size == 0) return marks.assign(marks.size(), 1);
            return mark(texts, marks, [&](std::string_view text) {
                return text.size() >= size && needle.standsIn(text);
            });
    }
}

// Many whole texts or beginnings: none of them covers another, so only the one that a text would
// stand right behind can match it.
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

void markMatches(const FilterPattern& pattern, const TextTable& texts,
                 std::span<const double> numbers, std::vector<std::uint8_t>& marks) {
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
