// The dialogs of columns: which show in which order, and user-defined ones.
#include <gtest/gtest.h>

#include "listctrl/dialogs/model/column_choice.h"
#include "listctrl/dialogs/model/user_column.h"

using namespace mc;

namespace {

// Five columns A to E, of which A and C are mandatory.
ColumnModel five() {
    static constexpr sVoskColInfo columns[] = {{"A", 75, 1, ColumnType::text},
                                               {"B", 75, 1, ColumnType::text},
                                               {"C", 75, 1, ColumnType::text},
                                               {"D", 75, 1, ColumnType::text},
                                               {"E", 75, 1, ColumnType::text}};
    static constexpr ColumnId mandatory[] = {ColumnId{0}, ColumnId{2}};
    ColumnModel model;
    model.install(columns);
    model.setMandatory(mandatory);
    return model;
}

std::string names(const ColumnChoice& choice, const std::vector<ColumnId>& columns) {
    std::string text;
    for (const ColumnId id : columns) text += choice.caption(id);
    return text;
}

TEST(ColumnChoice, OneColumnStays) {
    ColumnModel model = five();
    model.setMandatory({});
    ColumnChoice choice(model, std::nullopt);
    EXPECT_EQ(names(choice, choice.remove({0, 1, 2, 3, 4})), "E");
    EXPECT_EQ(names(choice, choice.shown()), "E");
}

TEST(ColumnChoice, RowsMoveTogether) {
    const struct {
        Rows rows;
        std::size_t before;
        const char* order;
        Rows now;
    } cases[] = {
        {{1}, 0, "BACDE", {0}},       {{1}, 1, "ABCDE", {1}},       {{1}, 2, "ABCDE", {1}},
        {{1}, 5, "ACDEB", {4}},       {{0, 3}, 2, "BADCE", {1, 2}}, {{0, 4}, 99, "BCDAE", {3, 4}},
        {{0, 1}, 0, "ABCDE", {0, 1}}, {{}, 3, "ABCDE", {}},
    };
    for (const auto& each : cases) {
        ColumnChoice choice(five(), std::nullopt);
        EXPECT_EQ(choice.move(each.rows, each.before), each.now) << each.order;
        EXPECT_EQ(names(choice, choice.shown()), each.order);
    }
    ColumnChoice choice(five(), std::nullopt);
    EXPECT_EQ(choice.moveUp({0, 1}), (Rows{0, 1})) << "at the top already";
    EXPECT_EQ(choice.moveDown({3, 4}), (Rows{3, 4})) << "at the bottom already";
    EXPECT_EQ(choice.moveUp({3}), Rows{2});
    EXPECT_EQ(choice.moveDown({2}), Rows{3});
    EXPECT_EQ(names(choice, choice.shown()), "ABCDE");
}

ColumnModel limits() {
    static constexpr sVoskColInfo columns[] = {{"Key", 75, 1, ColumnType::longInteger},
                                               {"Limit", 75, 1, ColumnType::number},
                                               {"Time", 75, 1, ColumnType::dateTime},
                                               {"Branch", 75, 1, ColumnType::text}};
    ColumnModel model;
    model.install(columns);
    model.add({"Twice", "2*\"1\"", "2 * \"Limit\""});
    return model;
}

TEST(UserColumn, WhatIsTypedIsReadAsShown) {
    ColumnModel columns = limits();
    columns.add({"A\"B", "1", ""});  // a caption may hold a quote
    const struct {
        const char *displayed, *internal;
    } cases[] = {
        {"", " "},
        {" \t\r\n ", " "},
        {"2 3", " 2 3"},                  // not 23
        {"\"Key\" * - 2", " \"0\"* -2"},  // not *-, which is no operator
        {"( 1 + 2 ) * 3", " (1+2)*3"},
        {"\"A\"B\" + 1", " \"5\"+1"},
        {"\"Nobody\" + 1", " \"-1\"+1"},
        {"1 + \"Key", " 1+\"-1\""},  // not closed
        {"\"\"", " \"-1\""},
        {"\"", " \"-1\""},
    };
    for (const auto& each : cases)
        EXPECT_EQ(internalExpression(each.displayed, columns), each.internal) << each.displayed;
}

TEST(UserColumn, ChecksInTheirOrder) {
    constexpr char kInvalid[] = "Invalid Expression, Please check the expression again";
    constexpr char kReserved[] =
        "\"#,\" are not allowed as a custom column name , please choose a different name";
    const struct {
        const char *name, *displayed, *message;
    } cases[] = {
        {"  ", "", "Please Enter the column Name"},
        {"a#b", "", kReserved},
        {"a,b", "", kReserved},
        {"Sum", "  ", "Column Expression is empty, please enter an expression to add a column"},
        {"Key", "\"Nobody\"", kInvalid},  // before the name that is taken
        {"Sum", "\"Key\" +", kInvalid},
        {"Sum", "(\"Key\"", kInvalid},
        {"Sum", "\"Key\" ( ", kInvalid},
        {"Sum", "\"Key\"\"Limit\"", kInvalid},  // cells would run together
        {"Sum", "\"Key\" 2", kInvalid},
        {"Sum", "2\"Key\"", kInvalid},
        {"Sum", "1 # 2", kInvalid},
        {"Sum", "1, 2", kInvalid},
        {"Sum", "\"Key", kInvalid},
        {"Key", "\"Key\"", "This column name already present,Please choose different column Name"},
        {"key", "\"Key\"", nullptr},  // captions are told apart byte by byte
        {"Sum", "-\"Key\" + (\"Limit\" * 2) ^ 2", nullptr},
        {"Sum", "7 % \"Key\"", nullptr},  // no position is a zero that cannot divide
        {"Sum", "2 * - \"Key\"", nullptr},
    };
    for (const auto& each : cases) {
        ColumnModel columns = limits();
        const auto made = newUserColumn(each.name, each.displayed, columns);
        const auto* message = std::get_if<const char*>(&made);
        EXPECT_STREQ(message != nullptr ? *message : nullptr, each.message) << each.displayed;
        if (message == nullptr) {
            EXPECT_TRUE(columns.add(std::get<UserDefinedColumn>(made)));
        }
    }
}

}  // namespace
