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

}  // namespace
