#include "listctrl/model/columns/appearance.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <span>

#include "text/filter_pattern.h"
#include "text/text_parts.h"

namespace mc {
namespace {

constexpr ColorValue kLastColor = 0xFFFFFF;
constexpr std::size_t kFixedParts = 4;
constexpr std::uint32_t kMostPoints = 144;

std::string colorText(ColorValue color) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    do {
        text.insert(text.begin(), digits[color % 16]);
        color /= 16;
    } while (color != 0);
    return text;
}

// A number of the given base from the first to the last character, up to `last`.
std::optional<std::uint32_t> readNumber(std::string_view text, int base, std::uint32_t last) {
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc() || stop != end || number > last) return std::nullopt;
    return number;
}

void readKeywords(std::span<const std::string_view> parts, Appearance& appearance) {
    const auto column = readNumber(parts.front(), 10, INT_MAX);
    if (!column) return;
    appearance.keywordColumn = toColumnId(*column);
    for (std::size_t i = 1; i + 1 < parts.size(); i += 2) {
        const auto color = readNumber(parts[i + 1], 16, kLastColor);
        if (parts[i].empty() || !color) return;
        appearance.keywords.push_back({std::string(parts[i]), *color});
    }
}

}  // namespace

std::string appearanceText(const Appearance& appearance) {
    std::string text = colorText(appearance.background) + "," + colorText(appearance.text) + "," +
                       appearance.fontFace + "," + appearance.fontSize;
    if (!appearance.keywordColumn) return text;
    text += "," + std::to_string(toIndex(*appearance.keywordColumn)) + ",";
    for (const Keyword& keyword : appearance.keywords)
        text += keyword.text + "," + colorText(keyword.color) + ",";
    return text;
}

std::optional<Appearance> readAppearance(std::string_view stored) {
    const auto parts = splitAt(stored, ',');
    if (parts.size() < kFixedParts || parts[2].empty() || parts[3].empty()) return std::nullopt;
    const auto background = readNumber(parts[0], 16, kLastColor);
    const auto text = readNumber(parts[1], 16, kLastColor);
    if (!background || !text) return std::nullopt;
    Appearance appearance{*background, *text, std::string(parts[2]), std::string(parts[3]), {}, {}};
    if (parts.size() > kFixedParts) readKeywords(std::span(parts).subspan(kFixedParts), appearance);
    return appearance;
}

const Keyword* keywordIn(const Appearance& appearance, std::string_view text) {
    const auto same = [](char shown, char keyword) { return lowerCase(shown) == keyword; };
    for (const Keyword& keyword : appearance.keywords)
        if (!std::ranges::search(text, keyword.text, same).empty()) return &keyword;
    return nullptr;
}

std::optional<int> fontPoints(std::string_view size) {
    const auto points = readNumber(size, 10, kMostPoints);
    return points && *points > 0 ? std::optional(static_cast<int>(*points)) : std::nullopt;
}

}  // namespace mc
