#include "workbench/model/decisions.h"

#include <gtest/gtest.h>

#include "link/model/mnemonics.h"
#include "tests/unit/answer_recorder.h"
#include "tests/unit/fake_host.h"
#include "tests/unit/view_recorder.h"

using namespace mc;

namespace {

constexpr char kInvestorType[] = "INVESTOR_CLIENT";

// A listed change.
struct PairRow {
    std::string key, code, type, entityName, linkedUser;
};

PairRow plain(const std::string& key) {
    return {key, "354", "RETAIL", "CL" + key, ""};
}
PairRow user(const std::string& key, const std::string& name) {
    return {key, "339", kInvestorType, name, ""};
}
PairRow client(const std::string& key, const std::string& linkedUser) {
    return {key, "353", kInvestorType, "CL" + key, linkedUser};
}

struct DecisionsFixture {
    void list(const PairRow& row) {
        changes.addRecord(row.key, {.entityName = row.entityName,
                                    .functionalityCode = row.code,
                                    .linkedUser = row.linkedUser,
                                    .type = row.type});
    }
    void list(const std::vector<PairRow>& rows) {
        for (const PairRow& row : rows) list(row);
    }

    PressPlan planOfAll(PressButton button) {
        std::vector<Slot> slots;
        for (std::size_t i = 0; i < changes.size(); ++i) slots.push_back(changes.at(i).slot);
        return planPress(button, slots, changes, details);
    }
    void acceptAll() { acceptSelected(planOfAll(PressButton::accept), changes, requests, host); }
    void rejectAll(const std::string& reason) {
        rejectSelected(planOfAll(PressButton::reject), reason, changes, requests);
    }

    // The decisions that were sent, as "accepted 1001".
    Lines decisions() {
        Lines lines;
        for (const SentMessage& message : host.control().sent)
            lines.push_back(valueOf(message, MNM_STATUS) + " " +
                            valueOf(message, MNM_AUTHORIZATION_KEY));
        return lines;
    }

    FakeHost host;
    ViewRecorder view;
    PendingChanges changes{view};
    AnswerRecorder answers;
    serverLink link{host, answers};
    DetailsOnShow details;
    Requests requests{host, link, details};
};

class Decisions : public testing::Test, protected DecisionsFixture {};

TEST(Accept, PairsInvestorsUsersWithTheirClients) {
    const struct {
        const char* name;
        std::vector<PairRow> rows;
        Lines accepted;        // keys
        std::string unpaired;  // as the message box names them
    } cases[] = {
        {"changes of others go at once",
         {{"1", "339", "DEALER", "U", ""},
          {"2", "353", "RETAIL", "C", "U"},
          {"3", "360", "", "", ""}},
         {"1", "2", "3"},
         ""},
        {"so do an investor's other changes",
         {{"1", "340", kInvestorType, "U", ""},
          {"2", "354", kInvestorType, "C", "U"},
          {"3", "365", kInvestorType, "U", ""},
          {"4", "366", kInvestorType, "C", "U"},
          {"5", "360", kInvestorType, "", ""},
          {"6", "777", kInvestorType, "", ""}},
         {"1", "2", "3", "4", "5", "6"},
         ""},
        {"the user first, after all others",
         {client("1", "U"), plain("2"), user("3", "U"), plain("4")},
         {"2", "4", "3", "1"},
         ""},
        {"from the last to the first",
         {user("1", "U1"), user("2", "U2"), user("3", "U3")},
         {},
         "  U3  U2  U1"},
        {"clients stay unnamed while a user is unpaired",
         {user("1", "U1"), client("2", "U2"), client("3", "U3")},
         {},
         "  U1"},
        {"a pair between unpaired ones",
         {user("1", "U1"), user("2", "U2"), client("3", "U2"), client("4", "U4")},
         {"2", "3"},
         "  U1"},
        {"pairs from the last to the first",
         {user("1", "U1"), user("2", "U2"), client("3", "U1"), client("4", "U2")},
         {"2", "4", "1", "3"},
         ""},
        {"names are compared exactly",
         {user("1", "u"), client("2", "U"), user("3", "U ")},
         {},
         "  U   u"},
        {"one client for two users of its name",
         {user("1", "U"), user("2", "U"), client("3", "U")},
         {"2", "3", "1", "3"},
         ""},
        {"the last of two clients takes both users",
         {client("1", "U"), client("2", "U"), user("3", "U"), user("4", "U"), plain("5")},
         {"5", "4", "2", "3", "2"},
         "  CL1"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        DecisionsFixture f;
        f.list(each.rows);
        f.acceptAll();

        Lines decisions, said;
        for (const std::string& key : each.accepted) {
            decisions.push_back("accepted " + key);
            said.emplace_back("log Request sent to Accept Authentication");
        }
        if (!each.unpaired.empty()) {
            const std::string text = "Autenticate User and Account for" + each.unpaired;
            said.push_back("box " + text);
            said.push_back("log " + text +
                           "For Investor client Autenticate User and Client Together");
        }
        EXPECT_EQ(f.decisions(), decisions);
        EXPECT_EQ(f.host.said, said);
        EXPECT_EQ(f.changes.size(), each.rows.size()) << "no decision removes a row";
    }
}

TEST_F(Decisions, AFailingUserWithholdsItsClient) {
    list({user("1", "U"), client("2", "U")});
    host.control().works = false;
    acceptAll();
    EXPECT_EQ(host.takeSaid(), Lines{"error Failed while sending om_authenticate_functionality"});
    EXPECT_EQ(changes.size(), 2u);

    // Pressing again does it.
    host.control().works = true;
    acceptAll();
    EXPECT_EQ(decisions(), (Lines{"accepted 1", "accepted 2"}));
}

// What others decide while a message box is open is neither decided again nor read after it went.
TEST_F(Decisions, AcceptSkipsWhatWasDecidedBehindAMessageBox) {
    list({plain("1"), plain("2"), plain("3"), user("4", "U"), client("5", "U"), user("6", "V"),
          client("7", "V"), user("8", "W"), client("9", "W"), user("10", "X"), user("11", "Y")});
    host.control().works = false;
    host.whileBoxIsOpen = [this] {
        host.control().works = true;
        // Of the second pair the user goes, of the third the client: neither half is accepted
        // alone.
        for (const char* key : {"1", "2", "6", "9", "11"}) changes.removeRecord(key);
        list(plain("2"));  // another change of that key was never selected
    };
    acceptAll();
    EXPECT_EQ(decisions(), (Lines{"accepted 3", "accepted 4", "accepted 5"}));
    EXPECT_EQ(host.said[host.said.size() - 2], "box Autenticate User and Account for  X")
        << "what was decided is not named as left over";
}

TEST_F(Decisions, RejectSendsTheReasonInRowOrderWithoutPairing) {
    list({client("1", "U"), plain("2"), user("3", "U"), user("4", "V")});
    rejectAll("not agreed");
    EXPECT_EQ(decisions(), (Lines{"rejected 1", "rejected 2", "rejected 3", "rejected 4"}));
    for (const SentMessage& message : host.control().sent)
        EXPECT_EQ(valueOf(message, MNM_ERROR), "not agreed");
    EXPECT_EQ(host.said, Lines(4, "log Request sent to Reject Authentication"));
    EXPECT_EQ(changes.size(), 4u);
}

TEST_F(Decisions, RejectWithoutAReasonOrRowsSendsNothing) {
    rejectAll("not agreed");
    list(plain("1"));
    rejectAll("");
    EXPECT_EQ(decisions(), Lines{});
    EXPECT_EQ(host.said, Lines{});
}

TEST_F(Decisions, RejectSkipsWhatWasDecidedBehindAMessageBox) {
    list({plain("1"), plain("2"), plain("3")});
    host.control().works = false;
    host.whileBoxIsOpen = [this] {
        host.control().works = true;
        changes.removeRecord("2");
        changes.removeRecord("1");
    };
    rejectAll("not agreed");
    EXPECT_EQ(decisions(), Lines{"rejected 3"});
    EXPECT_EQ(changes.size(), 1u);
}

}  // namespace
