#include "text/number_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace mc {
namespace {
constexpr std::size_t kMaxDigits = 19;  // that 64 bits always hold

constexpr std::array<double, kMaxDigits + 1> kPowersOfTen{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,
                                                          1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13,
                                                          1e14, 1e15, 1e16, 1e17, 1e18, 1e19};

constexpr int kFractionBits = 52;
constexpr std::uint64_t kHiddenBit = std::uint64_t{1} << kFractionBits;

// The number of hundredths in |value|, rounded, a tie to the even one. |value| is below 2^52.
std::uint64_t hundredths(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const auto exponent = static_cast<int>(bits >> kFractionBits & 0x7FF);
    const std::uint64_t fraction = bits & (kHiddenBit - 1);
    // |value| is exactly whole / 2^shift, and the shift is at least 1.
    const std::uint64_t whole = exponent == 0 ? fraction : fraction | kHiddenBit;
    const int shift = 1075 - std::max(exponent, 1);
    if (shift > 63) return 0;
    const std::uint64_t scaled = whole * 100;
    const std::uint64_t result = scaled >> shift;
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    const std::uint64_t rest = scaled - (result << shift);
    return result + (rest + (result & 1) > half ? 1 : 0);
}

// A plain number, behind a sign or not.
std::optional<double> readSigned(std::string_view text) {
    if (!text.starts_with('-')) return readPlainNumber(text.substr(text.starts_with('+') ? 1 : 0));
    const auto number = readPlainNumber(text.substr(1));
    return number ? std::optional(-*number) : std::nullopt;
}
}  // namespace

std::optional<double> readPlainNumber(std::string_view text) {
    std::uint64_t digits = 0;
    std::size_t at = 0;
    const auto takeDigits = [&] {
        for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at)
            digits = digits * 10 + static_cast<unsigned>(text[at] - '0');
    };
    takeDigits();
    const std::size_t wholes = at;
    if (at < text.size() && text[at] == '.') ++at;
    const std::size_t decimalsAt = at;
    takeDigits();
    const std::size_t decimals = at - decimalsAt;
    if (at < text.size() || wholes + decimals == 0) return std::nullopt;
    // Up to here both operands of the division are exact, and so its result is the nearest double.
    constexpr std::uint64_t kExact = std::uint64_t{1} << std::numeric_limits<double>::digits;
    if (text.size() > kMaxDigits || digits > kExact)
        return std::strtod(std::string(text).c_str(), nullptr);
    const auto value = static_cast<double>(digits);
    return decimals == 0 ? value : value / kPowersOfTen[decimals];
}

std::optional<double> readWholeNumber(std::string_view text) {
    if (const auto number = readSigned(text)) return number;
    const std::string terminated(text);
    char* end = nullptr;
    const double value = std::strtod(terminated.c_str(), &end);
    if (end != terminated.c_str() + terminated.size()) return std::nullopt;
    return value;
}

void appendTwoDecimals(double value, std::string& text) {
    std::array<char, std::numeric_limits<double>::max_exponent10 + 6> room;
    char* const end = room.data() + room.size();
    char* at = room.data();
    if (std::isnan(value)) {
        text += "nan";
        return;
    }
    if (std::fabs(value) < static_cast<double>(kHiddenBit)) {
        const std::uint64_t number = hundredths(value);
        if (std::signbit(value)) *at++ = '-';
        at = std::to_chars(at, end, number / 100).ptr;
        *at++ = '.';
        *at++ = static_cast<char>('0' + number / 10 % 10);
        *at++ = static_cast<char>('0' + number % 10);
    } else {
        at = std::to_chars(at, end, value, std::chars_format::fixed, 2).ptr;
    }
    text.append(room.data(), at);
}

}  // namespace mc
