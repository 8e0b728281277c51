// Reading stored values: parts between separators, and integers at the start of a part.
#pragma once

#include <climits>
#include <string_view>
#include <vector>

namespace mc {

// The parts of `text` between separators. Neighbouring separators have an empty part between them,
// so a text always has one part more than separators. The parts view into `text`.
inline std::vector<std::string_view> splitAt(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (auto at = text.find(separator); at != text.npos; at = text.find(separator)) {
        parts.push_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    parts.push_back(text);
    return parts;
}

// What atoi reads: the decimal integer at the start of `text`, after white space and one sign; 0
// where there is none. Numbers beyond the range of an int stop at its ends.
inline int leadingInteger(std::string_view text) {
    const auto start = text.find_first_not_of(" \t\n\v\f\r");
    if (start == text.npos) return 0;
    text.remove_prefix(start);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    long long number = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9' || number > INT_MAX) break;
        number = number * 10 + (digit - '0');
    }
    if (negative) number = -number;
    return static_cast<int>(number < INT_MIN ? INT_MIN : number > INT_MAX ? INT_MAX : number);
}

}  // namespace mc
