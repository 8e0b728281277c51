#include "editors/model/number_input.h"

#include <algorithm>

#include "text/characters.h"

namespace mc {

bool isNumber(std::string_view text) {
    text = trimmed(text, " ");
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const auto points = std::count(text.begin(), text.end(), '.');
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    return points <= 1 && digits >= 1 && static_cast<std::size_t>(points + digits) == text.size();
}

}  // namespace mc
