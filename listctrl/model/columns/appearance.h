// How a list looks: its colours, its font, and the keywords that colour its rows.
//
//   FFFFFF,0,Arial,10                              background, text, font face, font size
//   FFFFFF,0,Arial,10,2,buy,FF0000,sell,FF,        and the keyword column with its keywords
//
// Colours are hexadecimal with red in the low byte. Neither a face nor a keyword may hold a comma:
// what follows one is read as the next part.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/columns/column_info.h"

namespace mc {

using ColorValue = std::uint32_t;  // red in the low byte, then green, then blue

struct Keyword {
    std::string text;  // lower case
    ColorValue color;
    bool operator==(const Keyword&) const = default;
};

struct Appearance {
    ColorValue background = 0xFFFFFF;
    ColorValue text = 0;
    std::string fontFace;
    std::string fontSize;  // points, as the font dialog gives it
    std::optional<ColumnId> keywordColumn;
    std::vector<Keyword> keywords;  // in the order in which they are tried
    bool operator==(const Appearance&) const = default;
};

// The stored form. Keywords without a keyword column are not stored.
std::string appearanceText(const Appearance& appearance);

// Reads any text. Nothing, so that the list keeps its looks, where one of the first four parts is
// missing or empty, or is not a colour where one belongs. After them, reading stops at the first
// broken part, and keeps the keywords before it.
std::optional<Appearance> readAppearance(std::string_view stored);

// The first keyword that `text` contains, without regard to the case of ASCII letters; null when
// there is none.
const Keyword* keywordIn(const Appearance& appearance, std::string_view text);

// The points of a font size text that cannot be read.
inline constexpr int kStandardPoints = 8;

// The points of a font size text: a whole number that a row can be drawn with, 1 to 144.
std::optional<int> fontPoints(std::string_view size);

}  // namespace mc
