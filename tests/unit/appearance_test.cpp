#include "listctrl/model/columns/appearance.h"

#include <gtest/gtest.h>

using namespace mc;

namespace {

TEST(AppearanceTest, AnUnusableValueIsNone) {
    for (const char* text :
         {"", ",,,", "FFFFFF", "FFFFFF,0,Arial", "FFFFFF,0,,10", "FFFFFF,0,Arial,",
          "red,0,Arial,10", "FFFFFF,-1,Arial,10", "FFFFFF,0x1,Arial,10", "1FFFFFF,0,Arial,10",
          "FFFFFFFFFFFFFFFFF,0,Arial,10", ",0,Arial,10"})
        EXPECT_EQ(readAppearance(text), std::nullopt) << text;
}

TEST(AppearanceTest, KeywordsEndAtTheFirstThatIsNone) {
    const Keyword buy{"buy", 0xFF0000}, tail{"a", 0xB};
    const struct {
        const char* tail;
        std::optional<ColumnId> column;
        std::vector<Keyword> keywords;
    } cases[] = {
        {"", std::nullopt, {}},
        {"-1,buy,FF0000,", std::nullopt, {}},
        {"x,buy,FF0000,", std::nullopt, {}},
        {"99999999999,buy,FF0000,", std::nullopt, {}},
        {"2147483647,", ColumnId{2147483647}, {}},
        {"2,buy", ColumnId{2}, {}},
        {"2,buy,FF0000", ColumnId{2}, {buy}},
        {"2,buy,FF0000,sell", ColumnId{2}, {buy}},
        {"2,buy,FF0000,,FF,", ColumnId{2}, {buy}},  // an empty keyword would colour every row
        {"2,buy,FF0000,sell,red,", ColumnId{2}, {buy}},
        {"2,a,b,FF,", ColumnId{2}, {tail}},  // the keyword "a,b" in red
    };
    for (const auto& each : cases) {
        const auto read = readAppearance(std::string("FFFFFF,0,Arial,10,") + each.tail);
        ASSERT_TRUE(read) << each.tail;
        EXPECT_EQ(read->fontFace, "Arial");
        EXPECT_EQ(read->keywordColumn, each.column) << each.tail;
        EXPECT_EQ(read->keywords, each.keywords) << each.tail;
    }
}

TEST(AppearanceTest, FindsTheFirstKeywordOfATextIgnoringCase) {
    Appearance appearance;
    appearance.keywords = {{"delete user", 1}, {"user", 2}, {"\xE4", 3}};
    const struct {
        const char* text;
        ColorValue color;  // 0: none
    } cases[] = {{"", 0},      {"use", 0},      {"DELETE USER", 1}, {"ADD USER", 2},
                 {"uUser", 2}, {"x \xE4 x", 3}, {"\xC4", 0}};
    for (const auto& each : cases) {
        const Keyword* found = keywordIn(appearance, each.text);
        EXPECT_EQ(found != nullptr ? found->color : 0, each.color) << each.text;
    }
}

}  // namespace
