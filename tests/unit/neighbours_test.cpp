#include "workbench/model/neighbours.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/unit/workbench_fixture.h"

using namespace mc;

namespace {

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
