// Reads numbers from the front of texts, without allocation and independent of the locale: leading
// blanks are skipped, and whatever follows the number is ignored ("12.5 lots" reads as 12.5,
// "1,000" as 1, "1e" as 1).
//
// A number is decimal: "inf", "nan" and hexadecimal forms are no numbers ("0x1F" reads as 0), so
// that a reading is never NaN and numbers are totally ordered. What is too large for the type
// becomes its nearest end: infinity for floating numbers, the smallest or largest integer.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace mc {

// The floating number that the text begins with, or none.
std::optional<double> readNumber(std::string_view text);

// The same, 0 when there is none.
double numberOf(std::string_view text);

// The whole number that the text begins with, 0 when there is none.
std::int32_t integerOf(std::string_view text);
std::int64_t longIntegerOf(std::string_view text);

// A whole text that is an integer: digits of the base, behind "-" if the type has a sign. None for
// any other text and for what is too large for the type.
template <class Integer>
std::optional<Integer> wholeInteger(std::string_view text, int base = 10) {
    Integer value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return value;
}

}  // namespace mc
