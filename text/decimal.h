// Plain decimal numbers as texts of any length: read, compared and worked with exactly.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace mc {

// A sign, digits and at most one point, without what does not change the value: "007.50" is 7.5.
// Zero has no sign and no digits.
struct Decimal {
    bool negative = false;
    std::string whole, fraction;  // no leading zeros; no trailing zeros
    bool operator==(const Decimal&) const = default;

    bool isZero() const { return whole.empty() && fraction.empty(); }
    std::string text() const;  // "-1234.5", "0"
};

// The number that a whole text is; none for any other text.
std::optional<Decimal> readDecimal(std::string_view text);

// The exact difference a - b.
Decimal difference(const Decimal& a, const Decimal& b);

// How many times ten `a` would have to be taken to be `b`, whatever the signs; none when its digits
// are others, or one is zero. 15 to 1500 are 2, 1500 to 15 are -2.
std::optional<std::ptrdiff_t> powerOfTenBetween(const Decimal& a, const Decimal& b);

// |part| in per cent of |whole|, in tenths of a per cent, rounded half up. None when `whole` is
// zero, or the result has more than nine digits.
std::optional<long long> perMille(const Decimal& part, const Decimal& whole);

}  // namespace mc
