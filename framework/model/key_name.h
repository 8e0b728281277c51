// Keys in words, for those who look for them.
#pragma once

#include <string>
#include <string_view>

namespace fw {

// "Ctrl+Shift+P", "F7", "Page Up"; of the platform's number of a key.
std::string keyName(unsigned virtualKey, bool ctrl, bool shift);

// What a key does, in one line of a list of keys.
struct KeyWords {
    std::string key;
    std::string_view does;  // a literal
};

}  // namespace fw
