// The session's own decisions: what a row says of each, before and after its outcome.
#include "workbench/model/decision_log.h"

#include <gtest/gtest.h>

#include "tests/unit/workbench_fixture.h"

using namespace mc;

namespace {

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
