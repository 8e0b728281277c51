// Which messages from the server a press may come too soon after.
#include <gtest/gtest.h>

#include "tests/unit/workbench_fixture.h"

namespace mc {
namespace {

using namespace std::chrono_literals;

class PressSightTest : public WorkbenchTest {
protected:
    void SetUp() override {
        workbench->sight().setClock([this] { return now; });
        for (const char* key : {"1", "2", "3"}) list(key, "360");
        workbench->changes().rows().selection().select(1, true);
    }
    PressSight::Milliseconds now = 10s;
};

TEST_F(PressSightTest, IsLostByWhatChangesTheSelectedWithoutTheHand) {
    const struct {
        const char* what;
        const char* before;
        const char* step;
        bool lost;
    } cases[] = {
        {"another change ends", "", "end 1", false},
        {"another is published again", "", "again 3", false},
        {"a new one comes", "", "again 4", false},
        {"it is published again", "", "again 2", true},
        {"its details come", "open 2", "answer limits 2", false},
        {"they come again", "open 2,answer limits 2", "answer limits 2", false},
        {"they differ", "open 2,answer limits 2", "new answer limits 2", true},
        {"the selected one ends", "", "end 2", true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        run(each.before);
        now += 1s;
        EXPECT_TRUE(workbench->sight().takes(0ms));
        take(each.step);
        EXPECT_EQ(!workbench->sight().takes(0ms), each.lost);
    }
}

TEST_F(PressSightTest, ComesBackForPressesThatAreMadeLater) {
    take("end 2");
    now += 249ms;
    EXPECT_FALSE(workbench->sight().takes(0ms));
    now += 1ms;
    EXPECT_TRUE(workbench->sight().takes(0ms));
    EXPECT_FALSE(workbench->sight().takes(1ms)) << "pressed before, handled now";
    take("end 3");
    EXPECT_FALSE(workbench->sight().takes(0ms));
    workbench->changes().rows().selection().select(0, true);
    workbench->selectionMade();
    EXPECT_TRUE(workbench->sight().takes(0ms)) << "the hand chose it";
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
        {"a press that needs no sight", [&] { workbench->sight().takes({}); }, false},
        {"almost six seconds", [&] { now += 5999ms; }, true},
        {"six seconds", [&] { now += 6s; }, false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        workbench->sight().moved();
        EXPECT_FALSE(workbench->sight().takes(0ms));
        EXPECT_TRUE(workbench->sight().heldBack());
        each.act();
        EXPECT_EQ(workbench->sight().heldBack(), each.spoken);
    }
}

}  // namespace
}  // namespace mc
