#include "workbench/model/press_line.h"

#include <sstream>

#include "tests/unit/workbench_fixture.h"

using namespace mc;

namespace {

// What the line says of a press, and which decisions leave when it is pressed.
class PressLineTest : public WorkbenchTest {
protected:
    PendingChanges& changes() { return workbench->changes(); }

    // Beside what take() does: "wait SECONDS", and rows of this entity only stay by "hide ENTITY".
    void run(const std::string& steps) {
        std::istringstream lines(steps);
        for (std::string step; std::getline(lines >> std::ws, step, ',');) {
            const std::string word = step.substr(5);
            if (step.starts_with("wait "))
                now += std::stoi(word);
            else if (step.starts_with("hide "))
                rows().filters().set(ColumnId{0}, word), rows().filter();
            else
                take(step);
        }
    }

    PressLine line(PressButton button, const TypedValue& typed = {}) {
        return describePress(workbench->presses().plan(button, typed), changes());
    }

    // The decisions that left: "1003 1004".
    std::string decided() {
        std::string keys;
        for (const SentMessage& message : host.control().sent)
            if (message.front().second == kAuthenticateFunctionality)
                keys += (keys.empty() ? "" : " ") + valueOf(message, MNM_AUTHORIZATION_KEY);
        return keys;
    }

    std::time_t now = 1'000'000;
};

const std::string kThree =
    "list 1001 339,list 1002 354,list 1003 340,read 1001,read 1003,other 1003,";
const std::string kPair = "list 1003 339 INV3001,list 1004 353 CINV3001 INV3001,";

TEST_F(PressLineTest, SaysWhatAPressSends) {
    const struct {
        std::string steps;
        PressButton button;
        std::string line;
        std::string decided;
    } cases[] = {
        {"list 1002 354", PressButton::accept, "Accept nothing: no change is selected", ""},
        {"list 1002 354,only 1002", PressButton::accept,
         "Accept 1002 MODIFY CLIENT C10021, not looked at", "1002"},
        {"list 1001 339,read 1001,only 1001", PressButton::accept, "Accept 1001 ADD USER DLR101",
         "1001"},
        {kThree + "only 1003", PressButton::reject, "Reject 1003 MODIFY USER DLR101, changed since",
         "1003"},
        {kThree + "only 1001,select 1002,select 1003", PressButton::accept,
         "Accept 3 changes: 1 looked at, 1 not looked at, 1 changed since", "1001 1002 1003"},
        {"list 1007 360,only 1007", PressButton::reject,
         "Reject 1007 RMS Limits, Client - C10021, not looked at", "1007"},
        {"list 1 777,only 1", PressButton::accept, "Accept 1, not looked at", "1"},
        {kPair + "only 1003,select 1004", PressButton::accept,
         "Accept 1004 ADD CLIENT CINV3001 and its user INV3001 (1003), user first; 2 not looked at",
         "1003 1004"},
        {kPair + "only 1003,select 1004,list 1 340,select 1", PressButton::accept,
         "Accept 3 changes: 3 not looked at; 1 pair, user first", "1 1003 1004"},
        {kPair + "list 2 339 INV3001,only 2,select 1003,select 1004", PressButton::accept,
         "Accept 3 changes: 3 not looked at; 2 pairs, user first", "2 1004 1003 1004"},
        {kPair + "only 1003", PressButton::accept,
         "Accept: half of a pair: 1004 ADD CLIENT CINV3001 is not selected, nothing will leave"
         "  Select pair",
         ""},
        {kPair + "only 1003", PressButton::reject, "Reject 1003 ADD USER INV3001, not looked at",
         "1003"},
        {kPair + "only 1004,hide CINV", PressButton::accept,
         "Accept: half of a pair: 1003 ADD USER INV3001 is hidden by a filter, nothing will leave"
         "  Select pair",
         ""},
        {kPair + "only 1004,end 1003", PressButton::accept,
         "Accept: half of a pair: no other half is pending, nothing will leave", ""},
        {kPair + "list 1 340,list 5 353 C5 U5,only 1,select 5,select 1004", PressButton::accept,
         "Accept 1 MODIFY USER DLR101, not looked at; 2 halves of pairs stay: "
         "1003 ADD USER INV3001 is not selected  Select pair",
         "1"},
        {"list 1 340,list 2 340,only 1,end 1", PressButton::accept,
         "Selected by the list, not looked at: Accept 2 MODIFY USER DLR101, not looked at", "2"},
        {"list 1 340,list 2 340,only 1,end 1,read 2", PressButton::accept,
         "Accept 2 MODIFY USER DLR101", "2"},
        {kThree + "only 1001,select 1002,hide DLR", PressButton::accept,
         "Accept 1001 ADD USER DLR101; 1 deselected by the filter", "1001"},
        {"list 1007 360,only 1007,open 1007,answer limits 1007,edit 1700", PressButton::accept,
         "Accept 1007 RMS Limits, Client - C10021; asks about 1 unsent value first", "1007"},
    };
    host.answersYes = true;
    for (const auto& each : cases) {
        SCOPED_TRACE(each.steps);
        restart();
        run(each.steps);
        EXPECT_EQ(line(each.button).whole(), each.line);
        take(each.button == PressButton::accept ? "accept" : "reject");
        EXPECT_EQ(decided(), each.decided);
    }
}

TEST_F(PressLineTest, SaysWhatWasSentBefore) {
    const struct {
        std::string steps;
        PressButton button;
        std::string line;
        std::string question;  // of the press
    } cases[] = {
        {"only 1001,accept,wait 12", PressButton::accept,
         "Accept 1001 ADD USER DLR101, again, sent 12 s ago", ""},
        {"only 1001,accept,wait 150", PressButton::reject,
         "Reject 1001 ADD USER DLR101, accepted 2 min ago, asks first", "1001, ADD USER, DLR101"},
        {"only 1001,reject,wait 3,only 1001,select 1003", PressButton::accept,
         "Accept 2 changes: 1 looked at, 1 changed since; 1 of them rejected 3 s ago, asks first",
         "1 of these"},
        {"only 1001,select 1003,reject,wait 3", PressButton::reject,
         "Reject 2 changes: 1 looked at, 1 changed since; all of them again, sent 3 s ago", ""},
        {"only 1003,reject,wait 60,only 1001,reject,wait 3,select 1003", PressButton::reject,
         "Reject 2 changes: 1 looked at, 1 changed since; all of them again, sent 3 s ago", ""},
        {"only 1003,accept,other 1003", PressButton::reject,
         "Reject 1003 MODIFY USER DLR101, changed since, accepted 0 s ago, asks first", "1003"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.steps);
        restart();
        changes().states().setClock([this] { return now; });
        run(kThree + each.steps);
        EXPECT_EQ(line(each.button).whole(), each.line);
        const std::string press = each.button == PressButton::accept ? "accept" : "reject";
        host.control().sent.clear();
        host.takeSaid();
        host.answersYes = false;
        take(press);
        EXPECT_EQ(decided().empty(), !each.question.empty());
        EXPECT_EQ(host.said.empty() || !host.said[0].starts_with("question"),
                  each.question.empty());
        host.answersYes = true;
        host.control().sent.clear();
        take(press);
        EXPECT_NE(decided(), "");
    }
}

TEST_F(PressLineTest, OfUpdateAndRecover) {
    const struct {
        std::string steps, update, recover;
    } cases[] = {
        {"", "Update nothing: no details are open", "Recover: asks for everything that is pending"},
        {"list 1007 360,open 1007,answer limits 1007", "Update nothing: no value is edited",
         "Recover: asks for everything that is pending"},
        {"edit 1700", "Update 1 value of 1007 RMS Limits, Client - C10021",
         "Recover: drops 1 unsent value"},
        {"update", "Update nothing: no value is edited",
         "Recover: asks for everything that is pending"},
        {"only 1007,reject,edit 1700,wait 3",
         "Update 1 value of 1007 RMS Limits, Client - C10021, rejected 3 s ago, asks first",
         "Recover: drops 1 unsent value"},
    };
    changes().states().setClock([this] { return now; });
    host.answersYes = true;
    for (const auto& each : cases) {
        SCOPED_TRACE(each.steps);
        run(each.steps);
        EXPECT_EQ(line(PressButton::update).text, each.update);
        EXPECT_EQ(line(PressButton::recover).text, each.recover);
    }
    host.control().sent.clear();
    host.takeSaid();
    for (const char* behind : {"", "again 1007"}) {
        host.answersYes = *behind != '\0';
        host.whileBoxIsOpen = [&] { run(behind); };
        take("update");
        EXPECT_EQ(decided(), "");
    }
    EXPECT_EQ(host.takeSaid().front(),
              "question 1007 RMS Limits, Client - C10021 was rejected and the outcome is awaited."
              "\n\nUpdate it all the same?");
    take("update");
    EXPECT_EQ(decided(), "1007");
}

// A press takes what is being typed first.
TEST_F(PressLineTest, CountsTheValueThatIsBeingTyped) {
    run("list 1007 360,open 1007,answer limits 1007,edit 1700");
    const struct {
        TypedValue typed;
        const char* update;
    } cases[] = {
        {{.field = 64031}, "Update 1 value of 1007 RMS Limits, Client - C10021"},
        {{.field = 64164}, "Update 2 values of 1007 RMS Limits, Client - C10021"},
        {{.refused = true}, "Update nothing: the text in the editor cannot be kept"},
    };
    for (const auto& [typed, update] : cases)
        EXPECT_EQ(line(PressButton::update, typed).text, update);
}

// ---- Which messages from the server a press may come too soon after ----

using namespace std::chrono_literals;

class PressSightTest : public WorkbenchTest {
protected:
    void SetUp() override {
        workbench->sight().setClock([this] { return now; });
        for (const char* key : {"1", "2", "3"}) list(key, "360");
        workbench->changes().rows().selection().select(1, true);
    }
    using Hits = PressSight::Hits;
    bool takes(std::optional<PressSight::Milliseconds> ago, Hits what = Hits::selection) {
        return workbench->sight().takes(what, ago);
    }
    PressSight::Milliseconds now = 10s;
};

TEST_F(PressSightTest, IsLostByWhatChangesWithoutTheHand) {
    const struct {
        const char* what;
        const char* before;
        const char* step;
        bool decision, update;  // whether a press is held back
    } cases[] = {
        {"another change ends", "", "end 1", false, false},
        {"another is published again", "", "again 3", false, false},
        {"a new one comes", "", "again 4", false, false},
        {"it is published again", "", "again 2", true, false},
        {"its details come", "open 2", "answer limits 2", false, false},
        {"they come again", "open 2,answer limits 2", "answer limits 2", false, false},
        {"they differ", "open 2,answer limits 2", "new answer limits 2", true, true},
        {"they stay so", "", "new answer limits 2", false, false},
        {"they are again as they were", "", "answer limits 2", true, true},
        {"they are published again", "", "again 2", true, true},
        {"another's details are", "open 3,answer limits 3", "again 3", false, true},
        {"another's differ", "", "new answer limits 3", false, true},
        {"it is the checker's own by now", "", "own 2", true, false},
        {"the selected one ends", "", "end 2", true, false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        run(each.before);
        now += 1s;
        EXPECT_TRUE(takes(0ms));
        take(each.step);
        EXPECT_EQ(!takes(0ms), each.decision);
        EXPECT_EQ(!takes(0ms, Hits::details), each.update);
    }
}

TEST_F(PressSightTest, ComesBackForPressesThatAreMadeLater) {
    take("end 2");
    now += 249ms;
    EXPECT_FALSE(takes(0ms));
    now += 1ms;
    EXPECT_TRUE(takes(0ms));
    EXPECT_FALSE(takes(1ms)) << "pressed before, handled now";
    take("end 3");
    EXPECT_FALSE(takes(0ms));
    workbench->changes().rows().selection().select(0, true);
    workbench->selectionMade();
    EXPECT_FALSE(takes(0ms)) << "the hand aimed at what was there before";
    now += 250ms;
    EXPECT_TRUE(takes(0ms));
    run("list 4 360,only 4");
    workbench->sight().followPaint();
    take("again 4");
    now += 1s;
    EXPECT_FALSE(takes(0ms)) << "not painted yet";
    workbench->sight().painted();
    EXPECT_FALSE(takes(0ms));
    now += 250ms;
    EXPECT_TRUE(takes(0ms));
}

// Until the next press, a selection by hand, or some seconds later.
TEST_F(PressSightTest, SpeaksOfAPressThatWasHeldBack) {
    const struct {
        const char* what;
        std::function<void()> act;
        bool spoken;
    } cases[] = {
        {"the list selects another", [&] { take("again 2"); }, true},
        {"the hand does", [&] { workbench->selectionMade(); }, false},
        {"it does while a text is refused", [&] { workbench->selectionWaits(); }, false},
        {"a filter hides rows", [&] { workbench->details().selectionMoved(); }, true},
        {"a press that needs no sight", [&] { takes({}); }, false},
        {"almost six seconds", [&] { now += 5999ms; }, true},
        {"six seconds", [&] { now += 6s; }, false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        workbench->sight().moved(Hits::selection);
        EXPECT_FALSE(takes(0ms));
        EXPECT_TRUE(workbench->sight().heldBack());
        each.act();
        EXPECT_EQ(workbench->sight().heldBack(), each.spoken);
    }
}

}  // namespace
