// The operators of computed columns: spelling, binding and meaning.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace mc {

struct Operator {
    std::string_view spelling;
    int precedence;  // larger binds tighter

    // a becomes the result. False: there is none, because b is a zero that cannot divide.
    bool (*apply)(double& a, double b);
};

// In the order of the look-up. Order and precedences are deliberate: "!&" comes after "||" and
// binds like "&"; "^" is the exclusive or, not a power; "&&" and "||" bind tighter than
// comparisons.
std::span<const Operator> operatorTable();

// The operator that starts here, or null. The longest run of operator characters must be a whole
// spelling, so "*-" is none. "!" is no operator character: the three operators that begin with it
// are never found.
const Operator* operatorAt(std::string_view text);

// Letters and digits of the C locale, whatever locale the host has set, and the point.
bool continuesOperand(char c);

// The length of the operand that starts here: one character of any kind and all letters, digits
// and points that follow at once. 0 only at the end of the text.
std::size_t operandLength(std::string_view text);

// Truncates towards zero. What has no 32-bit value (NaN, infinities, out of range) gives INT32_MIN,
// as the processor's own conversion does.
std::int32_t truncated(double value);

}  // namespace mc
