#include "listctrl/model/columns/column_profile.h"

#include <gtest/gtest.h>

#include <climits>

using namespace mc;

namespace {

TEST(ColumnProfileTest, ReadsAnyText) {
    const ColumnProfile cut{{{0, 0, 75}}, {}, false};
    const struct {
        const char* text;
        ColumnProfile profile;
    } cases[] = {
        {"", {{}, {}, false}},
        {"0,0,75,1", cut},
        {"0,0,75,1,5", cut},
        {"0,0,75,Sum", cut},
        {"0,0,75,Sum#\"0\"+\"1", cut},  // cut in the middle of "12": another column's id
        {"0,,75", {{{0, 0, 75}}, {}}},
        {"a,b,c", {{{0, 0, 0}}, {}}},
        {",0,0,75", {{{0, 0, 0}}, {}, false}},
        {"99999999999,-99999999999,1e9", {{{INT_MAX, INT_MIN, 1}}, {}}},
        {"0,0,75,A#1#x,1,1,60,B#2#y",
         {{{0, 0, 75}, {1, 1, 60}}, {{"A", "1", "x"}, {"B", "2", "y"}}}},
        {"##", {{}, {{"", "", ""}}}},
        {"0,0,75,A#1#x#y", {{{0, 0, 75}}, {{"A", "1", "x#y"}}}},
        {"0,0,75,A#1#x,y", {{{0, 0, 75}}, {{"A", "1", "x"}}, false}},
    };
    for (const auto& each : cases) EXPECT_EQ(readProfile(each.text), each.profile) << each.text;
}

}  // namespace
