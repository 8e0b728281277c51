// A list's appearance: what is stored, and its dialog.
#include <gtest/gtest.h>

#include "listctrl/dialogs/model/appearance_edit.h"
#include "listctrl/model/columns/appearance.h"
#include "settings/model/settings_store.h"

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

using Texts = std::vector<std::string>;

AppearanceEdit edit(const Texts& keywords = {}) {
    Appearance appearance{0xFFFFFF, 0, "Arial", "10", ColumnId{2}, {}};
    for (const std::string& each : keywords) appearance.keywords.push_back({each, 0xFF});
    return AppearanceEdit(appearance, 6);
}

Texts texts(const AppearanceEdit& edit) {
    Texts found;
    for (const Keyword& each : edit.keywords()) found.push_back(each.text);
    return found;
}

TEST(AppearanceEditTest, KeywordsStandLongestFirstAndNewOnesBeforeEquals) {
    const struct {
        Texts before;
        const char* typed;
        Texts after;
    } cases[] = {
        {{"sell", "tab"}, "buy", {"sell", "buy", "tab"}},
        {{}, "buy", {"buy"}},
        {{"a"}, "sell", {"sell", "a"}},
        {{"sell", "buy"}, "x", {"sell", "buy", "x"}},
        {{"sell", "tab", "buy"}, "Buy", {"sell", "Buy", "tab"}},  // takes the older one's place
        {{"sell"}, " a b ", {" a b ", "sell"}},
    };
    for (const auto& each : cases) {
        AppearanceEdit value = edit(each.before);
        EXPECT_EQ(value.addKeyword(each.typed), nullptr) << each.typed;
        EXPECT_EQ(texts(value), each.after) << each.typed;
    }
}

TEST(AppearanceEditTest, RefusesWhatCannotBeStored) {
    const struct {
        std::string typed;
        const char* message;
    } cases[] = {
        {"", "Enter text to add a new keyword to list"},
        {"  ", "Enter text to add a new keyword to list"},
        {"a,b", "A keyword cannot contain commas or control characters"},
        {"a\nb", "A keyword cannot contain commas or control characters"},
        {std::string(4090, 'x'), "There is no room for this keyword"},
    };
    for (const auto& each : cases) {
        AppearanceEdit value = edit({"buy"});
        EXPECT_STREQ(value.addKeyword(each.typed), each.message) << each.typed;
        EXPECT_EQ(texts(value), Texts{"buy"});
    }
}

TEST(AppearanceEditTest, AppliesWhatWasChosen) {
    AppearanceEdit value = edit({"old", "gone", "too"});
    value.removeKeywords(std::vector<std::size_t>{1, 2});
    value.setColor(ColorProperty::text, 0xFF0000);
    EXPECT_EQ(value.addKeyword("SELL"), nullptr);
    value.setColor(ColorProperty::text, 0x10);
    value.setColor(ColorProperty::background, 0xABCDEF);
    value.setFont("Courier New", "8");
    value.setKeywordColumn(ColumnId{4});
    EXPECT_EQ(appearanceText(value.applied()), "ABCDEF,10,Courier New,8,4,sell,FF0000,old,FF,");
    EXPECT_EQ(texts(value), (Texts{"SELL", "old"})) << "the list shows what was typed";
}

}  // namespace
