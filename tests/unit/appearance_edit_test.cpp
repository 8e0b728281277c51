#include "listctrl/dialogs/model/appearance_edit.h"

#include <gtest/gtest.h>

#include "settings/model/settings_store.h"

using namespace mc;

namespace {

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
