// What a filter box shows and what applies, event by event.
#include "listctrl/model/filter_box.h"

#include <gtest/gtest.h>

using namespace mc;

namespace {

using Texts = std::vector<std::string>;

std::string told(const ColumnFilter& filter) {
    return filter.kind == FilterKind::value ? "=" + filter.text : filter.text;
}

// Each step is an event: "pause", "enter", "esc", "drop", "close"; "line N" takes line N, "on N"
// presses Enter on it; anything else is typed. Gives how often the list is filtered.
int play(FilterBox& box, const Texts& steps) {
    int filtered = 0;
    for (const std::string& step : steps) {
        const auto number = [&](std::size_t at) { return std::stoul(step.substr(at)); };
        if (step == "pause")
            filtered += box.paused();
        else if (step == "enter")
            filtered += box.entered({});
        else if (step == "esc")
            filtered += box.escaped();
        else if (step == "drop")
            box.dropped({{"--ALL-- ", "MAKER1", "<none>", "a~b"}, 7});
        else if (step == "close")
            box.closed();
        else if (step.starts_with("line "))
            filtered += box.taken(number(5));
        else if (step.starts_with("on "))
            filtered += box.entered(number(3));
        else
            box.typed(step);
    }
    return filtered;
}

TEST(FilterBoxTest, OnlyEnterThePauseAndATakenLineApply) {
    const struct {
        ColumnFilter before;
        Texts steps;
        const char* shown;    // a value begins with "="
        const char* applied;  // likewise
        int filtered;
    } cases[] = {
        {{}, {"M", "MA"}, "MA", "", 0},
        {{}, {"M", "MA", "pause"}, "MA", "MA", 1},
        {{}, {"M", "pause", "MA", "M", "pause"}, "M", "M", 1},  // nothing new to apply
        {{}, {"MA", "enter", "enter"}, "MA", "MA", 2},          // Enter filters again
        {{"MA"}, {"esc", "esc"}, "", "", 1},
        {{"MA"}, {"MAX", "esc"}, "", "", 1},
        {{}, {"MA", "esc"}, "", "", 0},
        // A drop-down that closes without a choice changes nothing.
        {{}, {"MAKER0", "drop", "close"}, "MAKER0", "", 0},
        {{"RMS"}, {"drop", "esc"}, "RMS", "RMS", 0},
        {{"RMS"}, {"MAKER0", "drop", "esc", "pause"}, "MAKER0", "MAKER0", 1},
        {{"RMS"}, {"MAKER0", "drop", "pause", "close"}, "MAKER0", "MAKER0", 1},
        {{"RMS"}, {"drop", "MAKER0", "enter"}, "MAKER0", "MAKER0", 1},
        // A line of the open one is a whole value, until the box is typed in.
        {{"RMS"}, {"drop", "line 2"}, "=MAKER1", "=MAKER1", 1},
        {{"RMS"}, {"MAKER0", "drop", "on 3", "pause"}, "=<none>", "=<none>", 1},
        {{}, {"drop", "line 4", "a~bc", "pause"}, "a~bc", "a~bc", 2},
        {{}, {"drop", "line 4", "x", "a~b", "pause"}, "a~b", "a~b", 2},
        {{"a~b", FilterKind::value}, {"drop", "line 4"}, "=a~b", "=a~b", 0},
        {{"a~b", FilterKind::value}, {"drop", "close", "enter"}, "=a~b", "=a~b", 1},
        {{"MAKER1"}, {"drop", "line 2"}, "=MAKER1", "=MAKER1", 1},
        // The first and the counting line are no filter, whatever their text; values may be alike.
        {{"RMS"}, {"drop", "line 0"}, "", "", 1},
        {{"RMS"}, {"drop", "line 5"}, "", "", 1},
        {{}, {"drop", "line 1"}, "=--ALL-- ", "=--ALL-- ", 1},
        // A closed one has no lines.
        {{"RMS"}, {"line 2"}, "RMS", "RMS", 0},
        {{"RMS"}, {"drop", "close", "line 2"}, "RMS", "RMS", 0},
        {{"RMS"}, {"drop", "line 2", "line 3"}, "=MAKER1", "=MAKER1", 1},
        {{}, {"MAKER0", "on 3"}, "MAKER0", "MAKER0", 1},
    };
    for (const auto& each : cases) {
        FilterBox box(each.before);
        const int filtered = play(box, each.steps);
        const std::string name = testing::PrintToString(each.steps);
        EXPECT_EQ(told(box.shown()), each.shown) << name;
        EXPECT_EQ(told(box.applied()), each.applied) << name;
        EXPECT_EQ(filtered, each.filtered) << name;
    }
}

TEST(FilterBoxTest, TheDropDownHeadsCountsAndKnowsItsOwnLine) {
    FilterBox box;
    EXPECT_EQ(box.dropped({{"b", "a"}, 0}), (Texts{"--ALL-- ", "b", "a"}));
    EXPECT_EQ(box.shownLine(), 0u);
    EXPECT_EQ(box.dropped({{"b", "a"}, 12}), (Texts{"--ALL-- ", "b", "a", "--AND 12 MORE-- "}));
    box.taken(2);
    EXPECT_EQ(box.shownLine(), 2u);
    box.typed("a");
    EXPECT_EQ(box.shownLine(), std::nullopt) << "a typed text is none of the lines";
    EXPECT_EQ(FilterBox({"gone", FilterKind::value}).shownLine(), std::nullopt);
    EXPECT_EQ(box.dropped({}), Texts{"--ALL-- "});
}

}  // namespace
