// The whole text of a cell, or of several cells of a row, as one text to read.
#pragma once

#include <span>
#include <string>

namespace mc {

struct NamedText {
    std::string name, text;
};

// Each text under its name and length, with lines between them. Control characters have signs; what
// else does not show is said in words below each text.
std::string wholeText(std::span<const NamedText> texts);

}  // namespace mc
