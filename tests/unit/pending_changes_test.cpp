#include "workbench/model/records/pending_changes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/unit/view_recorder.h"

using namespace mc;

namespace {

std::unique_ptr<PendingChanges::Entry> entry(const std::string& key,
                                             const std::string& name = "name") {
    auto made = std::make_unique<PendingChanges::Entry>();
    made->key = key;
    made->entityName = name;
    return made;
}

class PendingChangesTest : public testing::Test {
protected:
    ViewRecorder view;
    PendingChanges changes{view};
};

TEST_F(PendingChangesTest, AddsARowOncePerKey) {
    changes.addRecord(entry("1001", "first"));
    changes.addRecord(entry("1001", "second"));
    EXPECT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes.findRecord("1001")->entityName, "first");
    EXPECT_EQ(view.events, std::vector<std::string>{"rows"});
}

TEST_F(PendingChangesTest, RemovingAnUnknownKeyChangesNothing) {
    changes.addRecord(entry("1001"));
    changes.removeRecord("1002");
    changes.removeRecord("");
    EXPECT_EQ(changes.size(), 1u);
    EXPECT_EQ(view.events, std::vector<std::string>{"rows"});
}

TEST_F(PendingChangesTest, RemovesByTheRecordsOwnKey) {
    changes.addRecord(entry("a key too long to be kept inside the string itself"));
    changes.removeRecord(changes.at(0).key);
    EXPECT_EQ(changes.size(), 0u);
    EXPECT_EQ(view.events, (std::vector<std::string>{"rows", "rows"}));
}

TEST_F(PendingChangesTest, ClearsWithoutTellingOfRows) {
    for (int i = 0; i < 600; ++i) changes.addRecord(entry(std::to_string(i)));
    view.events.clear();
    changes.clearAllRecords();
    EXPECT_EQ(changes.size(), 0u);
    EXPECT_EQ(changes.findRecord("17"), nullptr);
    EXPECT_TRUE(view.events.empty());
    changes.addRecord(entry("17"));
    EXPECT_EQ(changes.at(0).key, "17");
}

// Beside a vector of keys in order of arrival; the sanitizers see that each record goes once.
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
            changes.addRecord(entry(key));
            ASSERT_EQ(view.events.size(), known == expected.end() ? 1u : 0u);
            if (known == expected.end()) expected.push_back(key);
        } else {
            changes.removeRecord(key);
            if (known != expected.end()) {
                ASSERT_EQ(view.events, std::vector<std::string>{"rows"});
                expected.erase(known);
                ASSERT_EQ(changes.findRecord(key), nullptr);
            }
        }
        ASSERT_EQ(changes.size(), expected.size());
        ASSERT_EQ(changes.rows().rowCount(), expected.size());
        if (expected.empty()) continue;
        const std::size_t row = random() % expected.size();
        ASSERT_EQ(changes.at(row).key, expected[row]);
        ASSERT_EQ(changes.findRecord(expected[row]), &changes.at(row));
        checked += expected.size() > 512 ? 1 : 0;
    }
    EXPECT_GT(checked, 3000u) << "most of it over more than one block of rows";
}

TEST_F(PendingChangesTest, AHoldKeepsRemovedRecordsReadable) {
    changes.addRecord(entry("1001"));
    changes.addRecord(entry("1002"));
    const sMakeCheckStruct& first = changes.at(0);
    const sMakeCheckStruct& second = changes.at(1);
    {
        const PendingChanges::Hold outer(changes);
        {
            const PendingChanges::Hold inner(changes);
            EXPECT_TRUE(inner.pending(first));
            changes.removeRecord("1001");
            EXPECT_FALSE(inner.pending(first));
            EXPECT_EQ(changes.size(), 1u);
            // Another change of that key is not the one that was held.
            changes.addRecord(entry("1001", "again"));
            EXPECT_FALSE(inner.pending(first));
            EXPECT_TRUE(inner.pending(*changes.findRecord("1001")));
            EXPECT_TRUE(inner.pending(second));
        }
        EXPECT_EQ(first.entityName, "name") << "the outer one still holds it";
    }
    changes.removeRecord("1001");
    changes.removeRecord("1002");
    EXPECT_EQ(changes.size(), 0u);
}

}  // namespace
