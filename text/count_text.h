// How many, as people read it.
#pragma once

#include <cstddef>
#include <string>

namespace mc {

// "12", "3,000".
inline std::string countText(std::size_t count) {
    std::string text = std::to_string(count);
    for (std::size_t digits = 3; digits < text.size(); digits += 4)
        text.insert(text.size() - digits, 1, ',');
    return text;
}

}  // namespace mc
