#include "listctrl/model/columns/appearance.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <span>

#include "text/characters.h"
#include "text/read_number.h"
#include "text/text_parts.h"

namespace mc {
namespace {

constexpr ColorValue kLastColor = 0xFFFFFF;
constexpr std::size_t kFixedParts = 4;
constexpr std::uint32_t kMaxPoints = 144;

std::string colorText(ColorValue color) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    do {
        text.insert(text.begin(), digits[color % 16]);
        color /= 16;
    } while (color != 0);
    return text;
}

// Up to `last`.
std::optional<std::uint32_t> readUpTo(std::uint32_t last, std::string_view text, int base) {
    const auto number = wholeInteger<std::uint32_t>(text, base);
    return number && *number <= last ? number : std::nullopt;
}

void readKeywords(std::span<const std::string_view> parts, Appearance& appearance) {
    const auto column = readUpTo(INT_MAX, parts.front(), 10);
    if (!column) return;
    appearance.keywordColumn = toColumnId(*column);
    for (std::size_t i = 1; i + 1 < parts.size(); i += 2) {
        const auto color = readUpTo(kLastColor, parts[i + 1], 16);
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
    const auto background = readUpTo(kLastColor, parts[0], 16);
    const auto text = readUpTo(kLastColor, parts[1], 16);
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
    const auto points = readUpTo(kMaxPoints, size, 10);
    return points && *points > 0 ? std::optional(static_cast<int>(*points)) : std::nullopt;
}

}  // namespace mc
