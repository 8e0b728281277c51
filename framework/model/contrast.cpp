#include "framework/model/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace fw {
namespace {

constexpr Color kBlack = 0, kWhite = 0xFFFFFF;

int part(Color color, int bits) {
    return static_cast<int>(color >> bits & 0xFF);
}

// The light of each value of a part, of 1 at most.
double light(Color color, int bits) {
    static const auto lights = [] {
        std::array<double, 256> made{};
        for (std::size_t i = 0; i < made.size(); ++i) {
            const double value = static_cast<double>(i) / 255;
            made[i] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        }
        return made;
    }();
    return lights[static_cast<std::size_t>(part(color, bits))];
}

double luminance(Color color) {
    return 0.2126 * light(color, 0) + 0.7152 * light(color, 8) + 0.0722 * light(color, 16);
}

}  // namespace

Color mixed(Color a, Color b, int share) {
    const auto mix = [&](int bits) {
        return (part(a, bits) * share + part(b, bits) * (255 - share)) / 255;
    };
    return rgb(mix(0), mix(8), mix(16));
}

double contrast(Color a, Color b) {
    const auto [dark, bright] = std::minmax({luminance(a), luminance(b)});
    return (bright + 0.05) / (dark + 0.05);
}

// One of black and white can be read on any ground.
Color readableOn(Color ground, Color wanted) {
    for (int share = 255; share >= 0; share -= 5)
        for (const Color end : {kBlack, kWhite})
            if (const Color shade = mixed(wanted, end, share); contrast(shade, ground) >= kReadable)
                return shade;
    return contrast(kBlack, ground) > contrast(kWhite, ground) ? kBlack : kWhite;
}

Color tinted(Color paper, Color tint, int share, Color ink) {
    for (; share > 0; share -= 5)
        if (const Color made = mixed(tint, paper, share); contrast(ink, made) >= kReadable)
            return made;
    return paper;
}

}  // namespace fw
