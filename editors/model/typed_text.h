// What may be typed or pasted into an edit, and what becomes of it.
#pragma once

#include <cstddef>
#include <string_view>

namespace mc {

// What a character that reaches an edit is there for.
enum class TypedCharacter {
    text,       // goes into the text
    command,    // the edit's own: back space, Ctrl+C, Ctrl+V, Ctrl+X, Ctrl+Z
    selectAll,  // Ctrl+A
    nothing,    // any other control character, Ctrl+Backspace's and a stray Tab's among them
    refused,    // not among the allowed characters
};

// `character` is a single byte, or a wide character that no set of bytes holds. No allowed
// characters means all.
TypedCharacter typedCharacter(unsigned character, std::string_view allowed);

bool allAllowed(std::string_view text, std::string_view allowed);

// The part of pasted text that a single line takes: its first line.
std::string_view firstLine(std::string_view text);

}  // namespace mc
