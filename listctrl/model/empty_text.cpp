#include "listctrl/model/empty_text.h"

#include "text/count_text.h"

namespace mc {

std::string emptyListText(std::size_t records, std::size_t rows, std::string_view none) {
    if (rows > 0) return {};
    if (records == 0) return std::string(none);
    return countText(records) +
           " hidden by filters. Reset Filters, in the captions' menu (Ctrl+Menu key), shows them";
}

}  // namespace mc
