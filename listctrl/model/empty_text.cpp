#include "listctrl/model/empty_text.h"

namespace mc {

std::string emptyListText(std::size_t records, std::size_t rows, std::string_view none) {
    if (rows > 0) return {};
    if (records == 0) return std::string(none);
    return std::to_string(records) + " hidden by filters";
}

}  // namespace mc
