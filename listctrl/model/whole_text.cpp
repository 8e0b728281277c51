#include "listctrl/model/whole_text.h"

#include <algorithm>

#include "text/characters.h"
#include "text/unseen.h"

namespace mc {
namespace {

constexpr std::string_view kEndOfLine = "\r\n";

std::string withoutControls(std::string text) {
    std::ranges::replace_if(text, isControl, kUnseenSigns.control);
    return text;
}

}  // namespace

std::string wholeText(std::span<const NamedText> texts) {
    std::string whole;
    for (const NamedText& each : texts) {
        if (!whole.empty()) whole.append(kEndOfLine).append(kEndOfLine);
        const std::size_t size = each.text.size();
        whole.append(each.name).append(" (").append(std::to_string(size));
        whole.append(size == 1 ? " character):" : " characters):").append(kEndOfLine);
        whole += withoutControls(each.text);
        const std::string unseen = unseenInWords(each.text);
        if (!unseen.empty()) whole.append(kEndOfLine).append("Does not show: ").append(unseen);
    }
    return whole;
}

}  // namespace mc
