// Stored values that hold parts between separators.
#pragma once

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

}  // namespace mc
