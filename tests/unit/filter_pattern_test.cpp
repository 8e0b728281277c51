#include "text/filter_pattern.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

}  // namespace
