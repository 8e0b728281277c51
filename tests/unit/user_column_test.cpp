#include "listctrl/dialogs/model/user_column.h"

#include <gtest/gtest.h>

using namespace mc;

namespace {

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
