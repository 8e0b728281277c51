// Lengths on screens of different dots per inch.
//
// A length is kept, and stored, in units: pixels of a screen with 96 dots per inch. What a window
// uses is made of the units, never of the pixels of another screen, so that going from screen to
// screen and back ends where it began. On a screen with 96 dots or more,
// toUnits(toPixels(units)) is units again.
//
// Every value and every number of dots is taken: dots that no screen has count as 96, and results
// keep to what a window's coordinates hold (kMaxLength).
#pragma once

namespace fw {

inline constexpr int kUnitDpi = 96;
inline constexpr int kMaxLength = 32767;

// The nearest; halves go away from 0.
int toPixels(int units, int dpi) noexcept;
int toUnits(int pixels, int dpi) noexcept;

// The least units that are at least so many pixels; the most that are at most so many.
int unitsAround(int pixels, int dpi) noexcept;
int unitsWithin(int pixels, int dpi) noexcept;

// The units of a length that has so many pixels now and was `units`: these stay, unless they are
// other pixels.
int unitsNow(int units, int pixels, int dpi) noexcept;

// A length in pixels, and the screen that it was measured on: there it is exact.
struct Measure {
    int pixels = 0;
    int dpi = kUnitDpi;

    int at(int other) const noexcept;
    int units() const noexcept { return at(kUnitDpi); }
};

}  // namespace fw
