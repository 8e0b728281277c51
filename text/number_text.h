// Numbers as cells spell them. The fast ways give exactly what the C library would.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mc {

// A plain operand: digits with at most one point among them. None for any other text.
std::optional<double> readPlainNumber(std::string_view text);

// Any number that strtod knows, signs, exponents, hexadecimal digits, "inf" and "nan" included.
// None when strtod would leave characters over.
std::optional<double> readWholeNumber(std::string_view text);

// Appends the value as "%.2f" would write it. Exact: a tie between two texts goes to the even digit
// with every C library. A value that is no number is "nan", without the sign it may carry.
void appendTwoDecimals(double value, std::string& text);

}  // namespace mc
