// Numbers as a user types them into a cell.
#pragma once

#include <string_view>

namespace mc {

// Whether the text is a plain decimal number: an optional sign, then digits with at most one point
// among them, one digit at least, and blanks around it. No exponents, hexadecimal digits or words
// ("1e5", "0x10", "inf"), and no commas.
bool isNumber(std::string_view text);

}  // namespace mc
