#include "workbench/model/records/change_states.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/unit/workbench_fixture.h"
#include "workbench/model/queue_words.h"
#include "workbench/model/records/main_list.h"

using namespace mc;

namespace {

class ChangeStatesTest : public WorkbenchTest {
protected:
    void SetUp() override { begin(); }
    void begin() {
        setenv("TZ", "UTC", 1);
        restart();
        states().setClock([] { return std::time_t{9 * 3600 + 14 * 60 + 5}; });
    }
    ChangeStates& states() { return workbench->changes().states(); }
    std::string words(const std::string& key) {
        return wordsOf(states().of(workbench->changes().find(key)));
    }
};

TEST_F(ChangeStatesTest, SaysWhatWasDoneWithAChange) {
    const struct {
        const char *steps, *words;
    } cases[] = {
        {"list 7", "not looked at"},
        {"list 7,open 7", "not looked at; its details are open"},
        {"list 7,open 7,error user 7", "not looked at; its details are open"},
        {"list 7,open 7,answer user 7", "looked at; its details are open"},
        {"list 7,list 8,open 7,answer user 7,open 8", "looked at"},
        {"list 7,list 8,open 7,open 8,answer user 7", "not looked at"},
        {"list 7 999,open 7", "looked at; its details are open"},
        {"list 7,open 7,answer user 7,list 8,open 8,again 7", "looked at"},
        {"list 7,open 7,answer user 7,list 8,open 8,other 7", "changed since"},
        {"list 7,open 7,answer user 7,list 8,open 8,own 7", "changed since"},
        {"list 7,other 7", "not looked at"},
        {"list 7,open 7,answer user 7,other 7", "changed since; its details are open"},
        {"list 7,open 7,answer user 7,other 7,answer user 7", "looked at; its details are open"},
        // An answer that was asked for before the change came again is not what it is now.
        {"list 7,open 7,other 7,answer user 7", "not looked at; its details are open"},
        {"list 7,open 7,answer user 7,end 7,list 7", "not looked at"},
        {"list 7,list 8,only 7,accept", "not looked at; accept sent at 9:14:05, outcome awaited"},
        {"list 7,only 7,accept,reject", "not looked at; accept sent at 9:14:05, outcome awaited"},
        {"list 7,only 7,accept,again 7", "not looked at; accept sent at 9:14:05, outcome awaited"},
        {"list 7,only 7,accept,other 7", "not looked at"},
        {"list 7,only 7,accept,end 7,list 7", "not looked at"},
        {"list 7,recover", "not looked at; doubtful: Recover has not brought it so far"},
        {"list 7,recover,found 7", "not looked at"},
        {"list 7,recover,again 7", "not looked at"},
        {"recover,found 7", "not looked at; new by this Recover"},
        {"recover,found 7,open 7,answer user 7", "looked at; its details are open"},
        {"recover,found 7,recover,found 7", "not looked at"},
        {"list 6,list 7,only 6,end 6", "not looked at; selected by the list after a removal"},
        {"list 6,list 7,only 6,end 6,only 7", "not looked at"},
    };
    for (const auto& each : cases) {
        begin();
        run(each.steps);
        EXPECT_EQ(words("7"), each.words) << each.steps;
    }
}

TEST_F(ChangeStatesTest, OnlyWhatLeftIsSent) {
    for (const bool works : {false, true}) {
        begin();
        run("list 7 360,list 8,open 7,answer limits 7,only 8");
        workbench->details().valueEdited(64031, "1600");
        host.control().works = works;
        run("update,reject,recover");
        EXPECT_EQ(states().of(0).sent, works ? SentDecision::update : SentDecision::none);
        EXPECT_EQ(states().of(1).sent, works ? SentDecision::reject : SentDecision::none);
        EXPECT_EQ(states().recovered(), works);
    }
}

TEST_F(ChangeStatesTest, CountsTheSelectedAndTheVisible) {
    run("list 5,list 6,list 7,list 8,open 5,answer user 5,only 7,accept,only 5,end 5,recover");
    rows().selection().select(2, true);
    const StateCounts counts = states().count(rows().selection().inOrder());
    EXPECT_EQ(counts.changes, 2u);
    EXPECT_EQ(counts.notLookedAt, 2u);
    EXPECT_EQ(counts.doubtful, 2u);
    EXPECT_EQ(counts.chosenByList, 1u);
    EXPECT_EQ(counts.chosenUnseen, 1u);
    EXPECT_EQ(states().notLookedAtVisible(), 3u);
    rows().filters().set(kKeyColumn, "8");
    rows().filter();
    EXPECT_EQ(states().notLookedAtVisible(), 1u);
    EXPECT_EQ(rows().selection().deselectedByFilter(), 1u);
    rows().filters().clear();
    rows().filter();
    EXPECT_EQ(rows().selection().deselectedByFilter(), 1u) << "until the hand selects";
    rows().selection().select(0, true);
    EXPECT_EQ(rows().selection().deselectedByFilter(), 0u);
}

TEST_F(ChangeStatesTest, TheQuickFilterShowsOneStateAndTheChangeThatIsRead) {
    // Three dealers, of whom one was looked at and one changed after that, and an investor's half.
    const char* const kBefore =
        "list 5,list 6,list 7,list 8 339 INV1,open 5,answer user 5,open 6,answer user 6,open "
        "7,other "
        "6";
    const struct {
        int keys;  // F7 is pressed so often, then the steps are taken
        const char *words, *steps, *rows;
    } cases[] = {
        {0, "", "", "5,6,7,8,"},
        {1, "only not looked at", "", "7,8,"},
        {1, "only not looked at", "answer user 7", "7,8,"},
        {1, "only not looked at", "answer user 7,other 7", "7,8,"},
        {1, "only not looked at", "answer user 7,open 8", "8,"},
        {1, "only not looked at", "open 8,answer user 8,list 9,only 9", "7,8,9,"},
        {1, "only not looked at", "open 8,answer user 8,end 8,list 9", "7,9,"},
        {2, "only changed since", "other 5", "5,6,"},
        {3, "only mine to pair", "", "8,"},
        {4, "only neighbours", "", "5,6,7,"},
        {5, "", "", "5,6,7,8,"},
        {-1, "only neighbours", "end 7,list 9", "5,6,9,"},
    };
    for (const auto& each : cases) {
        begin();
        run(kBefore);
        QuickFilter& filter = workbench->changes().quickFilter();
        for (int i = 0; i < each.keys; ++i) filter.next();
        if (each.keys < 0) filter.back();
        rows().filter();
        run(each.steps);
        workbench->selectionMade();
        EXPECT_EQ(filter.words(), each.words);
        std::string keys;
        for (std::size_t row = 0; row < rows().rowCount(); ++row)
            keys.append(rows().cellText(row, kKeyColumn)).append(",");
        EXPECT_EQ(keys, each.rows) << each.words << ": " << each.steps;
    }
}

TEST_F(ChangeStatesTest, TheQueueSaysWhyItIsEmptyAndHowMuchItHides) {
    const std::string recover = "Recover (F5) asks for what ";
    EXPECT_EQ(emptyQueueText(states()),
              "Nothing comes by itself in this session. " + recover + "is pending");
    workbench->subscribe();
    EXPECT_EQ(emptyQueueText(states()),
              "Nothing has come since 9:14. " + recover + "was pending before");
    run("list 5,list 6,open 5,answer user 5,only 5");
    EXPECT_EQ(summaryText(queueSummary(workbench->changes())), "1 selected, 1 not looked at");
    workbench->changes().quickFilter().next();
    rows().filters().set(kKeyColumn, "6");
    rows().filter();
    EXPECT_EQ(summaryText(queueSummary(workbench->changes())),
              "1 of 2 shown, 1 filter, only not looked at, 1 not looked at");
    run("end 5,end 6");
    EXPECT_EQ(emptyQueueText(states()),
              "Nothing is left of what has come since 9:14. " + recover + "was pending before");
    run("recover");
    EXPECT_EQ(emptyQueueText(states()), "No pending changes");
    EXPECT_EQ(summaryText({.rows = 12, .records = 3000, .filters = 2}),
              "12 of 3,000 shown, 2 filters");
    EXPECT_EQ(summaryText({.selected = 1, .work = "sorting was interrupted"}),
              "sorting was interrupted, 1 selected");
}

}  // namespace
