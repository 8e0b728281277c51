#include "framework/model/dots.h"

#include <algorithm>
#include <cstdint>

namespace fw {
namespace {

// No screen has fewer or more dots.
constexpr int kMinDpi = 24, kMaxDpi = 2400;

std::int64_t sound(int dpi) {
    return dpi >= kMinDpi && dpi <= kMaxDpi ? dpi : kUnitDpi;
}

int length(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, -kMaxLength, kMaxLength));
}

int scaled(int value, std::int64_t to, std::int64_t from) {
    const std::int64_t half = value < 0 ? -from / 2 : from / 2;
    return length((value * to + half) / from);
}

}  // namespace

int toPixels(int units, int dpi) noexcept {
    return scaled(units, sound(dpi), kUnitDpi);
}

int toUnits(int pixels, int dpi) noexcept {
    return scaled(pixels, kUnitDpi, sound(dpi));
}

int unitsAround(int pixels, int dpi) noexcept {
    const int units = toUnits(pixels, dpi);
    return units < kMaxLength && toPixels(units, dpi) < pixels ? units + 1 : units;
}

int unitsWithin(int pixels, int dpi) noexcept {
    const int units = toUnits(pixels, dpi);
    return units > -kMaxLength && toPixels(units, dpi) > pixels ? units - 1 : units;
}

int unitsNow(int units, int pixels, int dpi) noexcept {
    return toPixels(units, dpi) == pixels ? units : toUnits(pixels, dpi);
}

int Measure::at(int other) const noexcept {
    return scaled(pixels, sound(other), sound(dpi));
}

}  // namespace fw
