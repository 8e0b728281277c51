#include "text/filter_pattern.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "listctrl/model/table/text_search.h"
#include "tests/unit/reference_list.h"
#include "text/read_number.h"

using namespace mc;

namespace {

TEST(FilterPattern, MatchesAsItsSignsSay) {
    const std::vector<std::string> none;
    const struct {
        const char* filter;
        bool exact;
        std::vector<std::string> matching;
        std::vector<std::string> others;
    } cases[] = {
        {"", false, {"", "abc"}, none},
        {"abc", false, {"ABCD", "abc"}, {"", "ab", "xabc"}},
        {"*bc", false, {"ABC", "bc"}, {"abcd", "c"}},
        {"*bc*", false, {"xBCy", "bc", "abcd"}, {"b", "", "b c"}},
        {">100", false, {"150.5", " 101 lots", "1e3"}, {"100", "NA", "", "-150"}},
        {"<100", false, {"99.9", "-150", "1,000"}, {"100", "NA", ""}},
        {">1e999", false, none, {"1e999", "5"}},
        {"<-1e999", false, none, {"-1e999", "5"}},
        {"abc~xyz", false, {"abcd", "XYZ"}, {"", "~", "ab"}},
        {"~~abc~~xyz~", false, {"abc", "xyz"}, {"", "~"}},
        {"~", false, none, {"", "~", "a"}},
        {"*", false, {"", "a"}, none},
        {"***", false, {"a*b"}, {"", "ab"}},
        {"<ABC", false, {"<abc", "<abcd"}, {"5", "abc", "<"}},
        {">inf~<nan", false, {">infinite", "<NaN"}, {"5", "-5", "inf", "nan"}},
        {">-~>7", false, {">-", "8"}, {"7", "-", ">7"}},
        {"a~ab~abc", false, {"a", "ABD"}, {"", "b"}},
        {"abc", true, {"ABC", "abc"}, {"abcd", "ab", ""}},
        {"*bc", true, {"*BC"}, {"abc", "bc"}},
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

std::string randomText(std::mt19937& random, const char* letters, std::size_t most) {
    const std::string_view from = letters;
    std::string text(random() % (most + 1), ' ');
    for (char& c : text) c = from[random() % from.size()];
    return text;
}

// Of arbitrary signs, or looking for a piece of one of the texts.
std::string randomFilter(std::mt19937& random, const TextTable& texts) {
    if (random() % 2 == 0) return randomText(random, "aAbB1.-~~~~**<>", random() % 9 == 0 ? 60 : 9);
    std::string piece(texts.text(static_cast<TextTable::Code>(random() % texts.size())));
    const std::size_t cut = random() % (piece.size() + 1);
    if (random() % 3 != 0) piece.erase(0, cut);
    piece.resize(random() % (piece.size() + 1));
    return (random() % 3 != 0 ? "*" : "") + piece + (random() % 2 != 0 ? "*" : "");
}

TEST(FilterPattern, AValueIsTheWholeCell) {
    for (const bool exact : {false, true})
        for (const std::string value : {"MAKER1", "<none>", "a~b", "*x", "~", ">5", "x*", "**"}) {
            const FilterPattern pattern(value, exact, FilterKind::value);
            EXPECT_TRUE(pattern.matches(value)) << value;
            EXPECT_FALSE(pattern.matches(value + "0")) << value;
            EXPECT_FALSE(pattern.matches(value.substr(1))) << value;
            EXPECT_FALSE(pattern.matches("7")) << value;
        }
    EXPECT_TRUE(FilterPattern("Maker~1", false, FilterKind::value).matches("mAKER~1"));
}

// One by one and all in a row, as the rules written down plainly.
TEST(FilterPattern, AgreesWithTheReferenceRules) {
    std::mt19937 random(2);
    for (int round = 0; round < 1500; ++round) {
        TextTable texts;
        for (int i = 0; i < 60; ++i)
            texts.add(randomText(random, i % 4 == 0 ? "aAb" : "aAbB1.-", i % 3 == 0 ? 40 : 6));
        std::vector<double> numbers(texts.size());
        for (TextTable::Code code = 0; code < texts.size(); ++code)
            numbers[code] =
                readNumber(texts.text(code)).value_or(std::numeric_limits<double>::quiet_NaN());
        const bool exact = random() % 4 == 0;
        const auto kind = random() % 8 == 0 ? FilterKind::value : FilterKind::pattern;
        const std::string filter = randomFilter(random, texts);
        const FilterPattern pattern(filter, exact, kind);
        std::vector<std::uint8_t> marks;
        markMatches(pattern, texts, numbers, marks);
        for (TextTable::Code code = 0; code < texts.size(); ++code) {
            const std::string cell(texts.text(code));
            const bool expected =
                reference::matches(cell, filter, exact, kind == FilterKind::value);
            ASSERT_EQ(pattern.matches(cell), expected) << filter << " on " << cell;
            ASSERT_EQ(marks[code] != 0, expected) << filter << " on " << cell;
        }
    }
}

}  // namespace
