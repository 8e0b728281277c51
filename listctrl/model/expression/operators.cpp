#include "listctrl/model/expression/operators.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>

#include "text/characters.h"

namespace mc {
namespace {
constexpr std::string_view kOperatorCharacters = "<>=*/%+-^&|\\";
constexpr std::size_t kMaxSpelling = 2;

// An operator that always has a result.
template <auto Result>
constexpr bool (*always)(double&, double) = [](double& a, double b) {
    a = static_cast<double>(Result(a, b));
    return true;
};

// An operator on 32-bit truncations.
template <auto Result>
constexpr bool (*onIntegers)(double&, double) = [](double& a, double b) {
    a = static_cast<double>(Result(truncated(a), truncated(b)));
    return true;
};

bool integerQuotient(double& a, double b) {
    if (b == 0.0) return false;
    a = static_cast<double>(truncated(a / b));
    return true;
}

// In 64 bits, where INT32_MIN % -1 is 0 like any other remainder of -1.
bool integerRemainder(double& a, double b) {
    const std::int64_t divisor = truncated(b);
    if (divisor == 0) return false;
    a = static_cast<double>(truncated(a) % divisor);
    return true;
}

std::int32_t shiftedLeft(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) << (b & 31));
}

std::int32_t shiftedRight(std::int32_t a, std::int32_t b) {
    return a >> (b & 31);
}
std::int32_t neither(std::int32_t a, std::int32_t b) {
    return ~(a | b);
}
std::int32_t notBoth(std::int32_t a, std::int32_t b) {
    return ~(a & b);
}

constexpr std::array<Operator, 21> kOperators{{
    {"*", 19, always<std::multiplies<>{}>},
    {"/", 19, always<std::divides<>{}>},
    {"\\", 19, integerQuotient},
    {"%", 18, integerRemainder},
    {"<<", 17, onIntegers<shiftedLeft>},
    {">>", 17, onIntegers<shiftedRight>},
    {"-", 16, always<std::minus<>{}>},
    {"+", 16, always<std::plus<>{}>},
    {"^", 15, onIntegers<std::bit_xor<>{}>},
    {"&", 15, onIntegers<std::bit_and<>{}>},
    {"|", 15, onIntegers<std::bit_or<>{}>},
    {"!|", 15, onIntegers<neither>},
    {"&&", 14, always<std::logical_and<>{}>},
    {"||", 14, always<std::logical_or<>{}>},
    {"!&", 15, onIntegers<notBoth>},
    {"==", 13, always<std::equal_to<>{}>},
    {"<", 13, always<std::less<>{}>},
    {">", 13, always<std::greater<>{}>},
    {">=", 13, always<std::greater_equal<>{}>},
    {"!=", 13, always<std::not_equal_to<>{}>},
    {"<=", 13, always<std::less_equal<>{}>},
}};

}  // namespace

bool continuesOperand(char c) {
    return isDigit(c) || c == '.' || (lowerCase(c) >= 'a' && lowerCase(c) <= 'z');
}

std::span<const Operator> operatorTable() {
    return kOperators;
}

const Operator* operatorAt(std::string_view text) {
    // One character more than the longest spelling shows that a run is no operator; walking all of
    // a long run at each of its characters would take a time that grows with its square.
    text = text.substr(0, kMaxSpelling + 1);
    const std::string_view run = text.substr(0, text.find_first_not_of(kOperatorCharacters));
    if (run.empty()) return nullptr;
    const auto found = std::ranges::find(kOperators, run, &Operator::spelling);
    return found == kOperators.end() ? nullptr : &*found;
}

std::size_t operandLength(std::string_view text) {
    if (text.empty()) return 0;
    const auto end = std::find_if_not(text.begin() + 1, text.end(), continuesOperand);
    return static_cast<std::size_t>(end - text.begin());
}

std::int32_t truncated(double value) {
    if (std::fabs(value) < 2147483648.0) return static_cast<std::int32_t>(value);
    return std::numeric_limits<std::int32_t>::min();
}

}  // namespace mc
