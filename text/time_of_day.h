// The time of day, as the lists and lines of the workbench say it.
#pragma once

#include <ctime>
#include <string>

namespace mc {

// "9:14" and "9:14:05" in local time.
inline std::string timeOfDay(std::time_t moment, bool seconds = false) {
    const std::tm* const local = std::localtime(&moment);
    if (local == nullptr) return {};
    char text[16];
    const std::size_t length =
        std::strftime(text, sizeof text, seconds ? "%H:%M:%S" : "%H:%M", local);
    return std::string(text, length).substr(text[0] == '0' ? 1 : 0);
}

}  // namespace mc
