// The columns of a list, and their profile as it is stored.
#include <gtest/gtest.h>

#include <climits>
#include <span>

#include "listctrl/model/columns/column_model.h"
#include "listctrl/model/columns/column_profile.h"

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

constexpr sVoskColInfo kMoreColumns[] = {{"Name", 75, 0, ColumnType::text},
                                         {"Key", 60, 1, ColumnType::longInteger},
                                         {"Limit", 90, 1, ColumnType::number},
                                         {"Used", 80, 1, ColumnType::number}};
constexpr auto kColumns = std::span(kMoreColumns).first<3>();

// Captions and widths of what shows, from left to right.
std::string shownText(const ColumnModel& model) {
    std::string text;
    for (const ColumnId id : model.shown())
        text += model.descriptor(id).caption + ":" + std::to_string(model.width(id)) + " ";
    return text;
}

std::vector<ColumnId> ids(std::initializer_list<int> numbers) {
    std::vector<ColumnId> made;
    for (const int number : numbers) made.push_back(ColumnId{number});
    return made;
}

class ColumnModelTest : public testing::Test {
protected:
    ColumnModelTest() { model.install(kColumns); }
    // Adds a user-defined column and returns its id.
    ColumnId added(const char* caption, const char* expression) {
        const auto id = model.add({caption, expression, "shown"});
        EXPECT_TRUE(id) << caption;
        return id.value_or(ColumnId{-1});
    }
    std::string expression(int id) { return model.descriptor(ColumnId{id}).expression; }
    void load(std::string_view text) { model.apply(readProfile(text)); }

    ColumnModel model;
};

TEST_F(ColumnModelTest, ShowsWhatIsAskedAndWhatMust) {
    model.show(ids({2, 9, -1, 0, 2}));
    EXPECT_EQ(shownText(model), "Limit:90 Name:75 ");
    EXPECT_EQ(model.width(ColumnId{1}), 100);
    EXPECT_EQ(model.positionOf(ColumnId{0}), DisplayPosition{1});
    EXPECT_EQ(model.positionOf(ColumnId{1}), std::nullopt);
    EXPECT_EQ(model.shown()[0], ColumnId{2});

    model.setMandatory(ids({1, 7}));
    EXPECT_EQ(shownText(model), "Limit:90 Name:75 Key:100 ");
    model.show(ids({0}));
    EXPECT_EQ(shownText(model), "Name:75 Key:100 ");
    model.setMandatory({});
    model.show({});
    EXPECT_EQ(shownText(model), "Name:75 ") << "one column always shows";
    model.reset();
    EXPECT_EQ(shownText(model), "Name:75 Key:60 Limit:90 ");
}

TEST_F(ColumnModelTest, AProfileIsTheModelStored) {
    added("Sum", " \"1\"+\"2\"");
    added("Half", " \"3\"/2");
    model.setWidth(ColumnId{2}, 144);
    model.show(ids({4, 2, 0}));
    const std::string text = profileText(model.profile());
    EXPECT_EQ(text,
              "0,2,75,1,-1,0,2,1,144,3,-1,0,4,0,100,Sum# \"1\"+\"2\"#shown,Half# \"3\"/2#shown");

    ColumnModel other;
    other.install(kColumns);
    other.apply(readProfile(text));
    EXPECT_EQ(other.profile(), model.profile());
    EXPECT_EQ(shownText(other), shownText(model));
    for (std::size_t i = 0; i < model.size(); ++i)
        EXPECT_EQ(other.width(toColumnId(i)), model.width(toColumnId(i))) << i;
    EXPECT_EQ(other.descriptor(ColumnId{3}).displayText, "shown");
    EXPECT_EQ(other.descriptor(ColumnId{3}).type, ColumnType::number);
    EXPECT_TRUE(other.isUserDefined(ColumnId{3}));
    EXPECT_FALSE(other.isUserDefined(ColumnId{2}));
}

TEST_F(ColumnModelTest, AnyStoredTextLeavesAUsableList) {
    constexpr char all[] = "Name:75 Key:60 Limit:90 ";
    const struct {
        const char* text;
        const char* shown;
    } cases[] = {
        {"", all},
        {"0,-1,0,1,-1,0,2,-1,0", all},  // nothing placed: no profile
        {"0,-1,75,1,-7,60,9,0,50,-3,1,50", all},
        {"0,0,75,0,-1,50,1,1,60", "Name:75 Key:60 "},
        {"1,0,44", "Key:44 "},  // the others are missing, so hidden
        {"2,5,20,0,5,30,1,-1,0", "Name:30 Limit:20 "},
        {"0,0,75,0,3,50,1,1,60", "Key:60 Name:50 "},  // the last of two counts
        {"0,2147483647,-5,1,99999999999999,99999999999", "Name:75 Key:60 "},
        {"1,0,0,2,1,32767", "Key:60 Limit:32767 "},
    };
    for (const auto& each : cases) {
        load(each.text);
        EXPECT_EQ(shownText(model), each.shown) << each.text;
    }
    const auto key = ids({1});
    model.setMandatory(key);
    load("2,0,44");
    EXPECT_EQ(shownText(model), "Limit:44 Key:100 ");
}

TEST_F(ColumnModelTest, RefusesWhatAProfileCannotHold) {
    const UserDefinedColumn refused[] = {
        {"", "1", ""},   {"Key", "1", ""},       {"a#b", "1", ""},      {"Sum", "1,2", ""},
        {"Sum", "", ""}, {"Sum", "1+\"9\"", ""}, {"Sum", "1+\"3\"", ""}};  // itself
    for (const auto& each : refused)
        EXPECT_EQ(model.add(each), std::nullopt) << each.caption << " = " << each.expression;
}

TEST_F(ColumnModelTest, DeletingRenumbersAndNeverReadsAnotherColumn) {
    const ColumnId first = added("First", " \"1\"*2");
    added("Second", " \"2\"*2");
    added("UsesFirst", "1+\"3\"-\"4\"");
    added("UsesSecond", "1+\"4\"*\"4 \"+\"0\"\"");
    added("Quoted", "\"4\"+\"4\"");  // starts with a quote: its 4s are numbers, not columns
    model.show(ids({7, 3, 0, 6}));

    EXPECT_FALSE(model.remove(ColumnId{0}));
    EXPECT_FALSE(model.remove(ColumnId{8}));
    EXPECT_TRUE(model.remove(first));
    EXPECT_EQ(expression(4), "1+\"-1\"-\"3\"");
    EXPECT_EQ(expression(5), "1+\"3\"*\"3\"+\"0\"\"");
    EXPECT_EQ(expression(6), "\"4\"+\"4\"");
    EXPECT_FALSE(model.isValid(ColumnId{4}));
    EXPECT_TRUE(model.isValid(ColumnId{5}));
    EXPECT_EQ(shownText(model), "Quoted:100 Name:75 UsesSecond:100 ");

    load(profileText(model.profile()));
    EXPECT_EQ(expression(4), "1+\"-1\"-\"3\"") << "no column comes back by loading";
    EXPECT_FALSE(model.isValid(ColumnId{4}));
    added("Third", "1");
    EXPECT_FALSE(model.isValid(ColumnId{4})) << "nor by adding one";

    model.show(ids({7}));
    EXPECT_TRUE(model.remove(ColumnId{7}));
    EXPECT_EQ(shownText(model), "Name:100 ") << "the only shown column went";
}

TEST_F(ColumnModelTest, AProfileOfAnOlderColumnSetKeepsItsMeaning) {
    added("Sum", "1+\"2\"");
    added("Twice", "2*\"3\"");
    const std::string three = profileText(model.profile());

    model.install(kMoreColumns);
    load(three);
    EXPECT_EQ(shownText(model), "Name:75 Key:60 Limit:90 Sum:100 Twice:100 ") << "Used is new";
    EXPECT_EQ(expression(4), "1+\"2\"");
    EXPECT_EQ(expression(5), "2*\"4\"");
    model.remove(ColumnId{5});
    ASSERT_TRUE(model.add({"OfUsed", "1+\"3\"", ""}));
    const std::string four = profileText(model.profile());

    model.install(kColumns);
    load(four);
    EXPECT_EQ(shownText(model), "Name:75 Key:60 Limit:90 Sum:100 OfUsed:100 ");
    EXPECT_EQ(expression(3), "1+\"2\"");
    EXPECT_EQ(expression(4), "1+\"-1\"");
}

TEST_F(ColumnModelTest, PutsWidthsIntoAStoredProfileOfItsOwnColumns) {
    const struct {
        const char* stored;
        const char* after;  // null: not of these columns
    } cases[] = {
        {"0,2,75,1,-1,0,2,0,33", "0,2,50,1,-1,0,2,0,33"},  // positions stay, hidden ones too
        {"0,0,75,1,1,60", nullptr},
        {"0,0,75,1,1,60,2,2,90,3,3,100,A#1#", nullptr},
        {"0,0,75,1,1,60,2,2", nullptr},
    };
    model.show(ids({1, 0}));
    model.setWidth(ColumnId{0}, 50);
    model.setWidth(ColumnId{1}, 51);
    for (const auto& each : cases) {
        ColumnProfile stored = readProfile(each.stored);
        EXPECT_EQ(model.putWidths(ids({0, 1}), stored), each.after != nullptr) << each.stored;
        if (each.after == nullptr) continue;
        EXPECT_EQ(profileText(stored), each.after);
    }
}

TEST_F(ColumnModelTest, StoredColumnsWithUnusableNamesGoWithoutShiftingTheOthers) {
    load(
        "0,0,75,1,1,60,2,2,90,3,3,50,4,4,51,5,5,52,6,6,53,"
        "#1#,Key#1#,Good#1+\"4\"#,Sum#1+\"5\"#");
    EXPECT_EQ(shownText(model), "Name:75 Key:60 Limit:90 Good:52 Sum:53 ");
    EXPECT_EQ(expression(3), "1+\"-1\"");
    EXPECT_EQ(expression(4), "1+\"3\"");
}

}  // namespace
