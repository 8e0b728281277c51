#include "editors/price_editor.h"

#include "editors/model/number_input.h"
#include "text/characters.h"

namespace mc {

std::string CPriceEditor::text() const {
    return std::string(trimmed(CEditEditor::text(), " "));
}

std::optional<std::string> CPriceEditor::refusal() const {
    const std::string typed = text();
    if (!isNumber(typed)) return '"' + typed + "\" is not a number";
    return {};
}

}  // namespace mc
