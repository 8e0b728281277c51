// The order of a list's rows: which column, compared how, in which direction.
#pragma once

#include <cstdint>
#include <string_view>

#include "listctrl/model/columns/column_info.h"

namespace mc {

// How the texts of a column are compared.
enum class Comparison {
    equal,        // not at all: sorting by the column leaves the rows as they are
    integer,      // as 32-bit whole numbers
    number,       // as floating numbers; exactly "-" and "NA" count as -1
    text,         // byte by byte, unsigned
    longInteger,  // as 64-bit whole numbers
    dateTime,     // texts of one length as dates and times, of different length as texts
};

// The comparison of a column's data type, 1 to 9; equal for any other.
Comparison comparisonOf(int dataType);

struct SortOrder {
    ColumnId column{};
    Comparison comparison = Comparison::equal;
    int direction = -1;  // -1: the smallest first, +1: the largest first

    bool operator==(const SortOrder&) const = default;
};

// Whether sortKey() is the whole comparison.
constexpr bool isNumeric(Comparison comparison) {
    return comparison == Comparison::integer || comparison == Comparison::number ||
           comparison == Comparison::longInteger;
}

// Less than, equal to or greater than 0 as `a` is smaller than, equal to or greater than `b`.
int compareTexts(Comparison comparison, std::string_view a, std::string_view b);

// The same for two rows in the order: negative when the row with the text `a` comes first.
int compareRows(const SortOrder& order, std::string_view a, std::string_view b);

// A number that orders as the text does, read once per text. For integers and numbers it is the
// whole comparison. For dates it is dateTimeKey(); for texts the first eight bytes, so that equal
// keys still leave the rest to compare.
std::uint64_t sortKey(Comparison comparison, std::string_view text);

// compareTexts() for dates whose keys are at hand.
int compareDates(std::string_view a, std::uint64_t keyA, std::string_view b, std::uint64_t keyB);

// The moment a text names, as a number that grows with time and is 0 for none.
//
// Read are "dd/mm/yyyy" and "yyyy/mm/dd" (distinguished by which part has four digits; "-"
// separates as well; the month may be a name, of which three letters count; years of two digits are
// 1970 to 2069), "hh:mm", "hh:mm:ss" with fractions, each with or without "AM" or "PM", and a date
// followed by a time. A time before noon comes before one after, whatever its digits. Ranges are
// not checked: "31/02" orders behind "30/02".
std::uint64_t dateTimeKey(std::string_view text);

}  // namespace mc
