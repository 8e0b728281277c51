#include "framework/model/press_guard.h"

#include <gtest/gtest.h>

namespace {

TEST(PressGuard, APressSoonAfterAnotherOnTheSameWindowOrSpotIsTheSamePress) {
    constexpr fw::DoubleClickLimits limits{500, 4, 4};
    const int window = 0, other = 0;
    const struct {
        const char* what;
        fw::MousePress before, press;
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
        EXPECT_EQ(fw::repeatsPress(each.before, each.press, limits), each.repeats) << each.what;
}

}  // namespace
