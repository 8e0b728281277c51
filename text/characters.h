// Kinds of characters, and what a text has at its ends. ASCII, whatever locale the host has set.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace mc {

inline constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

constexpr bool isWhiteSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ';
}

// The byte in lower case.
constexpr char lowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The same for eight bytes: an upper case letter is one whose sum with 0x3F passes 0x80 and whose
// sum with 0x25 doesn't.
constexpr std::uint64_t lowerEight(std::uint64_t bytes) {
    constexpr std::uint64_t kEach = 0x0101010101010101;
    const std::uint64_t low = bytes & (kEach * 0x7F);
    const std::uint64_t upper = (low + kEach * 0x3F) & ~(low + kEach * 0x25) & ~bytes;
    return bytes | (upper & (kEach * 0x80)) >> 2;
}

inline std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lowerCase);
    return result;
}

// Without the blanks in front.
constexpr std::string_view withoutBlanksBefore(std::string_view text,
                                               std::string_view blanks = kWhiteSpace) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text;
}

// Without the blanks at both ends.
constexpr std::string_view trimmed(std::string_view text, std::string_view blanks = kWhiteSpace) {
    text = withoutBlanksBefore(text, blanks);
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

}  // namespace mc
