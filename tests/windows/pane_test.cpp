// The pane as a user or a screen reader meets it.
#include <gtest/gtest.h>

#include "res/resource_ids.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

TEST(Pane, HoldsItsButtonsAndTheMainListAboveTheDetails) {
    const OpenWorkbench open;
    const std::pair<int, const char*> buttons[] = {{IDC_ACCEPT, "Accept"},
                                                   {IDC_REJECT, "Reject"},
                                                   {IDC_UPDATE, "Update"},
                                                   {IDC_RECOVER, "Recover"}};
    for (const auto& [id, text] : buttons) {
        EXPECT_EQ(GetDlgItem(findPane(), id), button(text));
        EXPECT_TRUE(IsWindowVisible(button(text))) << text;
    }
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(findPane(), IDC_CANCEL)));
    EXPECT_EQ(captions(), (Texts{"Entity Name", "Auth Type", "Key", "Maker", "Branch", "Broker"}));
    EXPECT_EQ(captions(details()), (Texts{"Field", "Value", "Old Value"}));
    EXPECT_EQ(SendMessageA(details(), LVM_GETBKCOLOR, 0, 0), 0xFFFFFF);
    EXPECT_GT(onScreen(details()).top, onScreen(mainList()).bottom);
    RECT pane{};
    GetClientRect(findPane(), &pane);
    const RECT holder = inParent(GetParent(details()));
    const RECT expected{5, 55, pane.right - 5, pane.bottom - 5};
    EXPECT_TRUE(EqualRect(&holder, &expected));
}

TEST(Pane, HidesUpdateWithoutTheModifyRight) {
    host().mayModify = false;
    const OpenWorkbench open;
    EXPECT_FALSE(IsWindowVisible(button("Update")));
    EXPECT_TRUE(IsWindowVisible(button("Recover")));
}

TEST(Pane, ListsWhatIsPublished) {
    OpenWorkbench open;
    open.plugin.publish(
        pending("101", "339", {{31003, "TRADER7"}, {64056, "BRK1"}, {64053, "MUM"}}));
    open.plugin.publish(pending("102", "360", {{64053, "MUM"}, {31003, "TRADER7"}}));
    open.plugin.publish(pending("104", "353", {{54247, "CHECKER1"}}));  // his own
    open.plugin.publishNull();
    ASSERT_EQ(rowCount(mainList()), 2);
    EXPECT_EQ(rowTexts(mainList(), 0),
              (Texts{"TRADER7", "ADD USER", "101", "MAKER1", "MUM", "BRK1"}));
    open.plugin.publish(pending("101", "340", {{31003, "TRADER8"}}));
    EXPECT_EQ(rowTexts(mainList(), 0)[0], "TRADER8");
    open.plugin.publish(outcome("101", "accepted"));
    EXPECT_EQ(rowTexts(mainList(), 0)[0], "Branch - MUM");
}

}  // namespace
