// What is sent of decisions in which order, and what the log of the session says of each.
#include <gtest/gtest.h>

#include "tests/unit/workbench_fixture.h"
#include "workbench/model/decision_log.h"
#include "workbench/model/decisions.h"

using namespace mc;

namespace {

class Decisions : public WorkbenchTest {
protected:
    // Presses on all rows.
    void acceptAll() { press("accept"); }
    void rejectAll() { press("reject"); }

    // The decisions that were sent, as "accepted 1001".
    Lines decisions() {
        Lines lines;
        for (const SentMessage& message : host.control().sent)
            lines.push_back(valueOf(message, MNM_STATUS) + " " +
                            valueOf(message, MNM_AUTHORIZATION_KEY));
        return lines;
    }

private:
    void press(const char* button) {
        rows().selection().selectAll();
        take(button);
    }
};

TEST_F(Decisions, PairInvestorsUsersWithTheirClients) {
    const struct {
        const char* name;
        const char* changes;   // 339: a new user, 353: a new client with its user
        Lines accepted;        // keys
        std::string unpaired;  // as the message box names them
    } cases[] = {
        {"changes of others go at once", "list 1 339,list 2 353,list 3 360", {"1", "2", "3"}, ""},
        {"so do an investor's other changes",
         "list 1 340 U,list 2 354 C,list 3 365 U,list 4 366 C,list 5 360 C,list 6 777 C",
         {"1", "2", "3", "4", "5", "6"},
         ""},
        {"the user first, after all others",
         "list 1 353 C U,list 2 354,list 3 339 U,list 4 354",
         {"2", "4", "3", "1"},
         ""},
        {"from the last to the first",
         "list 1 339 U1,list 2 339 U2,list 3 339 U3",
         {},
         "  U3  U2  U1"},
        {"clients stay unnamed while a user is unpaired",
         "list 1 339 U1,list 2 353 C2 U2,list 3 353 C3 U3",
         {},
         "  U1"},
        {"a pair between unpaired ones",
         "list 1 339 U1,list 2 339 U2,list 3 353 C3 U2,list 4 353 C4 U4",
         {"2", "3"},
         "  U1"},
        {"pairs from the last to the first",
         "list 1 339 U1,list 2 339 U2,list 3 353 C3 U1,list 4 353 C4 U2",
         {"2", "4", "1", "3"},
         ""},
        {"names are compared exactly", "list 1 339 u,list 2 353 C2 U,list 3 339 U_", {}, "  U_  u"},
        {"one client for two users of its name",
         "list 1 339 U,list 2 339 U,list 3 353 C3 U",
         {"2", "3", "1", "3"},
         ""},
        {"the last of two clients takes both users",
         "list 1 353 C1 U,list 2 353 C2 U,list 3 339 U,list 4 339 U,list 5 354",
         {"5", "4", "2", "3", "2"},
         "  C1"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        restart();
        run(each.changes);
        const std::size_t listed = workbench->changes().size();
        acceptAll();

        Lines sent, said;
        for (const std::string& key : each.accepted) {
            sent.push_back("accepted " + key);
            said.emplace_back("log Request sent to Accept Authentication");
        }
        if (!each.unpaired.empty()) {
            const std::string text = "Autenticate User and Account for" + each.unpaired;
            said.push_back("box " + text);
            said.push_back("log " + text +
                           "For Investor client Autenticate User and Client Together");
        }
        EXPECT_EQ(decisions(), sent);
        EXPECT_EQ(host.takeSaid(), said);
        EXPECT_EQ(workbench->changes().size(), listed) << "no decision removes a row";
    }
}

TEST_F(Decisions, AFailingUserWithholdsItsClient) {
    run("list 1 339 U,list 2 353 C2 U");
    host.control().works = false;
    acceptAll();
    EXPECT_EQ(host.takeSaid(), Lines{"error Failed while sending om_authenticate_functionality"});

    // Pressing again does it.
    host.control().works = true;
    acceptAll();
    EXPECT_EQ(decisions(), (Lines{"accepted 1", "accepted 2"}));
}

// What others decide while a message box is open is neither decided again nor read after it went.
TEST_F(Decisions, AcceptSkipsWhatWasDecidedBehindAMessageBox) {
    run("list 1 354,list 2 354,list 3 354,list 4 339 U,list 5 353 C U,list 6 339 V,list 7 353 C V,"
        "list 8 339 W,list 9 353 C W,list 10 339 X,list 11 339 Y");
    host.control().works = false;
    host.whileBoxIsOpen = [this] {
        host.control().works = true;
        // Of the second pair the user goes, of the third the client: neither half is accepted
        // alone. Another change of a decided one's key was never selected.
        run("end 1,end 2,end 6,end 9,end 11,list 2 354");
    };
    acceptAll();
    EXPECT_EQ(decisions(), (Lines{"accepted 3", "accepted 4", "accepted 5"}));
    EXPECT_EQ(host.said[host.said.size() - 2], "box Autenticate User and Account for  X")
        << "what was decided is not named as left over";
}

TEST_F(Decisions, RejectSendsTheReasonInRowOrderWithoutPairing) {
    rejectAll();
    run("list 1 353 C U,list 2 354,list 3 339 U,list 4 339 V");
    rejectAll();
    EXPECT_EQ(decisions(), (Lines{"rejected 1", "rejected 2", "rejected 3", "rejected 4"}));
    for (const SentMessage& message : host.control().sent)
        EXPECT_EQ(valueOf(message, MNM_ERROR), "no");
    EXPECT_EQ(host.takeSaid(), Lines(4, "log Request sent to Reject Authentication"));
    workbench->presses().reject(workbench->changes().selectedRecords(), [] { return ""; });
    EXPECT_EQ(decisions().size(), 4u) << "without a reason";
    EXPECT_EQ(host.said, Lines{});
}

TEST_F(Decisions, RejectSkipsWhatWasDecidedBehindAMessageBox) {
    run("list 1 354,list 2 354,list 3 354");
    host.control().works = false;
    host.whileBoxIsOpen = [this] {
        host.control().works = true;
        run("end 2,end 1");
    };
    rejectAll();
    EXPECT_EQ(decisions(), Lines{"rejected 3"});
}

// What is published again while a box of the press is open was not seen: it stays, and so does the
// other half of its pair. What a Recover brings again as it was stays what was meant.
TEST_F(Decisions, LeaveOutWhatIsPublishedAgainBehindABox) {
    const struct {
        const char* step;
        std::string accepted, rejected;
    } cases[] = {
        {"again 2", "134", "134"},
        {"other 2", "134", "134"},
        {"own 2", "134", "134"},
        {"again 3", "12", "124"},
        {"again 4", "12", "123"},
        {"again 5", "1234", "1234"},
        {"end 2", "134", "134"},
        {"found 2", "1234", "1234"},
        {"found 2 340", "134", "134"},
        {"answer user 1", "1234", "1234"},
        {"new answer user 1", "234", "234"},
    };
    for (const auto& each : cases) {
        for (const bool accepts : {true, false}) {
            SCOPED_TRACE(std::string(each.step) + (accepts ? " accept" : " reject"));
            run("list 1 339,list 2 339,list 3 339 U,list 4 353 C U,read 1");
            host.answersYes = true;
            if (accepts)
                rejectAll();  // so that the opposite asks
            else
                acceptAll();
            takeSent();
            host.whileBoxIsOpen = [&] { take(each.step); };
            if (accepts)
                acceptAll();
            else
                rejectAll();
            std::string left;
            for (const std::string& key : takeSent(MNM_AUTHORIZATION_KEY)) left += key;
            EXPECT_EQ(left, accepts ? each.accepted : each.rejected);
            EXPECT_EQ(workbench->sight().leftOut(),
                      left.size() < 4 && each.step != std::string("end 2"));
            workbench->sight().takes(PressSight::Hits::selection, {});
            run("end 1,end 2,end 3,end 4,end 5");
        }
    }
}

std::string rowOf(const DecisionLog& log, Slot slot) {
    std::string row;
    for (std::size_t column = 1; column < kDecisionColumns.size(); ++column)
        row += (column == 1 ? "" : "|") + std::string(log.cellText(slot, toColumnId(column)));
    return row;
}

// Without what begins with a digit behind the last blank: the time of an outcome.
std::string timeless(std::string row) {
    const auto blank = row.rfind(' ');
    if (blank != row.npos && blank + 1 < row.size() && isDigit(row[blank + 1])) row.resize(blank);
    return row;
}

TEST_F(WorkbenchTest, NotesWhatLeftAndWhatCameOfIt) {
    DecisionLog& log = workbench->decisionLog();
    const PendingChange first = list("1001", "354"), second = list("1002", "340");
    workbench->presses().reject({&first.slot, 1}, [] { return std::string("wrong branch"); });
    workbench->presses().accept({&second.slot, 1});
    workbench->presses().accept({&second.slot, 1});
    workbench->presses().recover();
    EXPECT_EQ(log.summary(), "4 decisions, 3 outcomes awaited");
    publish("rejected", "1002");
    take("end 9999");
    EXPECT_EQ(log.summary(), "4 decisions, 1 outcome awaited");
    const char* const rows[] = {
        "Reject|1001||MODIFY CLIENT|wrong branch|awaited",
        "Accept|1002|DLR101|MODIFY USER||rejected",
        "Accept|1002|DLR101|MODIFY USER||rejected",
        "Recover|||||sent",
    };
    ASSERT_EQ(log.rows().rowCount(), std::size(rows));
    for (std::size_t row = 0; row < std::size(rows); ++row)
        EXPECT_EQ(timeless(rowOf(log, log.rows().slotAt(row))), rows[row]);
    EXPECT_EQ(log.newestAbout("1002"), log.rows().slotAt(2));
    EXPECT_EQ(log.newestAbout("9999"), kNoSlot);
    EXPECT_EQ(log.newest(), log.rows().slotAt(3));
}

TEST(DecisionLogTest, LetsTheOldestGo) {
    DecisionLog log;
    sMakeCheckStruct change;
    const auto decide = [&](std::size_t key) {
        change.key = std::to_string(key);
        log.note({RequestKind::accept, key % 2 == 0, change.key, &change}, change, 0);
    };
    decide(7);
    for (std::size_t key = 1; key <= DecisionLog::kMaxDecisions; ++key) decide(key);
    EXPECT_EQ(log.summary(), "20,000 decisions, 10,000 outcomes awaited");
    EXPECT_NE(log.newestAbout("7"), kNoSlot);
    EXPECT_EQ(rowOf(log, log.newestAbout("7")), "Accept|7||||failed to send");
    for (std::size_t key = 1; key <= 100; ++key) decide(20'000 + key);
    EXPECT_EQ(log.newestAbout("7"), kNoSlot);
    EXPECT_EQ(log.rows().rowCount(), DecisionLog::kMaxDecisions);
    EXPECT_EQ(rowOf(log, log.rows().slotAt(0)), "Accept|101||||failed to send");
    log.outcomeCame("102", "accepted", 0);
    EXPECT_EQ(log.summary(), "20,000 decisions, 9,999 outcomes awaited");
}

}  // namespace
