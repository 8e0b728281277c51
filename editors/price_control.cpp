#include "editors/price_control.h"

#include "editors/model/number_input.h"
#include "text/characters.h"

namespace mc {

std::string CPriceControl::text() const {
    return std::string(trimmed(CEditControl::text(), " "));
}

std::optional<std::string> CPriceControl::refusal() const {
    const std::string typed = text();
    if (!isNumber(typed)) return '"' + typed + "\" is not a number";
    return {};
}

}  // namespace mc
