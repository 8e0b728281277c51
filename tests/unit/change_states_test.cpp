// What was done with each change, and which changes are about the same.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "tests/unit/workbench_fixture.h"
#include "workbench/model/neighbours.h"
#include "workbench/model/queue_words.h"
#include "workbench/model/records/change_states.h"
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
        EXPECT_EQ(states().arrivals().recovered, works);
    }
}

TEST_F(ChangeStatesTest, CountsTheSelectedAndTheVisible) {
    run("list 5,list 6,list 7,list 8,open 5,answer user 5,only 7,accept,only 5,end 5,recover");
    rows().selection().select(2, true);
    const StateCounts counts = states().count(rows().selection().inOrder());
    EXPECT_EQ(counts.notLookedAt, 2u);
    EXPECT_EQ(counts.doubtful, 2u);
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
    EXPECT_EQ(emptyQueueText(states().arrivals()),
              "Nothing comes by itself in this session. " + recover + "is pending");
    workbench->subscribe();
    EXPECT_EQ(emptyQueueText(states().arrivals()),
              "Nothing has come since 9:14. " + recover + "was pending before");
    run("list 5,list 6,open 5,answer user 5,only 5");
    EXPECT_EQ(summaryText(queueSummary(workbench->changes())), "1 selected, 1 not looked at");
    workbench->changes().quickFilter().next();
    rows().filters().set(kKeyColumn, "6");
    rows().filter();
    EXPECT_EQ(summaryText(queueSummary(workbench->changes())),
              "1 of 2 shown, 1 filter, only not looked at, 1 not looked at");
    run("end 5,end 6");
    EXPECT_EQ(emptyQueueText(states().arrivals()),
              "Nothing is left of what has come since 9:14. " + recover + "was pending before");
    run("recover");
    EXPECT_EQ(emptyQueueText(states().arrivals()), "No pending changes");
    EXPECT_EQ(summaryText({.rows = 12, .records = 3000, .filters = 2}),
              "12 of 3,000 shown, 2 filters");
    EXPECT_EQ(summaryText({.selected = 1, .work = "sorting was interrupted"}),
              "sorting was interrupted, 1 selected");
}

sMakeCheckStruct about(std::string_view code, const char* name, const char* type = "",
                       const char* linkedUser = "") {
    sMakeCheckStruct record;
    record.functionalityCode = code;
    record.entityName = name;
    record.type = type;
    record.linkedUser = linkedUser;
    return record;
}

TEST(Neighbours, AreChangesAboutTheSame) {
    const struct {
        sMakeCheckStruct a, b;
        bool same;
    } cases[] = {
        {about(kModifyClient, "C10021"), about(kRmsLimits, "Client - C10021"), true},
        {about(kModifyClient, "C10021"), about(kDeleteClient, "C10021"), true},
        {about(kModifyClient, "C10021"), about(kModifyClient, "C1002"), false},
        {about(kModifyClient, "C10021"), about(kModifyClient, "c10021"), false},
        {about(kModifyUser, "X1"), about(kModifyClient, "X1"), false},
        {about(kModifyUser, "X1"), about(kRmsLimits, "Dealer - X1"), true},
        {about(kRmsLimits, "Dealer - X1"), about(kRmsLimits, "Branch - X1"), false},
        {about(kRmsLimits, "Branch - X1"), about(kRmsLimits, "Branch - X1"), true},
        {about(kRmsLimits, "Account Group - G"), about(kRmsLimits, "Broker - G"), false},
        {about(kAddClient, "CI1", "INVESTOR_CLIENT", "I1"),
         about(kAddUser, "I1", "INVESTOR_CLIENT"), true},
        {about(kAddClient, "CI1", "INVESTOR_CLIENT", "I1"), about(kRmsLimits, "Client - CI1"),
         true},
        {about(kAddClient, "CI1", "CLIENT", "I1"), about(kAddUser, "I1"), false},
        {about("777", "C1"), about("777", "C1"), false},
        {about(kAddUser, ""), about(kAddUser, ""), false},
        {about(kRmsLimits, ""), about(kRmsLimits, ""), false},
    };
    for (const auto& [a, b, same] : cases) {
        EXPECT_EQ(sameEntity(a, b), same) << a.entityName << " " << b.entityName;
        EXPECT_EQ(sameEntity(b, a), same) << b.entityName << " " << a.entityName;
    }
}

// Against a look at every pair, while changes come, go and become others.
TEST(Neighbours, AreFoundAsALookAtEveryChangeFindsThem) {
    ViewRecorder view;
    PendingChanges changes(view);
    changes.rows().texts().setReader([](Slot, ColumnId) { return std::string_view(); });
    std::mt19937 random(3);
    const char* const names[] = {"A", "B", "I1", "Client - A", "Dealer - I1", "Branch - A", ""};
    const std::string_view codes[] = {kAddClient, kModifyClient, kAddUser, kRmsLimits, "777"};
    const auto texts = [&] {
        return ChangeTexts{.entityName = names[random() % 7],
                           .functionalityCode = codes[random() % 5],
                           .linkedUser = random() % 2 ? "I1" : "I2",
                           .type = random() % 2 ? "INVESTOR_CLIENT" : "CLIENT"};
    };
    int halves = 0;
    for (int step = 0; step < 1500; ++step) {
        const std::string key = std::to_string(random() % 90);
        switch (random() % 3) {
            case 0:
                changes.addRecord(key, texts());
                break;
            case 1:
                changes.removeRecord(key);
                break;
            default:
                changes.rewriteRecord(changes.find(key), texts());
        }
        if (changes.size() == 0) continue;
        const PendingChange one = changes.at(random() % changes.size());
        std::vector<long> expected, found;
        for (std::size_t i = 0; i < changes.size(); ++i)
            if (sameEntity(one, changes.at(i))) expected.push_back(std::stol(changes.at(i).key));
        for (const auto& each : changes.related().aboutTheSame(one))
            found.push_back(std::stol(each.key));
        std::ranges::sort(expected);
        ASSERT_EQ(found, expected) << "step " << step;

        // The other half of a pair is one that fits and is not selected.
        if (const auto row = changes.rows().rowOf(one.slot))
            changes.rows().selection().select(*row, random() % 2 == 0);
        const RelatedChanges& related = changes.related();
        const auto fits = [&](Slot other) {
            const auto half = related.halfOf(one.slot), its = related.halfOf(other);
            return half != RelatedChanges::Half::none && its != RelatedChanges::Half::none &&
                   half != its && related.userOf(one.slot, half) == related.userOf(other, its) &&
                   !changes.rows().selection().isSelected(other);
        };
        bool any = false;
        for (std::size_t i = 0; i < changes.size(); ++i) any |= fits(changes.at(i).slot);
        const Slot other = related.otherHalf(one.slot);
        ASSERT_TRUE(any ? fits(other) : other == kNoSlot) << "step " << step;
        halves += any;
    }
    EXPECT_GT(halves, 20);
    changes.clearAllRecords();
    changes.addRecord("1", {.entityName = "A", .functionalityCode = kAddClient});
    EXPECT_EQ(changes.related().aboutTheSame(changes.at(0)).size(), 1u);
}

TEST_F(WorkbenchTest, NamesTheNeighboursOfTheShownChangeAndGoesRoundThem) {
    const auto limits = [this](const char* key, const char* user) {
        publish("auth pending", key, {{MNM_FUNCTIONALITY, "360"}, {MNM_USER, user}});
    };
    list("1002", "340");
    EXPECT_EQ(workbench->details().openNeighbour(), std::nullopt);
    take("open 1002");
    EXPECT_EQ(view.caption.neighbours, "");
    limits("1003", "DLR101");
    limits("1001", "DLR101");
    limits("1004", "DLR102");
    EXPECT_EQ(view.caption.neighbours, "also pending: 1001 RMS Limits; 1003 RMS Limits (F8)");
    EXPECT_EQ(workbench->details().openNeighbour()->key, "1003");
    take("answer limits 1003");
    EXPECT_EQ(workbench->details().openNeighbour()->key, "1001");
    take("answer limits 1001");
    EXPECT_EQ(view.caption.neighbours, "also pending: 1002 MODIFY USER; 1003 RMS Limits (F8)");
    workbench->details().openNeighbour();
    EXPECT_EQ(workbench->details().openNeighbour()->key, "1003");
    EXPECT_EQ(view.caption.neighbours,
              "also pending: 1001 RMS Limits (older, changes Cash Margin too); 1002 MODIFY USER "
              "(F8)");
    // Unsent edits are asked about, as by any opening.
    take("answer limits 1003");
    workbench->details().valueEdited(64031, "7");
    host.answersYes = false;
    EXPECT_EQ(workbench->details().openNeighbour(), std::nullopt);
    for (int key = 2000; key < 2003; ++key) limits(std::to_string(key).c_str(), "DLR101");
    EXPECT_TRUE(view.caption.neighbours.ends_with("; 2000 RMS Limits; and 2 more (F8)"));
    take("end 1001");
    EXPECT_TRUE(view.caption.neighbours.starts_with("also pending: 1002 MODIFY USER; 2000"));
}

}  // namespace
