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
        EXPECT_TRUE(workbench->sight().seen(0ms));
        if (each.status != nullptr)
            workbench->handlePublished(publication(each.status, each.key).handle());
        else
            take(each.key);
        EXPECT_EQ(!workbench->sight().seen(0ms), each.lost);
    }
}

TEST_F(PressSightTest, ComesBackForPressesThatAreMadeLater) {
    workbench->handlePublished(publication("accepted", "2").handle());
    now += 249ms;
    EXPECT_FALSE(workbench->sight().seen(0ms));
    now += 1ms;
    EXPECT_TRUE(workbench->sight().seen(0ms));
    EXPECT_FALSE(workbench->sight().seen(1ms)) << "pressed before, handled now";
    workbench->handlePublished(publication("accepted", "3").handle());
    EXPECT_FALSE(workbench->sight().seen(0ms));
    workbench->changes().rows().selection().select(0, true);
    workbench->selectionMade();
    EXPECT_TRUE(workbench->sight().seen(0ms)) << "the hand chose it";
}

}  // namespace
}  // namespace mc
