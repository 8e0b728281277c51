#include <gtest/gtest.h>

#include <span>

#include "details/model/details_builders.h"
#include "tests/unit/detail_lines.h"

using namespace mc;

namespace {

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
