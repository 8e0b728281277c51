// The details list as a checker uses it: what an answer shows, folding and filtering.
#include <gtest/gtest.h>

#include "framework/handles.h"
#include "listctrl/model/list_commands.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

using Texts = std::vector<std::string>;

// The lines, as Field|Value|Old Value.
Texts lines() {
    Texts all;
    for (int row = 0; row < rowCount(details()); ++row) {
        const Texts cells = rowTexts(details(), row, 3);
        all.push_back(cells[0] + "|" + cells[1] + "|" + cells[2]);
    }
    return all;
}

// A limits change is pending and its details are on show.
class Details : public testing::Test {
protected:
    void showLimits() {
        open = std::make_unique<OpenWorkbench>();
        open->plugin.publish(pending("7", "360", {{54001, "C1"}}));
        hand::doubleClickRow(mainList(), 0);
        answer(limitsAnswer("7"));
        host().sent.clear();
    }

    std::unique_ptr<OpenWorkbench> open;
};

TEST_F(Details, HeadingsFoldByClickAndKeys) {
    showLimits();
    hand::clickRow(details(), 0, hand::kCtrl);
    EXPECT_EQ(rowCount(details()), 5) << "with Ctrl a click only selects";
    hand::clickRow(details(), 0);
    EXPECT_EQ(rowCount(details()), 1);
    hand::key(VK_RIGHT);
    EXPECT_EQ(rowCount(details()), 5);
    hand::hold(VK_DOWN, 1);
    hand::key(VK_LEFT);  // to the heading
    hand::key(VK_LEFT);
    EXPECT_EQ(lines(), Texts{"RMS Limits||"});
}

TEST_F(Details, WithoutTheRightNothingOpens) {
    host().mayModify = false;
    showLimits();
    for (const int row : {2, 4}) {
        hand::clickRow(details(), row);
        hand::key(VK_F2);
        hand::doubleClickRow(details(), row, 1);
        EXPECT_EQ(GetFocus(), details());
    }
    host().mayModify = true;
}

}  // namespace
