// Characters of a text that do not show, or not as what they are: blanks at its ends and beside
// other blanks, tabs, no-break blanks and control characters. Texts are single bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mc {

inline constexpr char kNoBreakBlank = '\xA0';

constexpr bool isBlankLike(char c) {
    return c == ' ' || c == '\t' || c == kNoBreakBlank;
}

// The signs that are drawn for them.
struct UnseenSigns {
    char blank, noBreak, tab, control;
};
inline constexpr UnseenSigns kUnseenSigns{'\xB7', '\xB0', '\xBB', '\xA4'};  // dot, ring, guillemet
inline constexpr UnseenSigns kAsciiSigns{'_', '~', '>', '?'};  // where bytes are parts of letters

// Whether any character of the text is such a one. One pass.
bool hasUnseen(std::string_view text);

// The text with a sign for each of them, of the same length.
std::string withSigns(std::string_view text, const UnseenSigns& signs);

// In words, by position from 1: "2 blanks at the end, tab at 5"; of many the first few. Empty when
// there are none.
std::string unseenInWords(std::string_view text);

}  // namespace mc
