#include "framework/model/contrast.h"

#include <gtest/gtest.h>

namespace fw {
namespace {

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

}  // namespace
}  // namespace fw
