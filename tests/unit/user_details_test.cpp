#include <gtest/gtest.h>

#include "details/model/details_builders.h"
#include "link/model/mnemonics.h"
#include "tests/unit/detail_lines.h"

using namespace mc;

namespace {

// The fields behind a user id, and the lines behind the row of the dealer's id.
TEST(UserDetails, ShowsTheFieldsThatTheAnswerCarries) {
    const DetailCase cases[] = {
        {"new and old value", {{30001, "Asha"}, {30001, "Usha"}}, {"DealerName: Asha < Usha"}},
        {"no new value", {{50110, kUnreadable}, {50110, "a@b"}}, {"Email Add: NA < a@b"}},
        {"order is the table's",
         {{43438, "Y"}, {64017, "T"}, {54036, "DEALER"}, {64056, "B"}},
         {"Target UserID: T", "User Type: DEALER", "Broker: B", "2FA Enable: Y"}},
        {"password", {{30004, "secret"}, {30004, "old"}}, {"Password: Reset < Reset"}},
        {"transaction password",
         {{63211, "secret"}, {63211, "old"}},
         {"[Details]", "Trans Password: Reset < old"}},
        {"overview", {{63225, "Y"}}, {"Client OverView: Enabled"}},
        {"overview, other text", {{63225, "y"}}, {"Client OverView: Disabled"}},
        {"overview with an old value goes", {{63225, "Y"}, {63225, "N"}}, {}},
        {"no caption", {{31803, "x"}}, {"[Details]", ": x"}},
        {"pro orders",
         {{63217, "tag"}, {64710, kUnreadable}, {64710, "N"}},
         {"[Details]", "User Tag: tag", "Pro Orders: NA < N"}},
        {"access types are alike",
         {{63212, "WEB"}, {63212, "APP"}, {63212, "ADMIN"}, {63220, "other"}},
         {"[Access Type]", ": WEB < APP", ": WEB < APP", ": WEB < APP"}},
        {"products",
         {{64020, "NRML|ML|CNC|ML"}, {64020, "ML"}},
         {"[Product Types]", ": NRML|MLB|CNC|MLB", ":  < MLB"}},
        {"products that begin with a bar", {{64020, "|ML|ML"}}, {"[Product Types]", ": |ML|ML"}},
        {"lists",
         {{10109, "Limit"}, {44201, "DAY"}, {44201, kUnreadable}, {44201, "IOC"}, {64815, "T"}},
         {"[Attributes]", ": DAY", ": NA", ": IOC", "[Vosk Actions]", ": T", "[Order Types]",
          ": Limit"}},
    };
    expectBehind({MNM_USER, "DLR1"}, {"[General]", "Dealer ID: DLR1"}, cases, BuildUserDetails);
}

TEST(UserDetails, GroupsExchanges) {
    const DetailCase cases[] = {
        {"three with expiry dates: all show the status of the first",
         {{MNM_USER, "U"},
          {63001, "nse_cm"},
          {63001, kUnreadable},
          {63001, "mcx_sx"},
          {64018, "31/03/2027"},
          {64018, "0"},
          {64018, kUnreadable},
          {63076, "Y"},
          {63076, "N"},
          {64013, "-1"},
          {64013, "17"},
          {64027, "x"},
          {64027, "-1"},
          {64025, "OK"},
          {64025, "ok"}},
         {"[Exchange:NSE]", "Expiry Date: 31/03/2027", "Status: Enabled", "Exch User ID: Default",
          "Exch User Info: x", "Route to RMS: Yes", "[]", "Expiry Date: NA", "Status: Enabled",
          "Exch User ID: 17", "Exch User Info: Default", "Route to RMS: NO", "[Exchange:MCXSX]",
          "Status: Enabled"}},
        {"one, modified: the old status has a row of its own",
         {{MNM_USER, "U"},
          {63001, "nse_fo"},
          {63076, "N"},
          {63076, "Y"},
          {64025, kUnreadable},
          {64025, "OK"},
          {64013, "-1"}},
         {"[Exchange:NFO]", "Status: Disabled", "Status:  < Enabled", "Exch User ID: Default",
          "Route to RMS:  < Yes"}},
        {"an unknown segment",
         {{MNM_USER, "U"}, {63001, "xyz"}, {63076, "Y"}},
         {"[Exchange:]", "Status: Enabled"}},
        {"nothing about it", {{MNM_USER, "U"}, {63001, "nse_cm"}}, {}},
        {"no exchange named", {{MNM_USER, "U"}, {64018, "0"}}, {"[General]", "Dealer ID: U"}},
    };
    for (const auto& [name, answer, lines] : cases)
        EXPECT_EQ(built(BuildUserDetails, answer), lines) << name;
}

TEST(UserDetails, SaysWhenNothingIsModified) {
    const FieldTexts cases[] = {
        {},
        {{30001, "Asha"}, {63001, "nse_cm"}},             // no user id
        {{MNM_USER, kUnreadable}, {30001, "Asha"}},       // none that can be read
        {{MNM_USER, "U"}, {MNM_AUTHORIZATION_KEY, "1"}},  // nothing but the id
    };
    for (const FieldTexts& answer : cases) EXPECT_EQ(built(BuildUserDetails, answer), kNothing);
    EXPECT_EQ(linesOf(BuildUserDetails(FieldReader(nullptr))), kNothing);
}

// Each access type shows the texts of the first: what is long is not held as often as is claimed.
TEST(UserDetails, RepeatsLongTextsWithinBounds) {
    const struct {
        std::size_t value, old;
        int claimed;
        std::size_t rows;
    } cases[] = {
        {100, 60, kMaxOccurrences, kMaxOccurrences},
        {100'000, 100'000, kMaxOccurrences, kMaxRepeatedBytes / 200'000},
        {kMaxRepeatedBytes + 1, 0, 3, 1},
    };
    for (const auto& [value, old, claimed, rows] : cases) {
        auto answer = makeMessage({{MNM_USER, "U"},
                                   {MNM_ACCESS_TYPE, std::string(value, 'v')},
                                   {MNM_ACCESS_TYPE, std::string(old, 'o')}});
        for (int i = 2; i < claimed; ++i) answer.addUnreadable(MNM_ACCESS_TYPE);
        const auto groups = BuildUserDetails(FieldReader(answer.handle()));
        ASSERT_EQ(groups.size(), 2u);
        ASSERT_EQ(groups[1].rows.size(), rows) << value;
        EXPECT_EQ(groups[1].rows.back().value, std::string(value, 'v'));
        EXPECT_EQ(groups[1].rows.back().oldValue, std::string(old, 'o'));
    }
}

}  // namespace
