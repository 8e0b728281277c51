// What a filter lets through, and what a filter box shows and applies, event by event.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "listctrl/model/filter_box.h"
#include "text/filter_pattern.h"

using namespace mc;

namespace {

// Beside what tests/fuzz/fuzz_filter.cpp holds against the reference.
TEST(FilterPattern, MatchesAsItsSignsSay) {
    const std::vector<std::string> none;
    const struct {
        const char* filter;
        bool exact;
        std::vector<std::string> matching;
        std::vector<std::string> others;
    } cases[] = {
        {"", false, {"", "abc"}, none},
        {">100", false, {"150.5", " 101 lots", "1e3"}, {"100", "NA", "", "-150"}},
        {"<100", false, {"99.9", "-150", "1,000"}, {"100", "NA", ""}},
        {">1e999", false, none, {"1e999", "5"}},
        {"<-1e999", false, none, {"-1e999", "5"}},
        {"abc~xyz", false, {"abcd", "XYZ"}, {"", "~", "ab"}},
        {"~~abc~~xyz~", false, {"abc", "xyz"}, {"", "~"}},
        {"*", false, {"", "a"}, none},
        {"***", false, {"a*b"}, {"", "ab"}},
        {"<ABC", false, {"<abc", "<abcd"}, {"5", "abc", "<"}},
        {">inf~<nan", false, {">infinite", "<NaN"}, {"5", "-5", "inf", "nan"}},
        {">-~>7", false, {">-", "8"}, {"7", "-", ">7"}},
        {">100~<5", true, {">100", "<5"}, {"150", "4"}},
        {"*~**", true, {"*", "**"}, {"", "a"}},
        {"\xC4", false, {"\xC4x"}, {"\xE4"}},
    };
    for (const auto& [filter, exact, matching, others] : cases) {
        const FilterPattern pattern(filter, exact);
        for (const auto& cell : matching)
            EXPECT_TRUE(pattern.matches(cell)) << filter << ' ' << cell;
        for (const auto& cell : others)
            EXPECT_FALSE(pattern.matches(cell)) << filter << ' ' << cell;
    }
}

using Texts = std::vector<std::string>;

std::string told(const ColumnFilter& filter) {
    return filter.kind == FilterKind::value ? "=" + filter.text : filter.text;
}

const DistinctValues kChoices{{{"--ALL-- ", 3}, {"MAKER1", 2}, {"<none>", 1}, {"a~b", 0}}, 6};

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
            box.dropped(kChoices);
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
        {{"RMS"}, {"MAKER0", "drop", "pause", "close"}, "MAKER0", "RMS", 0},
        {{"RMS"}, {"MAKER0", "drop", "pause", "close", "pause"}, "MAKER0", "MAKER0", 1},
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
        // Typing in an open one leaves the values that fit; the text itself waits as ever.
        {{}, {"drop", "ake", "line 1"}, "=MAKER1", "=MAKER1", 1},
        {{}, {"drop", "ake", "esc"}, "ake", "", 0},
        {{"RMS"}, {"drop", "ake", "line 2"}, "", "", 1},
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

Texts linesOf(const FilterBox& box) {
    Texts lines;
    for (FilterBox::Line line = 0; line < box.lineCount(); ++line) {
        const auto rows = box.lineRows(line);
        lines.push_back(box.lineText(line) + (rows ? "|" + std::to_string(*rows) : ""));
    }
    return lines;
}

TEST(FilterBoxTest, TypingLeavesTheLinesThatFit) {
    const struct {
        const char* typed;
        Texts lines;  // without the first
    } cases[] = {
        {"", {"--ALL-- |3", "MAKER1|2", "<none>|1", "a~b|0"}},
        {"A", {"--ALL-- |3", "MAKER1|2", "a~b|0"}},
        {"r1", {"MAKER1|2"}},
        {"x", {}},
        {"*1~a~", {"MAKER1|2", "a~b|0"}},  // as the pattern that it would filter by
        {"<n", {"<none>|1"}},
    };
    FilterBox box;
    EXPECT_EQ(box.lineCount(), 0u);
    for (const auto& each : cases) {
        box.dropped(kChoices);
        box.typed("MAKER1");
        box.typed(each.typed);
        Texts lines = linesOf(box);
        EXPECT_EQ(lines.front(), "--ALL-- |6");
        lines.erase(lines.begin());
        EXPECT_EQ(lines, each.lines) << each.typed;
        EXPECT_EQ(box.isNarrowed(), lines.size() < 4) << each.typed;
    }
}

TEST(FilterBoxTest, KnowsItsOwnLineAndCountsThoseBeyondTheBound) {
    FilterBox box({"b", FilterKind::value});
    box.dropped({{{"a", 2}, {"b", 1}}, 3});
    EXPECT_EQ(box.shownLine(), 2u);
    box.typed("b");
    EXPECT_EQ(box.shownLine(), std::nullopt) << "a typed text is none of the lines";
    box.typed("");
    EXPECT_EQ(box.shownLine(), 0u);
    DistinctValues many;
    for (int i = 0; i < 10'012; ++i) many.values.push_back({std::to_string(i), 1});
    box.dropped(many);
    EXPECT_EQ(box.lineCount(), 10'002u);
    EXPECT_EQ(box.lineText(10'001), "--AND 12 MORE-- ");
    EXPECT_EQ(box.lineRows(10'001), std::nullopt);
    box.typed("1");
    EXPECT_EQ(box.lineText(1'001), "--AND 2451 MORE-- ");
    box.typed("10011");
    EXPECT_EQ(linesOf(box), (Texts{"--ALL-- |0", "10011|1"})) << "found beyond the bound";
}

}  // namespace
