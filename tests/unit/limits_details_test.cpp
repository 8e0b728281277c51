#include <gtest/gtest.h>

#include <algorithm>

#include "details/model/details_builders.h"
#include "details/model/limit_edits.h"
#include "tests/unit/detail_lines.h"

using namespace mc;

namespace {

// The fields of a client's limits, and the lines behind the client's row.
TEST(LimitsDetails, FormatsEachKindOfLimit) {
    const DetailCase cases[] = {
        {"an amount; the old one as sent",
         {{64031, "1500"}, {64031, "1000"}},
         {"Cash Margin: 1500.00 < 1000"}},
        {"single precision", {{64177, "12345678.91"}}, {"Buy Exp Limit: 12345679.00"}},
        {"a tie", {{64031, "0.125"}}, {"Cash Margin: 0.12"}},
        {"negative", {{64031, "-0.001"}}, {"Cash Margin: -0.00"}},
        {"beyond single precision",
         {{64031, "1e300"}, {64164, "-1e300"}, {64036, "nan"}},
         {"Cash Margin: inf", "Finance Limit: -inf", "Del.Amt.Lim: nan"}},
        {"large", {{64031, "1e38"}}, {"Cash Margin: 99999996802856924650656260769173209088.00"}},
        {"no numbers", {{64031, "many"}, {64164, ""}, {64036, kUnreadable}, {64036, "5"}}, {}},
        {"counts",
         {{64211, "5000"}, {64211, "4e3"}, {64210, "9223372036854775807"}},
         {"Buy Sec Limit: 5000 < 4e3", "Sell Sec Limit: 9223372036854775807"}},
        {"no counts", {{64211, "12.5"}, {64210, "9223372036854775808"}}, {}},
        {"the order quantity's old count is read too",
         {{41236, "007"}, {41236, "006"}},
         {"Order quantity limit: 7 < 6"}},
        {"or left out", {{41236, "7"}, {41236, "6.5"}}, {"Order quantity limit: 7"}},
        {"ad hoc margins that count",
         {{64302, "2"}, {64158, "1"}, {64174, "OK"}},
         {"Adhoc Margin: 1.00", "Notional cash: 2.00"}},
        {"ad hoc margins that do not", {{64302, "2"}, {64158, "1"}, {64174, "ok"}}, {}},
        {"groupwise validation", {{64037, "yes"}, {64037, "no"}}, {"GroupWise Validation: E < D"}},
        {"and its other texts",
         {{64037, "Yes"}, {64037, "NO"}},
         {"GroupWise Validation: Yes < NO"}},
        {"texts, in the table's order",
         {{41336, "4"}, {64312, "why"}, {64312, "how"}, {13034, "HNI"}, {41046, "1"}},
         {"Category Name: HNI", "Remarks Text: why < how", "Cur NRML Adhoc: 1.00",
          "Premium Net Limit: 4"}},
    };
    expectBehind({MNM_ACCOUNT_ID, "C1"}, {"[RMS Limits]", "RMS Limit For: Client - C1"}, cases,
                 BuildLimitsDetails, true);
}

TEST(LimitsDetails, WhatTellsSomethingDependsOnWhoseLimitsTheyAre) {
    struct Case {
        FieldTexts answer;
        const char* firstRow;  // null: nothing is modified
    };
    const Case cases[] = {
        {{{MNM_BROKER, "B"}, {64031, "1"}}, nullptr},
        {{{MNM_BROKER, "B"}, {64031, "1"}, {64420, "2"}}, "RMS Limit For: Broker - B"},
        {{{MNM_BRANCH, "B"}, {41282, "1"}}, "RMS Limit For: Branch - B"},
        {{{MNM_USER, "U"}, {MNM_BROKER, "B"}, {64031, "1"}}, "RMS Limit For: Broker - B"},
        {{{MNM_ACCOUNT_ID, "C"}, {41046, "1"}}, nullptr},
        {{{MNM_ACCOUNT_ID, "C"}, {64031, kUnreadable}, {64031, "1"}}, nullptr},
        {{{MNM_ACCOUNT_ID, kUnreadable}, {64031, "1"}}, nullptr},
        {{{41336, "1"}}, "Premium Net Limit: 1"},
        {{}, nullptr},
    };
    for (const auto& [answer, firstRow] : cases) {
        const DetailLines lines = built(BuildLimitsDetails, answer, false);
        if (firstRow == nullptr)
            EXPECT_EQ(lines, kNothing);
        else
            EXPECT_EQ(lines.at(1), firstRow);
    }
}

TEST(LimitsDetails, TheModifyRightMakesLimitsEditable) {
    const auto answer = makeMessage({{MNM_USER, "U"}, {13034, "x"}, {64031, "1"}, {64037, "yes"}});
    for (const bool mayModify : {true, false}) {
        const auto groups = BuildLimitsDetails(FieldReader(answer.handle()), mayModify);
        const auto limit = mayModify ? RowAttribute::number : RowAttribute::readOnly;
        const std::pair<RowAttribute, int> expected[] = {{RowAttribute::readOnly, 0},
                                                         {RowAttribute::readOnly, 0},
                                                         {limit, 64031},
                                                         {RowAttribute::choice, 64037}};
        ASSERT_EQ(groups.at(0).rows.size(), std::size(expected));
        EXPECT_TRUE(std::ranges::equal(groups[0].rows, expected, {}, [](const auto& row) {
            return std::pair(row.attribute, row.mnemonic);
        }));
        EXPECT_EQ(groups[0].header.attribute, RowAttribute::readOnly);
    }
}

TEST(LimitEdits, AreSpelledByTheirField) {
    const struct {
        int mnemonic;
        const char *typed, *spelled;  // null: not kept
    } cases[] = {
        {64031, "12.345", "12.35"},  // the nearest double is a little more
        {64031, "0.125", "0.12"},   {64031, " 7 lots", "7.00"},
        {64031, "", "0.00"},        {64031, "many", "0.00"},
        {64031, "1,000", "1.00"},   {64031, "inf", "0.00"},
        {64031, "0x1F", "0.00"},    {64031, "-5", "-5.00"},
        {64031, "1e999", nullptr},  {64210, "12.345", "12"},
        {41236, "2.5", "2"},        {64211, "1e20", "100000000000000000000"},
        {64312, "3.7", "4"},        {64037, "E", "0"},
        {64210, "-1e999", nullptr},
    };
    for (const auto& [mnemonic, typed, spelled] : cases)
        EXPECT_EQ(spellLimit(mnemonic, typed),
                  spelled != nullptr ? std::optional<std::string>(spelled) : std::nullopt)
            << typed;
}

}  // namespace
