// The pane as a user or a screen reader meets it, its lay-out, and what is kept of it.
#include "tests/windows/test_host.h"

namespace {

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

TEST(Pane, TheBarObeysMouseAndKeys) {
    const OpenWorkbench open;
    const auto at = [] { return static_cast<int>(inParent(bar()).top); };
    const int middle = at();
    const POINT from = hand::middle(bar());
    hand::drag(from, {from.x, from.y + 40});
    EXPECT_EQ(at(), middle + 40);
    hand::drag(hand::middle(bar()), from, true);
    EXPECT_EQ(at(), middle + 40) << "Esc";
    hand::doubleClick(bar());
    EXPECT_EQ(at(), middle);
    SetFocus(bar());
    hand::key(VK_DOWN);
    EXPECT_EQ(at(), middle + 8);
    hand::key(VK_HOME);
    EXPECT_EQ(at(), 90) << "the upper view keeps its least size";
    hand::key(VK_SPACE);
    EXPECT_EQ(at(), middle);
}

TEST(Pane, ButtonsAndListsStayInSightInASmallPane) {
    const OpenWorkbench open;
    const HWND pane = findPane();
    for (const int width : {1000, 400, 240, 120, 40}) {
        SetWindowPos(pane, nullptr, 0, 0, width, 500, SWP_NOMOVE | SWP_NOZORDER);
        RECT client{}, overlap{};
        GetClientRect(pane, &client);
        const RECT lists = inParent(GetParent(mainList()));
        EXPECT_GE(lists.top, 55);
        EXPECT_LE(lists.bottom, client.bottom);
        for (const char* text : {"Accept", "Reject", "Update", "Recover"}) {
            const RECT place = inParent(button(text));
            EXPECT_GE(place.left, 0) << text << width;
            EXPECT_LE(place.right, client.right) << text << width;
            EXPECT_FALSE(IntersectRect(&overlap, &place, &lists)) << text << width;
        }
    }
    SetWindowPos(pane, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
}

TEST(Pane, KeepsItsFloatingSizeFromSessionToSession) {
    const StoredSetting size("VOSK_DIALOG_BAR_SIZE", "1000", "640,420");
    { const OpenWorkbench docked; }
    EXPECT_EQ(size.text(), "640,420") << "a pane that never floated says nothing";
    {
        const OpenWorkbench open;
        floatPane();
        RECT client{};
        GetClientRect(findPane(), &client);
        EXPECT_EQ(client.right, 640);
        EXPECT_EQ(client.bottom, 420);
        SetWindowPos(GetParent(findPane()), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    }
    EXPECT_EQ(size.text(), "220,320") << "its least size";
}

}  // namespace
