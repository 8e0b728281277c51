#include "editors/model/number_input.h"

#include <algorithm>

namespace mc {

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

bool isNumber(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const auto points = std::count(text.begin(), text.end(), '.');
    const auto digits =
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    return points <= 1 && digits >= 1 && static_cast<std::size_t>(points + digits) == text.size();
}

}  // namespace mc
