#include "workbench/model/records/pending_changes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/unit/recorders.h"
#include "workbench/model/records/main_list.h"

using namespace mc;

namespace {

class PendingChangesTest : public testing::Test {
protected:
    void add(const std::string& key, const std::string& name = "name") {
        changes.addRecord(key, {.entityName = name});
    }
    std::string cell(ColumnId column) const {
        return std::string(changes.table().cellText(changes.rows().stored().at(0), column));
    }

    ViewRecorder view;
    PendingChanges changes{view};
};

TEST_F(PendingChangesTest, KeepsEveryTextAndShowsItByColumn) {
    const std::string longText(100000, 'x');
    for (const std::string& text : {std::string(), std::string("15 characters.."),
                                    std::string("16 characters..."), longText}) {
        changes.clearAllRecords();
        const std::string maker = text + "M", entity = text + "E", broker = text + "Z",
                          branch = text + "B", linked = text + "L", type = text + "T";
        changes.addRecord(text + "K", {maker, entity, "339", broker, branch, linked, type});
        const PendingChange read = changes.at(0);
        EXPECT_EQ(read.key, text + "K");
        EXPECT_EQ(read.makerId, text + "M");
        EXPECT_EQ(read.entityName, text + "E");
        EXPECT_EQ(read.spare, "");
        EXPECT_EQ(read.functionalityCode, "339");
        EXPECT_EQ(read.brokerId, text + "Z");
        EXPECT_EQ(read.branchId, text + "B");
        EXPECT_EQ(read.linkedUser, text + "L");
        EXPECT_EQ(read.type, text + "T");
        const std::string cells[] = {text + "E", "ADD USER", text + "K", text + "M",
                                     text + "B", text + "Z", "",         ""};
        for (std::size_t column = 0; column < std::size(cells); ++column)
            EXPECT_EQ(cell(toColumnId(column)), cells[column].substr(0, kCellBytes - 1));
        EXPECT_EQ(cell(ColumnId{-1}), "");
    }
}

TEST_F(PendingChangesTest, FiltersByTheTextsAsTheyAreNow) {
    changes.addRecord("1001", {.makerId = "MAKER01", .entityName = "name"});
    changes.rows().filters().set(kMakerColumn, "maker02");
    changes.rows().filter();
    EXPECT_EQ(changes.rows().rowCount(), 0u);
    changes.refreshRecord(changes.find("1001"), {.makerId = "MAKER02"});
    EXPECT_EQ(changes.at(0).entityName, "name") << "what is not given stays";
    EXPECT_EQ(changes.rows().rowCount(), 1u);
    EXPECT_EQ(changes.rows().distinctValues(kMakerColumn).values,
              (std::vector<DistinctValue>{{"MAKER02", 1}}));
    for (const auto& [code, kind] : {std::pair("360", "RMS Limits"), {"0360", ""}}) {
        changes.refreshRecord(changes.find("1001"), {.functionalityCode = code});
        EXPECT_EQ(cell(kKindColumn), kind);
    }
    changes.clearAllRecords();
    add("1001");
    EXPECT_TRUE(changes.rows().distinctValues(kMakerColumn).values.empty());
}

// Beside a vector of keys in order of arrival.
TEST_F(PendingChangesTest, KeepsRowsAndIndexInStep) {
    std::mt19937 random(7);
    std::vector<std::string> expected;
    std::size_t checked = 0;
    for (int i = 0; i < 12000; ++i) {
        // Grows to a few blocks of rows, shrinks, grows again.
        const bool growing = (i / 3000) % 2 == 0;
        const std::string key = "key of change " + std::to_string(random() % 3000);
        const auto known = std::find(expected.begin(), expected.end(), key);
        view.events.clear();
        if (random() % 4 != 0 ? growing : !growing) {
            const std::string maker = "maker of " + key;
            const bool later = random() % 2 == 0;
            if (later)
                changes.addRecord(key, {});
            else
                changes.addRecord(key, {.makerId = maker});
            if (later && known == expected.end()) {
                ASSERT_EQ(changes.findRecord(key)->makerId, "") << "left in the slot";
                changes.refreshRecord(changes.find(key), {.makerId = maker});
            }
            ASSERT_EQ(view.events.empty(), known != expected.end());
            if (known == expected.end()) expected.push_back(key);
        } else {
            changes.removeRecord(key);
            ASSERT_EQ(view.events.size(), known != expected.end() ? 1u : 0u);
            if (known != expected.end()) expected.erase(known);
            ASSERT_FALSE(changes.findRecord(key));
        }
        ASSERT_EQ(changes.size(), expected.size());
        ASSERT_EQ(changes.rows().rowCount(), expected.size());
        if (i % 500 == 0) {
            for (const std::string& each : expected) ASSERT_EQ(changes.findRecord(each)->key, each);
        }
        if (expected.empty()) continue;
        const std::size_t row = random() % expected.size();
        ASSERT_EQ(changes.at(row).key, expected[row]);
        ASSERT_EQ(changes.at(row).makerId, "maker of " + expected[row]);
        ASSERT_EQ(changes.findRecord(expected[row])->slot, changes.at(row).slot);
        checked += expected.size() > 512 ? 1 : 0;
    }
    EXPECT_GT(checked, 3000u) << "most of it over more than one block of rows";
}

TEST_F(PendingChangesTest, AHoldTellsAChangeFromALaterOneOfItsKey) {
    for (const bool cleared : {false, true}) {
        changes.clearAllRecords();
        add("1001");
        add("1002");
        const PendingChange first = changes.at(0), second = changes.at(1);
        view.events.clear();
        {
            const PendingChanges::Hold outer(changes);
            {
                const PendingChanges::Hold inner(changes);
                EXPECT_TRUE(changes.isPending(first.slot));
                if (cleared)
                    changes.clearAllRecords();
                else
                    changes.removeRecord("1001");
                EXPECT_EQ(view.events.size(), cleared ? 0u : 1u);
                EXPECT_FALSE(changes.isPending(first.slot));
                EXPECT_EQ(changes.isPending(second.slot), !cleared);
            }
            add("1001", "again");
            EXPECT_FALSE(changes.isPending(first.slot));
            EXPECT_FALSE(changes.recordIn(first.slot));
            EXPECT_FALSE(changes.rewriteRecord(first.slot, {}));
            EXPECT_TRUE(changes.isPending(changes.findRecord("1001")->slot));
            EXPECT_EQ(changes.findRecord("1001")->entityName, "again");
        }
        // The slots are used again.
        add("1003");
        EXPECT_EQ(changes.findRecord("1003")->slot, cleared ? second.slot : first.slot);
    }
}

}  // namespace
