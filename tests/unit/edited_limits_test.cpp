// Limits that were edited and not sent: what keeps them, what drops them, what asks first.
#include <set>

#include "tests/unit/workbench_fixture.h"

using namespace mc;

namespace {

// A limits change is looked at, and one of its values was edited.
class EditedLimits : public WorkbenchTest {
protected:
    EditedLimits() {
        list("1001", "339");
        list("1003", "360");
        select({"1003"});
        run("open 1003,answer limits 1003");
        workbench->details().valueEdited(64031, "1700");
        host.control().sent.clear();
        view.events.clear();
        host.said.clear();
    }

    void select(const std::set<std::string>& keys) {
        RecordStore& rows = workbench->changes().rows();
        for (std::size_t row = 0; row < rows.rowCount(); ++row)
            rows.selection().select(row, keys.contains(workbench->changes().at(row).key));
        workbench->selectionMade();
    }
    std::vector<Slot> selected() { return workbench->changes().selectedRecords(); }
    Lines requests() {
        Lines names;
        for (const SentMessage& message : host.control().sent) names.push_back(message[0].second);
        return names;
    }
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
        EXPECT_EQ(requests(), Lines{});
        host.answersYes = true;
        take(each.press);
        EXPECT_EQ(requests(), each.requests);
        EXPECT_EQ(update(), each.drops ? "" : "1700.00");
        run("open 1003,answer limits 1003");
        workbench->details().valueEdited(64031, "1700");
        host.takeSaid();
        host.control().sent.clear();
    }
    select({});
    workbench->presses().accept(selected());
    EXPECT_EQ(host.said, Lines{}) << "nothing to accept, nothing to ask";
}

TEST_F(EditedLimits, ADecisionIsOfWhatWasSelectedAtThePress) {
    host.answersYes = true;
    host.whileBoxIsOpen = [&] {  // decided elsewhere: the list selects the row after it
        take("end 1001");
    };
    select({"1001"});
    workbench->presses().accept(selected());
    EXPECT_EQ(requests(), Lines{});
    EXPECT_TRUE(workbench->changes().selected("1003"));

    list("1001", "339");
    select({"1001"});
    host.takeSaid();
    workbench->presses().reject(selected(), [&] {
        take("end 1001");
        return "no";
    });
    EXPECT_EQ(requests(), Lines{});
}

TEST_F(EditedLimits, SelectingAnotherChangeEmptiesDetailsUnlessTheyHoldEdits) {
    select({"1001", "1003"});
    EXPECT_FALSE(view.caption.dimmed);
    select({"1001"});
    EXPECT_TRUE(view.caption.dimmed);
    EXPECT_EQ(view.caption.title,
              "Maker Checker Details: Dealer - DLR101, RMS Limits, 1003 - not selected, 1 unsent");
    select({"1003"});
    EXPECT_FALSE(view.caption.dimmed);
    EXPECT_EQ(view.events, Lines{});

    select({"1001"});
    EXPECT_EQ(update(), "1700.00");
    EXPECT_EQ(view.events, (Lines{"edits sent", "empty details"}));
    EXPECT_EQ(view.caption.title, "Maker Checker Details");

    select({"1003"});
    run("open 1003,answer limits 1003");
    view.events.clear();
    select({"1001", "1003"});
    select({});
    EXPECT_EQ(view.events, Lines{});
    select({"1001"});
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
    publish("rejected", "1003");
    EXPECT_EQ(update(), "");
    EXPECT_EQ(workbench->details().valueEdited(64031, "1"), std::nullopt)
        << "no details are visible";
}

}  // namespace
