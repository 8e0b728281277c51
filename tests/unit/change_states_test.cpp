#include "workbench/model/records/change_states.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/unit/workbench_fixture.h"
#include "workbench/model/records/main_list.h"

using namespace mc;

namespace {

class ChangeStatesTest : public WorkbenchTest {
protected:
    void SetUp() override { restart(); }
    void restart() {
        workbench.reset();
        workbench = std::make_unique<Workbench>(host, view);
        states().setClock([] { return std::time_t{9 * 3600 + 14 * 60 + 5}; });
    }
    ChangeStates& states() { return workbench->changes().states(); }
    RecordStore& rows() { return workbench->changes().rows(); }
    std::string words(const std::string& key) {
        return wordsOf(states().of(workbench->changes().find(key)));
    }

    // Beside what take() does: "list KEY", "list KEY CODE", "found KEY" (an answer to Recover),
    // "other KEY" (published again with another maker), "own KEY" (by the checker himself, so),
    // "end KEY", "select KEY" (and no other), "accept", "reject", "update", "recover".
    void run(const std::string& steps) {
        std::istringstream lines(steps);
        for (std::string step; std::getline(lines >> std::ws, step, ',');) does(step);
    }

    void does(const std::string& step) {
        std::istringstream parts(step);
        std::string verb, key, code = "339";
        parts >> verb >> key >> code;
        const auto publish = [&](const char* status, FieldTexts more) {
            workbench->handlePublished(publication(status, key, more).handle());
        };
        const auto selected = workbench->changes().selectedRecords();
        if (verb == "list") return void(list(key, code));
        if (verb == "other") return publish("auth pending", {{MNM_REQUESTING_USER, "MK2"}});
        if (verb == "own") return publish("auth pending", {{MNM_REQUESTING_USER, host.userId}});
        if (verb == "end") return publish("accepted", {});
        if (verb == "found")
            return answer(kGetFunctionalityDetails, {{MNM_PUBLICATION_STATUS, "auth pending"},
                                                     {MNM_AUTHORIZATION_KEY, key},
                                                     {MNM_FUNCTIONALITY, code},
                                                     {MNM_USER, "DLR101"}});
        if (verb == "select") {
            rows().clearSelection();
            return rows().select(*rows().rowOf(workbench->changes().find(key)), true);
        }
        if (verb == "accept") return workbench->accept(selected);
        if (verb == "reject") return workbench->reject(selected, [] { return "no"; });
        if (verb == "update") return workbench->update();
        if (verb == "recover") return workbench->recover();
        take(step);
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
        {"list 7,list 8,select 7,accept", "not looked at; accept sent at 9:14:05, outcome awaited"},
        {"list 7,select 7,accept,reject", "not looked at; accept sent at 9:14:05, outcome awaited"},
        {"list 7,select 7,accept,again 7",
         "not looked at; accept sent at 9:14:05, outcome awaited"},
        {"list 7,select 7,accept,other 7", "not looked at"},
        {"list 7,select 7,accept,end 7,list 7", "not looked at"},
        {"list 7,recover", "not looked at; doubtful: Recover has not brought it so far"},
        {"list 7,recover,found 7", "not looked at"},
        {"list 7,recover,again 7", "not looked at"},
        {"recover,found 7", "not looked at; new by this Recover"},
        {"recover,found 7,open 7,answer user 7", "looked at; its details are open"},
        {"recover,found 7,recover,found 7", "not looked at"},
        {"list 6,list 7,select 6,end 6", "not looked at; selected by the list after a removal"},
        {"list 6,list 7,select 6,end 6,select 7", "not looked at"},
    };
    setenv("TZ", "UTC", 1);
    for (const auto& each : cases) {
        restart();
        run(each.steps);
        EXPECT_EQ(words("7"), each.words) << each.steps;
    }
}

TEST_F(ChangeStatesTest, OnlyWhatLeftIsSent) {
    for (const bool works : {false, true}) {
        restart();
        run("list 7 360,list 8,open 7,answer limits 7,select 8");
        workbench->valueEdited(64031, "1600");
        host.control().works = works;
        run("update,reject,recover");
        EXPECT_EQ(states().of(0).sent, works ? SentDecision::update : SentDecision::none);
        EXPECT_EQ(states().of(1).sent, works ? SentDecision::reject : SentDecision::none);
        EXPECT_EQ(states().recovered(), works);
    }
}

TEST_F(ChangeStatesTest, CountsTheSelectedAndTheVisible) {
    run("list 5,list 6,list 7,list 8,open 5,answer user 5,select 7,accept,select 5,end 5,recover");
    rows().select(2, true);
    const StateCounts counts = states().count(rows().selectedSlots());
    EXPECT_EQ(counts.changes, 2u);
    EXPECT_EQ(counts.notLookedAt, 2u);
    EXPECT_EQ(counts.doubtful, 2u);
    EXPECT_EQ(counts.chosenByList, 1u);
    EXPECT_EQ(counts.chosenUnseen, 1u);
    EXPECT_EQ(states().notLookedAtVisible(), 3u);
    rows().filters().set(kKeyColumn, "8");
    rows().filter();
    EXPECT_EQ(states().notLookedAtVisible(), 1u);
    EXPECT_EQ(rows().deselectedByFilter(), 1u);
    rows().filters().clear();
    rows().filter();
    EXPECT_EQ(rows().deselectedByFilter(), 1u) << "until the hand selects";
    rows().select(0, true);
    EXPECT_EQ(rows().deselectedByFilter(), 0u);
}

}  // namespace
