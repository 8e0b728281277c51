#include "listctrl/model/table/sort_order.h"

#include <array>
#include <bit>

#include "text/filter_pattern.h"
#include "text/read_number.h"

namespace mc {
namespace {

constexpr std::array kComparisons = {
    Comparison::equal,        // 0
    Comparison::integer,      // 1
    Comparison::number,       // 2
    Comparison::text,         // 3
    Comparison::longInteger,  // 4
    Comparison::number,       // 5
    Comparison::dateTime,     // 6
    Comparison::number,       // 7
    Comparison::text,         // 8
    Comparison::number,       // 9
};

constexpr std::uint64_t kTopBit = std::uint64_t{1} << 63;

template <class Value>
int compareValues(const Value& a, const Value& b) {
    return static_cast<int>(a > b) - static_cast<int>(a < b);
}

double cellNumber(std::string_view text) {
    return text == "-" || text == "NA" ? -1.0 : numberOf(text);
}

std::uint64_t keyOf(std::int64_t value) {
    return static_cast<std::uint64_t>(value) ^ kTopBit;
}

// Numbers order as their bits do once negative ones are turned round. -0 is 0.
std::uint64_t keyOf(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value == 0 ? 0.0 : value);
    return (bits & kTopBit) != 0 ? ~bits : bits | kTopBit;
}

std::uint64_t firstBytes(std::string_view text) {
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < sizeof key; ++i)
        key = key << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0);
    return key;
}

}  // namespace

Comparison comparisonOf(int dataType) {
    if (dataType < 0 || static_cast<std::size_t>(dataType) >= kComparisons.size())
        return Comparison::equal;
    return kComparisons[static_cast<std::size_t>(dataType)];
}

int compareDates(std::string_view a, std::uint64_t keyA, std::string_view b, std::uint64_t keyB) {
    if (a.size() != b.size() || (keyA == 0 && keyB == 0)) return compareValues(a, b);
    return compareValues(keyA, keyB);
}

int compareTexts(Comparison comparison, std::string_view a, std::string_view b) {
    switch (comparison) {
        case Comparison::equal:
            return 0;
        case Comparison::integer:
            return compareValues(integerOf(a), integerOf(b));
        case Comparison::number:
            return compareValues(cellNumber(a), cellNumber(b));
        case Comparison::text:
            return compareValues(a, b);
        case Comparison::longInteger:
            return compareValues(longIntegerOf(a), longIntegerOf(b));
        case Comparison::dateTime:
            return compareDates(a, dateTimeKey(a), b, dateTimeKey(b));
    }
    return 0;
}

int compareRows(const SortOrder& order, std::string_view a, std::string_view b) {
    return order.direction * compareTexts(order.comparison, b, a);
}

std::uint64_t sortKey(Comparison comparison, std::string_view text) {
    switch (comparison) {
        case Comparison::equal:
            return 0;
        case Comparison::integer:
            return keyOf(std::int64_t{integerOf(text)});
        case Comparison::number:
            return keyOf(cellNumber(text));
        case Comparison::text:
            return firstBytes(text);
        case Comparison::longInteger:
            return keyOf(longIntegerOf(text));
        case Comparison::dateTime:
            return dateTimeKey(text);
    }
    return 0;
}

}  // namespace mc
