#include "text/read_number.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "text/characters.h"

namespace mc {
namespace {

// Whether a number that is out of range is too large rather than too small: from its first digit
// that counts to the point, and the exponent on top.
bool isLarge(std::string_view number) {
    constexpr std::int64_t kFar = 1'000'000'000'000;
    const std::size_t exponentAt = std::min(number.find_first_of("eE"), number.size());
    const std::size_t point = std::min(number.find('.'), exponentAt);
    const std::size_t first = number.find_first_of("123456789");
    std::int64_t exponent = 0;
    if (exponentAt < number.size())
        exponent = std::clamp(longIntegerOf(number.substr(exponentAt + 1)), -kFar, kFar);
    return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) + exponent > 0;
}

// The value of an out-of-range number: from_chars says that it is one, not on which side.
double endOfRange(std::string_view number) {
    const double size = isLarge(number) ? std::numeric_limits<double>::infinity() : 0.0;
    return number.front() == '-' ? -size : size;
}

template <class Integer>
Integer readInteger(std::string_view text) {
    text = withoutBlanksBefore(text);
    const bool negative = text.starts_with('-');
    if (text.starts_with("+-")) return 0;
    if (text.starts_with('+')) text.remove_prefix(1);
    Integer value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    return negative ? std::numeric_limits<Integer>::min() : std::numeric_limits<Integer>::max();
}

}  // namespace

std::optional<double> readNumber(std::string_view text) {
    text = withoutBlanksBefore(text);
    if (text.starts_with("+-")) return {};
    if (text.starts_with('+')) text.remove_prefix(1);
    // from_chars would take words for infinity and for no number.
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    const std::size_t first = sign + (text.substr(sign).starts_with('.') ? 1 : 0);
    if (first >= text.size() || !isDigit(text[first])) return {};
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range)
        return endOfRange({text.data(), static_cast<std::size_t>(read.ptr - text.data())});
    return value;
}

double numberOf(std::string_view text) {
    return readNumber(text).value_or(0);
}

std::int32_t integerOf(std::string_view text) {
    return readInteger<std::int32_t>(text);
}

std::int64_t longIntegerOf(std::string_view text) {
    return readInteger<std::int64_t>(text);
}

}  // namespace mc
