// The details of users and clients: the rows of each answer.
#include <gtest/gtest.h>

#include <span>

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

void expectBehindTheClientId(std::span<const DetailCase> cases) {
    expectBehind({MNM_ACCOUNT_ID, "C1"}, {"[General]", "Client Id: C1"}, cases, BuildClientDetails);
}

TEST(ClientDetails, ShowsTheFieldsThatTheAnswerCarries) {
    const DetailCase cases[] = {
        {"general, in the table's order",
         {{54003, "ACTIVE"}, {64844, "M"}, {64852, "X"}, {54002, "Meera"}, {54002, "Mira"}},
         {"Client Name: Meera < Mira", "MCX UCC: M", "MCX UCC: X", "Client Status: ACTIVE"}},
        {"a user IP without an ARN", {{63215, "10.0.0.1"}}, {"User IP: 10.0.0.1", "ARN NO: NA"}},
        {"both",
         {{63215, "10.0.0.1"}, {64765, "A"}, {64765, "B"}},
         {"User IP: 10.0.0.1", "ARN NO: A < B"}},
        {"context",
         {{12014, "Offline-NonSqroff"}},
         {"Client Context: Offline", "Square Off: Excluded"}},
        {"unknown context", {{12014, "online-sqroff"}}, {"Client Context: ", "Square Off: "}},
        {"unreadable context", {{12014, kUnreadable}}, {"Square Off: NA"}},
        {"the old context is the old status",
         {{12014, "Offline-Sqroff"},
          {12014, "Offline-Sqroff"},
          {54003, "A"},
          {54003, "Online-Sqroff"}},
         {"Client Status: A < Online-Sqroff", "Client Context: Offline", "Square Off: Included",
          "Client Context:  < Internet", "Square Off:  < Included"}},
        {"the old status alone is no context",
         {{54003, "A"}, {54003, "Online-Sqroff"}},
         {"Client Status: A < Online-Sqroff"}},
        {"SOR and birthday",
         {{64935, "d"}, {64807, "N"}, {64807, "Y"}},
         {"SOR Enabled: NO < YES", "Client DOB: d"}},
        {"SOR, other texts", {{64807, kUnreadable}, {64807, "y"}}, {"SOR Enabled: NA"}},
        {"payment by NEFT",
         {{64916, "PAN"},
          {64836, "NEFT"},
          {64836, "ECS"},
          {64832, "N1"},
          {64832, "N0"},
          {64955, "E"}},
         {"[Bank Details]", "Payment Mode: NEFT < ECS", "Pan No: PAN", "Payment Code: N1 < N0"}},
        {"payment by ECS, unreadable code",
         {{64836, "ECS"}, {64955, kUnreadable}},
         {"[Bank Details]", "Payment Mode: ECS", "Payment Code: NA"}},
        {"the second branch name brings the account number",
         {{64957, "Camp"}},
         {"[Bank Details]", "Bank Branch Name 2: Camp", "Acct NO2: NA"}},
        {"the account number without it",
         {{64958, "17"}, {64997, "6"}, {64956, "Two"}},
         {"[Bank Details]", "Bank Name 2: Two", "Acct NO6: 6"}},
        {"products", {{64020, "CNC|ML"}}, {"[Products Enabled]", ": CNC|MLB"}},
        {"changed products show the old ones only",
         {{64020, "CNC|ML"}, {64020, "ML"}},
         {"[Products Enabled]", ":  < MLB"}},
    };
    expectBehindTheClientId(cases);
}

TEST(ClientDetails, ShowsProductCodesOfSegmentsAndExchanges) {
    const DetailCase cases[] = {
        {"segments, empty pieces skipped",
         {{64021, "|nse_cm||bse_fo|"}, {64021, "mcx_fo"}, {64700, "P1"}, {64705, "P2"}},
         {"[Exchange:NSE]", "PCode: P1", "[Exchange:BFO]", "PCode: P2", "[]", "NSE PCode: P1",
          "BFO PCode: P2"}},
        {"a segment without a code has no group",
         {{64021, "nse_cm|any|xyz|NFO"}, {64701, "P"}},
         {"[Exchange:]", "PCode: P", "[]", "NFO PCode: P"}},
        {"MCXSX has MCX's code, which has two rows",
         {{64021, "mcx_sx"}, {64704, "M1"}, {64704, "M0"}},
         {"[Exchange:MCXSX]", "PCode: M1", "[]", "MCX PCode: M1 < M0", "MCX PCode: M1 < M0"}},
        {"the old segments, when the new ones cannot be read",
         {{64021, kUnreadable}, {64021, "nse_slb"}, {64731, "S"}},
         {"[Exchange: < SLBM]", "PCode:  < S", "[]", "nse_slb PCode: S"}},
        {"neither",
         {{64021, kUnreadable}, {64700, kUnreadable}, {61626, "N"}},
         {"[]", "NCO PCode: N"}},
    };
    expectBehindTheClientId(cases);
}

TEST(ClientDetails, SaysWhenNothingIsModified) {
    const FieldTexts cases[] = {
        {{54002, "Meera"}, {64021, "nse_cm"}},    // no client id
        {{MNM_ACCOUNT_ID, "C1"}},                 // nothing but the id
        {{MNM_ACCOUNT_ID, "C1"}, {64958, "17"}},  // the second account's number counts not
        {{MNM_ACCOUNT_ID, "C1"}, {64700, "P"}},   // and neither does a product code
    };
    for (const FieldTexts& answer : cases) EXPECT_EQ(built(BuildClientDetails, answer), kNothing);
    // These count, though they have no row of their own.
    for (const int field : {12014, 64955, 64839, 64832, 64021, 64020, 64859})
        EXPECT_NE(built(BuildClientDetails, {{MNM_ACCOUNT_ID, "C1"}, {field, "x"}}), kNothing);
}

}  // namespace
