// Which colours can be read on which: contrast as the ratio of the luminances of two colours, from
// 1 (the same) to 21 (black on white).
#pragma once

#include <cstdint>

namespace fw {

using Color = std::uint32_t;  // 0x00BBGGRR, as the platform's

constexpr Color rgb(int red, int green, int blue) {
    return static_cast<Color>(red) | static_cast<Color>(green) << 8 |
           static_cast<Color>(blue) << 16;
}

// `share` of 255 parts of `a`, the rest of `b`.
Color mixed(Color a, Color b, int share);

double contrast(Color a, Color b);

// What a text needs at least.
inline constexpr double kReadable = 4.5;

// `wanted`, or the shade of it nearest to it that can be read as text on `ground`.
Color readableOn(Color ground, Color wanted);

// The colour behind a text in `ink` that is to be tinted on `paper`: at most `share` of 255 parts
// of the tint, and less where the text could not be read on it. A text that cannot be read on the
// paper gets no tint.
Color tinted(Color paper, Color tint, int share, Color ink);

}  // namespace fw
