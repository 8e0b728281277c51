#include "workbench/model/workbench.h"

#include "console/model/authorization_server.h"
#include "tests/unit/detail_lines.h"
#include "tests/unit/workbench_fixture.h"

using namespace mc;

namespace {

// What happened, in the words of take().
TEST_F(WorkbenchTest, ShowsOnlyAnswersForTheChangeThatIsLookedAt) {
    const std::string title = "Maker Checker Details: DLR101, ";
    const std::string user1 = title + "ADD USER, 1001", user2 = title + "ADD USER, 1002";
    const char *const shown = "show details", *const nothing = "";
    const struct {
        const char* name;
        const char* road;  // what came before
        const char* last;
        const char* events;  // of the last step
        std::string title;
    } cases[] = {
        {"its own", "open 1001", "answer user 1001", shown, user1},
        {"without a key", "open 1001", "answer user", shown, user1},
        {"late", "open 1001,open 1002", "answer user 1001", nothing, user2},
        {"of another kind without a key", "open 1001", "answer limits", nothing, user1},
        {"without a key, an older one is awaited", "open 1001,open 1002", "answer user", nothing,
         user2},
        {"without a key, the older one is answered", "open 1001,open 1002,answer user",
         "answer user", shown, user2},
        {"without a key, the older one is of another kind", "open 1001,open 1003", "answer limits",
         shown, "Maker Checker Details: Dealer - DLR101, RMS Limits, 1003"},
        {"without a key, behind one of the newer", "open 1001,open 1002,answer user 1002",
         "answer user", nothing, user2},
        {"a second answer", "open 1001,answer user 1001", "answer user 1001", "show again", user1},
        {"an error without a key", "open 1001", "error user", "empty details",
         user1 + " (not shown: no such change)"},
        {"an older error without a key", "open 1001,open 1002", "error user", nothing, user2},
        {"an error of the first of two requests", "open 1001,open 1001", "error user 1001", nothing,
         user1},
        {"published again", "open 1001,answer user 1001", "again 1001", "rows",
         user1 + " (published again, asking for it)"},
        {"again and the same", "open 1001,answer user 1001,again 1001", "answer user 1001",
         "show again", user1},
        {"again and another", "open 1001,answer user 1001,again 1001", "new answer user 1001",
         "show again", user1 + " (changed since you opened it)"},
        {"opened again", "open 1001,answer user,again 1001,new answer user", "open 1001",
         "empty details", user1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        restart();
        list("1001", "339");
        list("1002", "339");
        list("1003", "360");
        run(each.road);
        view.events.clear();
        take(each.last);
        EXPECT_EQ(view.events, *each.events == '\0' ? Lines{} : Lines{each.events});
        EXPECT_EQ(view.caption.title, each.title);
    }
}

TEST_F(WorkbenchTest, AsksAgainOnceForDetailsThatArePublishedAgainWhileTheyAreAwaited) {
    list("1001", "339");
    run("open 1001,again 1001,again 1001");
    EXPECT_EQ(host.control().sent.size(), 1u);
    take("answer user 1001");
    EXPECT_EQ(host.control().sent.size(), 2u);
    take("answer user 1001");
    EXPECT_EQ(host.control().sent.size(), 2u);
}

// An answer was lost on the way: details that are visible are asked for again all the same, or else
// their strip says that they are not the last word.
TEST_F(WorkbenchTest, DetailsDoNotStayOldBehindALostAnswer) {
    list("1001", "339");
    run("open 1001,open 1001,answer user 1001");
    takeSent();
    take("again 1001");
    EXPECT_EQ(takeSent().size(), 1u);
    run("answer user 1001,open 1001,open 1001,answer user");
    EXPECT_EQ(view.caption.title, "Maker Checker Details: DLR101, ADD USER, 1001");
    take("again 1001");
    EXPECT_EQ(view.caption.title,
              "Maker Checker Details: DLR101, ADD USER, 1001 (published again, asking for it)");
    take("list 1001 354");
    EXPECT_EQ(view.caption.title, "Maker Checker Details") << "it is of another kind by now";
}

TEST_F(WorkbenchTest, AnEmptyListSaysWhy) {
    list("1001", "339");
    list("1004", "365");
    const std::pair<const char*, std::string> steps[] = {
        {nullptr, "Double-click a change, or press Enter on it, to see its details"},
        {"open 1001", "Waiting for the details of DLR101, ADD USER, 1001"},
        {"error user 1001", "No details of DLR101, ADD USER, 1001: no such change"},
        {"open 1004", "DLR101, DELETE USER, 1004: changes of this kind have no details"},
        {"open 1001", "Waiting for the details of DLR101, ADD USER, 1001"},
    };
    for (const auto& [step, text] : steps) {
        if (step != nullptr) take(step);
        EXPECT_EQ(view.caption.emptyText, text);
    }
    answer("om_get_auth_user_details", {{MNM_USER, "DLR101"}, {MNM_EXCHANGE, "nse_cm"}});
    EXPECT_EQ(view.caption.emptyText, "The details of DLR101, ADD USER, 1001 have nothing to show");
    host.control().works = false;
    take("open 1001");
    EXPECT_EQ(view.caption.emptyText,
              "The details of DLR101, ADD USER, 1001 could not be asked for");
}

TEST_F(WorkbenchTest, AsksTheModifyRightForEachAnswer) {
    const std::pair<std::optional<int>, RowAttribute> cases[] = {
        {std::nullopt, RowAttribute::readOnly},
        {0, RowAttribute::readOnly},
        {1, RowAttribute::number},
        {-1, RowAttribute::number}};
    workbench->details().open(list("1001", "360"));
    for (const auto& [right, attribute] : cases) {
        host.rights.modify = right;
        answer("om_get_auth_limits_details", {{MNM_ACCOUNT_ID, "C1"}, {64031, "1500"}});
        EXPECT_EQ(view.shown.back().rows.back().attribute, attribute);
    }
}

TEST_F(WorkbenchTest, RecoveryEmptiesTheDetailsAndItsAnswersAreTakenIn) {
    workbench->details().open(list("1001", "339"));
    view.events.clear();
    std::vector<std::string> whileSending;
    host.control().sending = [&](const SentMessage&) { whileSending = view.events; };
    host.control().works = false;
    workbench->presses().recover();
    EXPECT_EQ(whileSending, Lines{"empty details"});
    EXPECT_FALSE(workbench->changes().states().arrivals().recovered) << "nothing was asked for";
    host.control().works = true;

    const FieldTexts change{{MNM_PUBLICATION_STATUS, "auth pending"},
                            {MNM_AUTHORIZATION_KEY, "1002"},
                            {MNM_FUNCTIONALITY, "339"}};
    FieldTexts refused = change;
    refused.push_back({MNM_ERROR, "not now"});
    answer("om_get_functionality_details", refused);
    EXPECT_EQ(workbench->changes().size(), 1u);
    answer("om_get_functionality_details", change);
    EXPECT_EQ(workbench->changes().size(), 2u);
    EXPECT_EQ(view.events, (Lines{"empty details", "rows"}));
}

// Behind the message box of a press that is under way.
TEST_F(WorkbenchTest, AClosedWorkbenchDecidesAndTakesInNothing) {
    for (const char* key : {"1001", "1002", "1003"}) list(key, "340");
    std::vector<Slot> rows;
    for (std::size_t i = 0; i < 3; ++i) rows.push_back(workbench->changes().at(i).slot);
    host.control().works = false;
    std::size_t sent = 1;
    host.whileBoxIsOpen = [&] {
        host.control().works = true;
        host.control().sending = [&](const SentMessage&) { ++sent; };
        sent = 0;
        workbench->close();
        take("again 1004");
    };
    workbench->presses().accept(rows);
    EXPECT_EQ(host.takeSaid(), Lines{"error Failed while sending om_authenticate_functionality"});
    EXPECT_EQ(sent, 0u);
    EXPECT_EQ(workbench->changes().size(), 0u);
    workbench->details().open({});
    workbench->presses().update();
    workbench->presses().recover();
    EXPECT_EQ(host.controls.released, (std::vector<int>{3, 0}));
}

// ---- Limits that were edited and not sent: what keeps them, drops them, asks first ----

// A limits change is looked at, and one of its values was edited.
class EditedLimits : public WorkbenchTest {
protected:
    EditedLimits() {
        list("1001", "339");
        list("1003", "360");
        select("only 1003");
        run("open 1003,answer limits 1003");
        workbench->details().valueEdited(64031, "1700");
        host.control().sent.clear();
        view.events.clear();
        host.said.clear();
    }

    void select(const char* steps) {
        rows().selection().clear();
        run(steps);
        workbench->selectionMade();
    }
    std::vector<Slot> selected() { return workbench->changes().selectedRecords(); }
    // What an update sends of the edited value; empty: nothing.
    std::string update() {
        host.control().sent.clear();
        workbench->presses().update();
        if (host.control().sent.empty()) return "";
        EXPECT_EQ(host.control().sent[0][2].second, "1003");
        return host.control().sent[0].back().second;
    }
    const sMCListStruct& row() { return view.shown.back().rows.back(); }
};

TEST_F(EditedLimits, NothingThatLeavesThemBehindGoesUnasked) {
    const std::string edits =
        "question 1 edited value of Dealer - DLR101, RMS Limits, 1003 has not been sent.";
    const std::string decide = "om_authenticate_functionality";
    const struct {
        const char* press;
        std::string question;
        Lines requests;  // after Yes
        bool drops;
    } cases[] = {
        {"accept", "Accept without sending?", {decide}, false},
        {"reject", "Reject without sending?", {decide}, false},
        {"recover", "Recover and drop them?", {"om_get_functionality_details"}, true},
        {"open 1001",
         "Drop them and open DLR101, ADD USER, 1001?",
         {"om_get_auth_user_details"},
         true},
        {"drop", "Drop them?", {}, true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.press);
        host.answersYes = false;
        take(each.press);
        EXPECT_EQ(host.takeSaid(), Lines{edits + "\n\n" + each.question});
        EXPECT_EQ(takeSent(), Lines{});
        host.answersYes = true;
        take(each.press);
        EXPECT_EQ(takeSent(), each.requests);
        EXPECT_EQ(update(), each.drops ? "" : "1700.00");
        run("open 1003,answer limits 1003");
        workbench->details().valueEdited(64031, "1700");
        host.takeSaid();
        host.control().sent.clear();
    }
    select("");
    workbench->presses().accept(selected());
    EXPECT_EQ(host.said, Lines{}) << "nothing to accept, nothing to ask";
}

TEST_F(EditedLimits, ADecisionIsOfWhatWasSelectedAtThePress) {
    host.answersYes = true;
    host.whileBoxIsOpen = [&] {  // decided elsewhere: the list selects the row after it
        run("end 1001,list 2001 339");
    };
    select("only 1001");
    workbench->presses().accept(selected());
    EXPECT_EQ(takeSent(), Lines{});
    EXPECT_TRUE(workbench->changes().selected("1003"));

    list("1001", "339");
    host.whileBoxIsOpen = [&] { take("end 1001"); };
    take("open 1001");
    EXPECT_EQ(takeSent(), Lines{}) << "nor is it opened";

    list("1001", "339");
    select("only 1001");
    host.takeSaid();
    workbench->presses().reject(selected(), [&] {
        take("end 1001");
        return "no";
    });
    EXPECT_EQ(takeSent(), Lines{});
}

TEST_F(EditedLimits, SelectingAnotherChangeEmptiesDetailsUnlessTheyHoldEdits) {
    select("only 1001,select 1003");
    EXPECT_FALSE(view.caption.dimmed);
    select("only 1001");
    EXPECT_TRUE(view.caption.dimmed);
    EXPECT_EQ(view.caption.title,
              "Maker Checker Details: Dealer - DLR101, RMS Limits, 1003 - not selected, 1 unsent");
    select("only 1003");
    EXPECT_FALSE(view.caption.dimmed);
    EXPECT_EQ(view.events, Lines{});

    select("only 1001");
    EXPECT_EQ(update(), "1700.00");
    EXPECT_EQ(view.events, (Lines{"edits sent", "empty details"}));
    EXPECT_EQ(view.caption.title, "Maker Checker Details");

    select("only 1003");
    run("open 1003,answer limits 1003");
    view.events.clear();
    select("only 1001,select 1003");
    select("");
    EXPECT_EQ(view.events, Lines{});
    select("only 1001");
    EXPECT_EQ(view.events, Lines{"empty details"});
}

TEST_F(EditedLimits, StayInTheRowsOfALaterAnswer) {
    take("answer limits 1003");
    EXPECT_EQ(row().value, "1700.00");
    EXPECT_EQ(row().received, "1500.00");
    EXPECT_TRUE(row().edited);
    EXPECT_FALSE(row().overOlder);

    run("again 1003,new answer limits 1003");
    EXPECT_EQ(row().value, "1700.00");
    EXPECT_EQ(row().received, "1600.00");
    EXPECT_TRUE(row().overOlder);

    take("again 1003");
    answer("om_get_auth_limits_details", {{MNM_ACCOUNT_ID, "C1"}, {64164, "5"}});
    EXPECT_EQ(row().value, "1700.00") << "what an update sends is always visible";
    EXPECT_EQ(row().caption, "Cash Margin");

    run("again 1003,error limits 1003");
    EXPECT_EQ(view.events.back(), "rows") << "an error takes no edits away";
    EXPECT_EQ(update(), "1700.00");
}

TEST_F(EditedLimits, AreSpelledReplacedSentAndForgotten) {
    EXPECT_EQ(workbench->details().valueEdited(0, "1"), std::nullopt) << "a row without a field";
    // Choices are no numbers; the last edit of a field counts; what left is gone.
    EXPECT_EQ(workbench->details().choiceMade(64037, "D"), "D");
    EXPECT_EQ(workbench->details().valueEdited(64031, "1e999"), std::nullopt);
    workbench->details().valueEdited(64031, "12.345");
    host.control().works = false;
    workbench->presses().update();
    EXPECT_EQ(view.events, Lines{}) << "a failed update leaves the edits";
    host.control().works = true;
    workbench->presses().update();
    EXPECT_EQ(host.control().sent.back(), (SentMessage{{0, "om_authenticate_functionality"},
                                                       {54294, "CHECK01"},
                                                       {51803, "1003"},
                                                       {63713, "360"},
                                                       {10303, "accepted"},
                                                       {64031, "12.35"},
                                                       {64037, "no"}}));
    EXPECT_EQ(view.events, Lines{"edits sent"});
    EXPECT_EQ(update(), "");
    run("again 1003,answer limits 1003");
    EXPECT_FALSE(row().edited);

    workbench->details().valueEdited(64031, "3");
    host.control().sending = [this](const SentMessage&) { run("end 1003,list 2001 339"); };
    workbench->presses().update();
    EXPECT_EQ(workbench->changes().states().of(workbench->changes().find("2001")).sent,
              SentDecision::none)
        << "it came in the middle of the update";
    EXPECT_EQ(update(), "");
    EXPECT_EQ(workbench->details().valueEdited(64031, "1"), std::nullopt)
        << "no details are visible";
}

}  // namespace
