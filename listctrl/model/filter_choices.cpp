#include "listctrl/model/filter_choices.h"

namespace {
constexpr std::string_view kMoreBegins = "--AND ";
constexpr std::string_view kMoreEnds = " MORE-- ";
}  // namespace

std::vector<std::string> boxChoices(const DistinctValues& values) {
    std::vector<std::string> lines{std::string(kAllChoices)};
    lines.insert(lines.end(), values.values.begin(), values.values.end());
    if (values.beyond > 0)
        lines.push_back(std::string(kMoreBegins) + std::to_string(values.beyond) +
                        std::string(kMoreEnds));
    return lines;
}

std::string filterOfBox(std::string_view text) {
    const bool counting = text.starts_with(kMoreBegins) && text.ends_with(kMoreEnds);
    return text == kAllChoices || counting ? std::string() : std::string(text);
}
