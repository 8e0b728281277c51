#include "frames/model/control_pos.h"

#include <gtest/gtest.h>

using namespace mc;

using fw::Rect;

namespace {

constexpr RowMetrics kMetrics{5, 4};
const std::vector<Rect> kButtons{
    {148, 10, 223, 33}, {238, 10, 313, 33}, {328, 10, 403, 33}, {418, 10, 493, 33}};

TEST(ControlPos, ButtonsStayThenMoveThenFlow) {
    const struct {
        int width;
        std::vector<Rect> places;
    } cases[] = {
        {1200, kButtons},
        {498, kButtons},
        {497, {{147, 10, 222, 33}, {237, 10, 312, 33}, {327, 10, 402, 33}, {417, 10, 492, 33}}},
        {355, {{5, 10, 80, 33}, {95, 10, 170, 33}, {185, 10, 260, 33}, {275, 10, 350, 33}}},
        {354, {{5, 10, 80, 33}, {84, 10, 159, 33}, {163, 10, 238, 33}, {242, 10, 317, 33}}},
        {321, {{5, 10, 80, 33}, {84, 10, 159, 33}, {163, 10, 238, 33}, {5, 37, 80, 60}}},
        {164, {{5, 10, 80, 33}, {84, 10, 159, 33}, {5, 37, 80, 60}, {84, 37, 159, 60}}},
        {60, {{5, 10, 55, 33}, {5, 37, 55, 60}, {5, 64, 55, 87}, {5, 91, 55, 114}}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(placeRow(kButtons, each.width, kMetrics), each.places) << each.width;
}

}  // namespace
