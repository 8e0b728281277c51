#include "text/decimal.h"

#include <algorithm>

#include "text/characters.h"

namespace mc {
namespace {

constexpr long long kMaxPerMille = 999'999'999;

Decimal normal(bool negative, std::string_view whole, std::string_view fraction) {
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    fraction = fraction.substr(0, fraction.find_last_not_of('0') + 1);
    const bool zero = whole.empty() && fraction.empty();
    return {negative && !zero, std::string(whole), std::string(fraction)};
}

bool isAllDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isDigit);
}

// ---- Digits without a point ----

// The digits of both, with as many behind the point and as many in all.
struct Aligned {
    std::string a, b;
    std::size_t behind;
};

Aligned aligned(const Decimal& a, const Decimal& b) {
    const std::size_t front = std::max(a.whole.size(), b.whole.size());
    const std::size_t behind = std::max(a.fraction.size(), b.fraction.size());
    const auto digits = [&](const Decimal& number) {
        return std::string(front - number.whole.size(), '0') + number.whole + number.fraction +
               std::string(behind - number.fraction.size(), '0');
    };
    return {digits(a), digits(b), behind};
}

// `larger` becomes larger - smaller; both have as many digits.
void subtract(std::string& larger, std::string_view smaller) {
    int borrow = 0;
    for (std::size_t i = larger.size(); i-- > 0;) {
        int digit = larger[i] - smaller[i] - borrow;
        borrow = digit < 0 ? 1 : 0;
        if (borrow != 0) digit += 10;
        larger[i] = static_cast<char>('0' + digit);
    }
}

// With a leading digit for the carry.
std::string sum(std::string_view a, std::string_view b) {
    std::string result(a.size() + 1, '0');
    int carry = 0;
    for (std::size_t i = a.size(); i-- > 0;) {
        const int digit = a[i] - '0' + b[i] - '0' + carry;
        result[i + 1] = static_cast<char>('0' + digit % 10);
        carry = digit / 10;
    }
    result[0] = static_cast<char>('0' + carry);
    return result;
}

// The significant digits, and the power of ten of the first one.
struct Significant {
    std::string digits;
    std::ptrdiff_t power;
};

Significant significant(const Decimal& number) {
    std::string digits = number.whole + number.fraction;
    const std::size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
    digits.erase(0, zeros);
    digits.erase(digits.find_last_not_of('0') + 1);
    return {digits,
            static_cast<std::ptrdiff_t>(number.whole.size()) - static_cast<std::ptrdiff_t>(zeros)};
}

}  // namespace

std::string Decimal::text() const {
    std::string result = negative ? "-" : "";
    result += whole.empty() ? "0" : whole;
    return fraction.empty() ? result : result + "." + fraction;
}

std::optional<Decimal> readDecimal(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    const auto point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    if (whole.size() + fraction.size() == 0 || !isAllDigits(whole) || !isAllDigits(fraction))
        return std::nullopt;
    return normal(negative, whole, fraction);
}

Decimal difference(const Decimal& a, const Decimal& b) {
    auto [left, right, behind] = aligned(a, b);
    bool negative = a.negative;
    if (a.negative != b.negative) {
        left = sum(left, right);
    } else if (left >= right) {
        subtract(left, right);
    } else {
        subtract(right, left);
        left.swap(right);
        negative = !negative;
    }
    const std::string_view digits = left;
    return normal(negative, digits.substr(0, digits.size() - behind),
                  digits.substr(digits.size() - behind));
}

std::optional<std::ptrdiff_t> powerOfTenBetween(const Decimal& a, const Decimal& b) {
    const Significant from = significant(a), to = significant(b);
    if (from.digits.empty() || from.digits != to.digits) return std::nullopt;
    return to.power - from.power;
}

// Long division, digit by digit, of both without their points.
std::optional<long long> perMille(const Decimal& part, const Decimal& whole) {
    if (whole.isZero()) return std::nullopt;
    const Aligned digits = aligned(part, whole);
    const std::string divisor = "0" + digits.b;  // room for the remainder's next digit
    std::string remainder(divisor.size(), '0');
    long long quotient = 0;
    const auto bringDown = [&](char digit) {
        remainder.erase(0, 1);
        remainder.push_back(digit);
        int times = 0;
        for (; remainder >= divisor; ++times) subtract(remainder, divisor);
        quotient = std::min(quotient * 10 + times, kMaxPerMille * 100);
    };
    for (const char digit : digits.a + "000") bringDown(digit);
    const long long exact = quotient;
    bringDown('0');
    const long long rounded = exact + (quotient - exact * 10 >= 5 ? 1 : 0);
    return exact > kMaxPerMille ? std::nullopt : std::optional(rounded);
}

}  // namespace mc
