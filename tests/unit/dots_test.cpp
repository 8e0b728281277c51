#include "framework/model/dots.h"

#include <gtest/gtest.h>

#include <climits>

using namespace fw;

namespace {

TEST(Dots, UnitsAndPixels) {
    const struct {
        int units, dpi, pixels, around, within;  // the last two of these pixels
    } cases[] = {
        {75, 96, 75, 75, 75},
        {5, 120, 6, 5, 5},
        {2, 120, 3, 2, 2},  // 2.5
        {-2, 120, -3, -2, -2},
        {67, 144, 101, 67, 67},
        {100, 192, 200, 100, 100},
        {75, 0, 75, 75, 75},  // dots that no screen has
        {75, -96, 75, 75, 75},
        {75, INT_MAX, 75, 75, 75},
        {30000, 144, kMaxLength, 21845, 21845},
        {INT_MAX, 96, kMaxLength, kMaxLength, kMaxLength},
        {INT_MIN, 192, -kMaxLength, -16384, -16384},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(toPixels(each.units, each.dpi), each.pixels) << each.units << "@" << each.dpi;
        EXPECT_EQ(unitsAround(each.pixels, each.dpi), each.around) << each.pixels;
        EXPECT_EQ(unitsWithin(each.pixels, each.dpi), each.within) << each.pixels;
        EXPECT_EQ(unitsNow(each.units, each.pixels, each.dpi), each.units) << "as it was";
    }
    EXPECT_EQ(unitsNow(67, 104, 144), 69) << "another length";
}

// Every length on every usual screen.
TEST(Dots, NothingDriftsFromScreenToScreen) {
    for (const int dpi : {96, 120, 144, 168, 192, 240, 288, 480})
        for (int length = 0; length < 3000; ++length) {
            ASSERT_EQ(toUnits(toPixels(length, dpi), dpi), length) << dpi;
            ASSERT_GE(toPixels(unitsAround(length, dpi), dpi), length) << dpi;
            ASSERT_LE(toPixels(unitsWithin(length, dpi), dpi), length) << dpi;
            const Measure here{length, dpi};
            ASSERT_EQ(here.at(dpi), length);
            const int stored = here.units();
            ASSERT_EQ(toUnits(toPixels(stored, 144), 144), stored);
        }
}

}  // namespace
