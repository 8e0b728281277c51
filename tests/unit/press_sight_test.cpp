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
        std::vector<std::string> before;
        const char *status, *key;  // or a step of the fixture
        bool lost;
    } cases[] = {
        {"another change ends", {}, "accepted", "1", false},
        {"another is published again", {}, "auth pending", "3", false},
        {"a new one comes", {}, "auth pending", "4", false},
        {"it is published again", {}, "auth pending", "2", true},
        {"its details come", {"open 2"}, nullptr, "answer limits 2", false},
        {"they come again", {"open 2", "answer limits 2"}, nullptr, "answer limits 2", false},
        {"they differ", {"open 2", "answer limits 2"}, nullptr, "new answer limits 2", true},
        {"the selected one ends", {}, "rejected", "2", true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        for (const std::string& step : each.before) take(step);
        now += 1s;
        EXPECT_TRUE(workbench->sight().takes(0ms));
        if (each.status != nullptr)
            workbench->handlePublished(publication(each.status, each.key).handle());
        else
            take(each.key);
        EXPECT_EQ(!workbench->sight().takes(0ms), each.lost);
    }
}

TEST_F(PressSightTest, ComesBackForPressesThatAreMadeLater) {
    workbench->handlePublished(publication("accepted", "2").handle());
    now += 249ms;
    EXPECT_FALSE(workbench->sight().takes(0ms));
    now += 1ms;
    EXPECT_TRUE(workbench->sight().takes(0ms));
    EXPECT_FALSE(workbench->sight().takes(1ms)) << "pressed before, handled now";
    workbench->handlePublished(publication("accepted", "3").handle());
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
