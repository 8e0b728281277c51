// The framework's rules that need no window: dots per inch, contrast, calls under way, presses that
// repeat another.
#include <gtest/gtest.h>

#include <climits>
#include <optional>
#include <string>

#include "framework/model/calls.h"
#include "framework/model/contrast.h"
#include "framework/model/dots.h"
#include "framework/model/press_guard.h"

namespace fw {
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

constexpr Color kWhite = rgb(255, 255, 255), kBlack = rgb(0, 0, 0);

TEST(Contrast, IsTheRatioOfLuminances) {
    EXPECT_NEAR(contrast(kBlack, kWhite), 21, 0.001);
    EXPECT_NEAR(contrast(kWhite, kBlack), 21, 0.001);
    EXPECT_NEAR(contrast(rgb(118, 118, 118), kWhite), 4.54, 0.01);
    EXPECT_NEAR(contrast(rgb(255, 0, 0), kWhite), 4.00, 0.01);
}

// What is wanted stays where it can be read, and is lightened or darkened where it cannot.
TEST(Contrast, TextIsReadableOnItsGround) {
    constexpr Color kEdited = rgb(0, 72, 168), kWarning = rgb(176, 0, 0), kDark = rgb(32, 32, 32);
    enum { same, lighter, darker };
    const struct {
        const char* name;
        Color ground, wanted;
        int expected;
    } table[] = {
        {"edited on white", kWhite, kEdited, same},
        {"edited on a changed value", rgb(255, 235, 175), kEdited, same},
        {"edited on black", kBlack, kEdited, lighter},
        {"warning on a face", rgb(240, 240, 240), kWarning, same},
        {"warning on a dark face", kDark, kWarning, lighter},
        {"yellow keyword on white", kWhite, rgb(255, 255, 0), darker},
        {"yellow keyword on black", kBlack, rgb(255, 255, 0), same},
        {"grey on white", kWhite, rgb(128, 128, 128), darker},
        {"grey on itself", rgb(128, 128, 128), rgb(128, 128, 128), darker},
        {"white on itself", kWhite, kWhite, darker},
        {"black on itself", kBlack, kBlack, lighter},
    };
    for (const auto& each : table) {
        const Color made = readableOn(each.ground, each.wanted);
        EXPECT_GE(contrast(made, each.ground), kReadable) << each.name;
        const double before = contrast(each.wanted, kBlack), after = contrast(made, kBlack);
        EXPECT_EQ(after > before   ? lighter
                  : after < before ? darker
                                   : same,
                  each.expected)
            << each.name;
    }
}

TEST(Contrast, ATintLeavesItsTextReadable) {
    constexpr Color kChanged = rgb(255, 222, 120), kDifference = rgb(255, 150, 0);
    const struct {
        Color paper, tint, ink;
        bool whole;  // all of the tint
    } table[] = {
        {kWhite, kChanged, kBlack, true},
        {kWhite, kDifference, kBlack, true},
        {kBlack, kChanged, kWhite, false},
        {rgb(32, 32, 32), kDifference, rgb(220, 220, 220), false},
        {rgb(0, 43, 54), kChanged, rgb(238, 232, 213), false},
    };
    for (const auto& each : table) {
        const Color made = tinted(each.paper, each.tint, 150, each.ink);
        EXPECT_GE(contrast(each.ink, made), kReadable);
        EXPECT_NE(made, each.paper);
        EXPECT_EQ(made == mixed(each.tint, each.paper, 150), each.whole);
    }
    EXPECT_EQ(tinted(kWhite, kChanged, 150, rgb(200, 200, 200)), kWhite);
}

TEST(Calls, WhatIsRetiredGoesWithTheOutermostCallInOrder) {
    std::string gone;
    const auto object = [&gone](char name) {
        return std::shared_ptr<const void>(&gone, [&gone, name](const void*) { gone += name; });
    };
    retire(object('a'));
    EXPECT_EQ(gone, "a") << "nothing is under way";
    {
        const Call outer;
        {
            const Call inner;
            retire(object('b'));
            retire(std::shared_ptr<const void>(&gone, [&](const void*) {
                const Call nested;  // a window goes with it
                retire(object('d'));
                gone += 'c';
            }));
        }
        EXPECT_EQ(gone, "a");
    }
    EXPECT_EQ(gone, "abcd");
    EXPECT_EQ(callsUnderWay(), 0);
}

TEST(Calls, EndForThoseUnderWayAndNotForThoseThatComeLater) {
    std::optional<Call> outer(std::in_place), box(std::in_place);
    {
        const Call exit;
        endOuterCalls();
        EXPECT_FALSE(callEnded()) << "the call that ends the others still reports";
    }
    EXPECT_TRUE(callEnded());
    {
        const Call later;  // a new workbench, behind the old one's box
        EXPECT_FALSE(callEnded());
    }
    box.reset();
    EXPECT_TRUE(callEnded());
    {
        const Call later;  // as deep as the one that ended
        EXPECT_FALSE(callEnded());
    }
    outer.reset();
    const Call next;
    EXPECT_FALSE(callEnded());
}

TEST(PressGuard, APressSoonAfterAnotherOnTheSameWindowOrSpotIsTheSamePress) {
    constexpr DoubleClickLimits limits{500, 4, 4};
    const int window = 0, other = 0;
    const struct {
        const char* what;
        MousePress before, press;
        bool repeats;
    } cases[] = {
        {"the first press of all", {}, {100, 0, 0, &window}, false},
        {"at once", {1000, 50, 50, &window}, {1020, 50, 50, &window}, true},
        {"just in time", {1000, 50, 50, &window}, {1500, 50, 50, &window}, true},
        {"too late", {1000, 50, 50, &window}, {1501, 50, 50, &window}, false},
        {"elsewhere on it", {1000, 50, 50, &window}, {1020, 90, 60, &window}, true},
        {"on what was below", {1000, 50, 50, &other}, {1020, 54, 46, &window}, true},
        {"on another window", {1000, 50, 50, &other}, {1020, 55, 50, &window}, false},
        {"across the clock's end", {0xFFFFFFF0u, 5, 5, &window}, {5, 5, 5, &window}, true},
    };
    for (const auto& each : cases)
        EXPECT_EQ(repeatsPress(each.before, each.press, limits), each.repeats) << each.what;
}

}  // namespace
}  // namespace fw
