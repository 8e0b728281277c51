// dateTimeKey(): a small reader over the parts of a text.
#include <algorithm>
#include <array>
#include <optional>

#include "listctrl/model/table/sort_order.h"
#include "text/filter_pattern.h"

namespace mc {
namespace {

class Reader {
public:
    explicit Reader(std::string_view text) : m_left(text) {}

    bool atEnd() const { return m_left.empty(); }
    std::string_view left() const { return m_left; }

    bool skip(std::string_view anyOf) {
        if (atEnd() || anyOf.find(m_left.front()) == std::string_view::npos) return false;
        m_left.remove_prefix(1);
        return true;
    }

    // The next one to `most` digits.
    std::optional<unsigned> number(std::size_t most) {
        const std::size_t digits = std::min(m_left.find_first_not_of("0123456789"), m_left.size());
        if (digits == 0 || digits > most) return {};
        unsigned value = 0;
        for (const char c : take(digits)) value = value * 10 + static_cast<unsigned>(c - '0');
        return value;
    }

    // The next one to three digits, as the fraction that they are.
    std::optional<unsigned> thousandths() {
        const std::size_t before = m_left.size();
        const auto digits = number(3);
        if (!digits) return {};
        constexpr std::array<unsigned, 4> kScale{0, 100, 10, 1};
        return *digits * kScale[before - m_left.size()];
    }

    // The next word, if its first three letters name a month: 1 to 12.
    std::optional<unsigned> monthName() {
        constexpr std::string_view kNames = "janfebmaraprmayjunjulaugsepoctnovdec";
        const auto isLetter = [](char c) { return lowerCase(c) >= 'a' && lowerCase(c) <= 'z'; };
        const auto end = std::find_if_not(m_left.begin(), m_left.end(), isLetter);
        const auto letters = static_cast<std::size_t>(end - m_left.begin());
        if (letters < 3) return {};
        std::array<char, 3> name{};
        std::transform(m_left.begin(), m_left.begin() + 3, name.begin(), lowerCase);
        for (std::size_t month = 0; month < 12; ++month) {
            if (kNames.substr(month * 3, 3) != std::string_view(name.data(), 3)) continue;
            take(letters);
            return static_cast<unsigned>(month + 1);
        }
        return {};
    }

private:
    std::string_view take(std::size_t count) {
        const std::string_view taken = m_left.substr(0, count);
        m_left.remove_prefix(count);
        return taken;
    }

    std::string_view m_left;
};

// The key has the field of the largest unit on top, so that none can carry into the next.
std::uint64_t field(std::uint64_t value, int bit) {
    return value << bit;
}

std::optional<std::uint64_t> readDate(Reader& reader) {
    const std::size_t before = reader.left().size();
    const auto first = reader.number(4);
    const bool yearFirst = before - reader.left().size() > 2;
    if (!first || !reader.skip("/-")) return {};
    auto month = reader.number(2);
    if (!month) month = reader.monthName();
    if (!month || !reader.skip("/-")) return {};
    const std::size_t beforeLast = reader.left().size();
    const auto last = reader.number(yearFirst ? 2 : 4);
    if (!last) return {};
    unsigned year = yearFirst ? *first : *last;
    if (!yearFirst && beforeLast - reader.left().size() <= 2) year += year < 70 ? 2000 : 1900;
    return field(year, 48) | field(*month, 40) | field(yearFirst ? *last : *first, 33);
}

// "AM" or "PM" at the end: the hour of twelve in the half of the day that it names.
std::optional<unsigned> halfDay(Reader& reader, unsigned hour) {
    reader.skip(" ");
    if (reader.atEnd()) return hour;
    const bool afternoon = reader.skip("Pp");
    if (!afternoon && !reader.skip("Aa")) return {};
    if (!reader.skip("Mm")) return {};
    return hour % 12 + (afternoon ? 12 : 0);
}

std::optional<std::uint64_t> readTime(Reader& reader) {
    auto hour = reader.number(2);
    if (!hour || !reader.skip(":")) return {};
    const auto minute = reader.number(2);
    std::optional<unsigned> second = 0, thousandth = 0;
    if (reader.skip(":")) second = reader.number(2);
    if (reader.skip(".")) thousandth = reader.thousandths();
    if (!minute || !second || !thousandth) return {};
    hour = halfDay(reader, *hour);
    if (!hour) return {};
    return field(*hour, 26) | field(*minute, 19) | field(*second, 12) | field(*thousandth, 1);
}

}  // namespace

std::uint64_t dateTimeKey(std::string_view text) {
    constexpr std::uint64_t kRead = 1;
    Reader reader(text);
    const auto date = readDate(reader);
    if (!date) reader = Reader(text);
    if (date && reader.atEnd()) return *date | kRead;
    if (date && !reader.skip(" T")) return 0;
    const auto time = readTime(reader);
    return time && reader.atEnd() ? date.value_or(0) | *time | kRead : 0;
}

}  // namespace mc
