#include "details/model/amounts.h"

#include <gtest/gtest.h>

#include "details/model/details_builders.h"
#include "tests/unit/message_builder.h"

using namespace mc;

namespace {

TEST(Amounts, SlipsAreCalledByName) {
    const struct {
        const char *old, *now, *slip;
    } cases[] = {
        {"500000", "5000000", "ten times the old value"},
        {"0.05", "5", "a hundred times the old value"},
        {"1.5", "1500.00", "a thousand times the old value"},
        {"1000", "100", "a tenth of the old value"},
        {"1000", "10", "a hundredth of the old value"},
        {"12345678901234567890123", "12345678901234567890.123", "a thousandth of the old value"},
        {"1234.5", "12345000", "the digits of the old value with the point elsewhere"},
        {"500", "-500", "the sign changed"},
        {"500", "-5000", "the sign changed, ten times the old value"},
        {"-500", "700", "the sign changed"},
        {"120000", "210000", "two digits of the old value swapped"},
        {"10.25", "10.52", "two digits of the old value swapped"},
        {"100.5", "105", "two digits of the old value swapped"},
        {"123", "231", ""},
        {"1200", "2100.01", ""},
        {"0", "500", "from nothing"},
        {"500", "0.00", "to zero"},
        {"0", "-0", ""},
        {"1500", "1500.00", ""},
        {"1500", "1600", ""},
        {"123456789012345678901", "123456789012345678902", ""},
    };
    for (const auto& [old, now, slip] : cases)
        EXPECT_EQ(slipBetween(*readDecimal(old), *readDecimal(now)), slip) << old << " " << now;
}

TEST(Amounts, AreWordedInLakhAndCrore) {
    const struct {
        const char *number, *words, *commas;
    } cases[] = {
        {"0", "zero", "0"},
        {"7", "7", "7"},
        {"1000", "1 thousand", "1,000"},
        {"99999", "99 thousand 999", "99,999"},
        {"1250000", "12 lakh 50 thousand", "12,50,000"},
        {"10000005.5", "1 crore 5 and 50 paise", "1,00,00,005.5"},
        {"-300000", "minus 3 lakh", "-3,00,000"},
        {"0.05", "5 paise", "0.05"},
        {"0.005", "0.5 paise", "0.005"},
        {"1000000000000", "1 lakh crore", "10,00,00,00,00,000"},
        {"123456789012345678901",
         "12 lakh 34 thousand 567 crore 89 lakh 1 thousand 234 crore 56 "
         "lakh 78 thousand 901",
         "12,34,56,78,90,12,34,56,78,901"},
    };
    for (const auto& [number, words, commas] : cases) {
        EXPECT_EQ(inLakhAndCrore(*readDecimal(number)), words);
        EXPECT_EQ(grouped(*readDecimal(number)), commas);
    }
}

sMCListStruct limit(const char* old, const char* sent, const char* shown, const char* typed) {
    sMCListStruct row{"Cash Margin", typed != nullptr ? typed : shown, old};
    row.edited = typed != nullptr;
    row.change = FieldChange::changed;
    row.sent = std::make_shared<SentAmount>(sent, old);
    return row;
}

TEST(Amounts, TheLineSaysWhatTheFocusedRowDoes) {
    const struct {
        const char *old, *sent, *shown, *typed, *line;
    } cases[] = {
        {"500000", "5000000", "5000000.00", nullptr,
         "Ten times the old value. Cash Margin: 500000 to 5000000, +45,00,000 (+900 %), 50 lakh"},
        {"12345678", "12345678.91", "12345679.00", nullptr,
         "Cash Margin: 12345678 to 12345678.91, +0.91 (under 0.1 %), 1 crore 23 lakh 45 thousand "
         "678 and 91 paise; sent as 12345678.91, shown rounded"},
        {"3", "2", "2.00", nullptr, "Cash Margin: 3 to 2, -1 (-33.3 %), 2"},
        {"1000", "999.995", "1000.00", nullptr,
         "Cash Margin: 1000 to 999.995, -0.005 (under 0.1 %), 999 and 99.5 paise; sent as 999.995, "
         "shown rounded"},
        {"-200", "-299", "-299.00", nullptr, "Cash Margin: -200 to -299, -99 (-49.5 %), minus 299"},
        {"0", "5", "5.00", nullptr, "From nothing. Cash Margin: 0 to 5, +5, 5"},
        {"1500", "1500.00", "1500.00", nullptr,
         "Cash Margin: 1500 to 1500.00, the same amount, 1 thousand 500"},
        {"", "1500", "1500.00", nullptr, "Cash Margin: 1500, 1 thousand 500"},
        {"many", "1500", "1500.00", nullptr, "Cash Margin: 1500, 1 thousand 500"},
        {"700", "1000", "1000.00", "10000.00",
         "Ten times what the maker asked for. Cash Margin: 700 to 10000.00, +9,300 (+1328.6 %), "
         "10 thousand; Update sends 10000.00, the maker asked for 1000"},
        {"", "inf", "inf", nullptr, ""},
    };
    for (const auto& [old, sent, shown, typed, line] : cases)
        EXPECT_EQ(lineAbout(limit(old, sent, shown, typed)).text, line);
}

TEST(Amounts, TheLineOfATextSaysWhatDoesNotShow) {
    const struct {
        const char *value, *old, *line;
    } cases[] = {
        {"ASHA", "ASHISH", ""},
        {"ABC0I", "ABCOl", "Name: the values differ in look-alikes only"},
        {"A  B", "A B", "Name: the values differ in blanks only; value: 2 blanks at 2"},
        {"A\xA0", "B\t", "Name: value: no-break blank at the end; old value: tab at the end"},
        {"\x01\x7F", "x", "Name: value: byte 01 in front, byte 7F at the end"},
    };
    for (const auto& [value, old, line] : cases) {
        sMCListStruct row{"Name", value, old};
        row.change = FieldChange::changed;
        EXPECT_EQ(lineAbout(row).text, line);
    }
}

TEST(Amounts, SlipsAmongTheLimitsOfAnAnswerAreNamedTogether) {
    const auto answer = makeMessage({{54001, "C1"},
                                     {64031, "1000"},
                                     {64031, "100"},
                                     {64164, "7"},
                                     {64164, "5"},
                                     {64210, "0"},
                                     {64210, "5"},
                                     {64312, "10"},
                                     {64312, "1"},  // a remark
                                     {64423, "21"},
                                     {64423, "12"},
                                     {41336, "-4"},
                                     {41336, "4"}});
    const FieldReader fields(answer.handle());
    const auto slips = [](const DetailGroups& groups) {
        SlipsOf found;
        for (const DetailGroup& group : groups)
            for (const sMCListStruct& row : group.rows) found.add(row);
        return found.line().text;
    };
    EXPECT_EQ(slips(BuildLimitsDetails(fields, true)),
              "Perhaps slips: Cash Margin (ten times the old value), Sell Sec Limit (to zero), "
              "Buy Exp Option Limit (two digits of the old value swapped) and 1 more");
    EXPECT_EQ(slips(BuildClientDetails(fields)), "");
}

}  // namespace
