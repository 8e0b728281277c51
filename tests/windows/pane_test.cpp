// The pane: its template, its lists as a user or a screen reader meets them, and details.
#include <gtest/gtest.h>

#include "sdk/connectvosk.h"
#include "tests/windows/test_host.h"

namespace {

TEST(Pane, HasTheButtonsOfItsTemplate) {
    const OpenWorkbench open;
    const struct {
        int id;
        const char* text;
        RECT place;  // left, top, width and height in dialog units
        bool visible;
    } buttons[] = {
        {1, "Accept", {99, 6, 50, 14}, true},     {1963, "Reject", {159, 6, 50, 14}, true},
        {1000, "Update", {219, 6, 50, 14}, true}, {1001, "Recover", {279, 6, 50, 14}, true},
        {2, "Cancel", {241, 49, 14, 6}, false},
    };
    const HWND pane = findPane();
    EXPECT_EQ(GetDlgCtrlID(pane), 1000);
    for (const auto& each : buttons) {
        const HWND found = GetDlgItem(pane, each.id);
        ASSERT_NE(found, nullptr) << each.text;
        char text[32]{};
        GetWindowTextA(found, text, sizeof text);
        EXPECT_STREQ(text, each.text);
        RECT expected = each.place;
        MapDialogRect(pane, &expected);
        RECT place{};
        GetWindowRect(found, &place);
        MapWindowPoints(nullptr, pane, reinterpret_cast<POINT*>(&place), 2);
        EXPECT_EQ(place.left, expected.left) << each.text;
        EXPECT_EQ(place.top, expected.top) << each.text;
        EXPECT_EQ(place.right - place.left, expected.right) << each.text;
        EXPECT_EQ(place.bottom - place.top, expected.bottom) << each.text;
        EXPECT_EQ(IsWindowVisible(found) != 0, each.visible) << each.text;
    }
    EXPECT_EQ(SendMessageA(pane, DM_GETDEFID, 0, 0), MAKELRESULT(1, DC_HASDEFID));
}

TEST(Pane, HidesUpdateWithoutTheModifyRight) {
    host().mayModify = false;
    const OpenWorkbench open;
    EXPECT_FALSE(IsWindowVisible(button("Update")));
    EXPECT_TRUE(IsWindowVisible(button("Recover")));
}

std::vector<std::string> columnCaptions(HWND list) {
    std::vector<std::string> captions;
    for (int column = 0;; ++column) {
        char text[64]{};
        LVCOLUMNA info{};
        info.mask = LVCF_TEXT;
        info.pszText = text;
        info.cchTextMax = sizeof text;
        if (SendMessageA(list, LVM_GETCOLUMNA, static_cast<WPARAM>(column),
                         reinterpret_cast<LPARAM>(&info)) == 0)
            return captions;
        captions.emplace_back(text);
    }
}

TEST(Pane, HoldsTheMainListAboveTheDetails) {
    const OpenWorkbench open;
    const HWND details = descendant(findPane(), WC_LISTVIEWA, 4001);
    EXPECT_EQ(
        columnCaptions(mainList()),
        (std::vector<std::string>{"Entity Name", "Auth Type", "Key", "Maker", "Branch", "Broker"}));
    EXPECT_EQ(columnCaptions(details), (std::vector<std::string>{"Field", "Value", "Old Value"}));
    EXPECT_EQ(SendMessageA(details, LVM_GETBKCOLOR, 0, 0), 0xFFFFFF);
    EXPECT_EQ(GetDlgCtrlID(GetParent(mainList())), 1024);
    EXPECT_EQ(GetParent(mainList()), GetParent(details));

    RECT pane{}, holder{}, upper{}, lower{};
    GetClientRect(findPane(), &pane);
    GetWindowRect(GetParent(details), &holder);
    GetWindowRect(mainList(), &upper);
    GetWindowRect(details, &lower);
    MapWindowPoints(nullptr, findPane(), reinterpret_cast<POINT*>(&holder), 2);
    EXPECT_EQ(holder.left, 5);
    EXPECT_EQ(holder.top, 55);
    EXPECT_EQ(holder.right, pane.right - 5);
    EXPECT_EQ(holder.bottom, pane.bottom - 5);
    EXPECT_GT(lower.top, upper.bottom);
}

TEST(Pane, ListsWhatIsPublished) {
    OpenWorkbench open;
    open.plugin.publish(
        pending("101", "339", {{31003, "TRADER7"}, {64056, "BRK1"}, {64053, "MUM"}}));
    open.plugin.publish(pending("102", "360", {{64053, "MUM"}, {31003, "TRADER7"}}));
    open.plugin.publish(pending("103", "999", {{54247, "MAKER2"}}));
    open.plugin.publish(pending("104", "353", {{54247, "CHECKER1"}}));  // his own
    open.plugin.publishNull();
    ASSERT_EQ(rowCount(mainList()), 3);
    using Row = std::vector<std::string>;
    EXPECT_EQ(rowTexts(mainList(), 0),
              (Row{"TRADER7", "ADD USER", "101", "MAKER1", "MUM", "BRK1"}));
    EXPECT_EQ(rowTexts(mainList(), 1),
              (Row{"Branch - MUM", "RMS Limits", "102", "MAKER1", "MUM", ""}));
    EXPECT_EQ(rowTexts(mainList(), 2), (Row{"", "", "103", "MAKER2", "", ""}));

    open.plugin.publish(pending("101", "340", {{31003, "TRADER8"}}));
    EXPECT_EQ(rowTexts(mainList(), 0)[0], "TRADER8");
    open.plugin.publish(outcome("102", "accepted"));
    open.plugin.publish(outcome("103", "Rejected"));
    ASSERT_EQ(rowCount(mainList()), 2);
    EXPECT_EQ(rowTexts(mainList(), 1)[2], "103");
}

TEST(Pane, KeepsTheSelectionOnItsRecordsWhileOthersComeAndGo) {
    OpenWorkbench open;
    for (int key = 0; key < 3000; ++key) open.plugin.publish(pending(std::to_string(key), "340"));
    selectRows(mainList(), {1500, 2999});
    for (int key = 0; key < 1500; ++key)
        open.plugin.publish(outcome(std::to_string(key), "accepted"));
    open.plugin.publish(outcome("2999", "rejected"));
    open.plugin.publish(pending("3000", "340"));
    ASSERT_EQ(rowCount(mainList()), 1500);
    EXPECT_EQ(SendMessageA(mainList(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 0);
    EXPECT_EQ(SendMessageA(mainList(), LVM_GETSELECTEDCOUNT, 0, 0), 1);
    EXPECT_EQ(rowTexts(mainList(), 0)[2], "1500");
}

TEST(Pane, CutsLongTextsAtTheCellBuffer) {
    OpenWorkbench open;
    open.plugin.publish(pending(std::string(100000, '7'), "339", {{31003, std::string(300, 'x')}}));
    ASSERT_EQ(rowCount(mainList()), 1);
    EXPECT_EQ(rowTexts(mainList(), 0)[0], std::string(255, 'x'));
    EXPECT_EQ(rowTexts(mainList(), 0)[2], std::string(255, '7'));
    open.plugin.publish(outcome(std::string(99999, '7'), "accepted"));
    EXPECT_EQ(rowCount(mainList()), 1);
    open.plugin.publish(outcome(std::string(100000, '7'), "accepted"));
    EXPECT_EQ(rowCount(mainList()), 0);
}

TEST(Pane, AsksForDetailsOnADoubleClick) {
    OpenWorkbench open;
    open.plugin.publish(pending("1", "340", {{31003, "U"}}));
    open.plugin.publish(pending("2", "353", {{54001, "C"}}));
    open.plugin.publish(pending("3", "360", {{64056, "B"}}));
    open.plugin.publish(pending("4", "365", {{31003, "U"}}));
    for (int row = 0; row < 4; ++row) doubleClick(mainList(), row);
    EXPECT_EQ(host().sent,
              (std::vector<Fields>{
                  {{0, "om_get_auth_user_details"}, {54247, "CHECKER1"}, {51803, "1"}},
                  {{0, "om_get_auth_account_details"}, {54247, "CHECKER1"}, {51803, "2"}},
                  {{0, "om_get_auth_limits_details"}, {54247, "CHECKER1"}, {51803, "3"}}}));
    EXPECT_EQ(host().log,
              (std::vector<std::string>{
                  "Maker Checker Zek Message : Request for getting entities details sent ",
                  "Maker Checker Zek Message : Request for getting account details sent ",
                  "Maker Checker Zek Message : Request for getting entities details sent "}));
}

TEST(Pane, ShowsEachHandleThatCannotBeOpenedAndGoesOn) {
    const char* const boxes[] = {
        "MnmHndl Open failed in Market Context", "BufHndl Open failed in Market Context",
        "TimeBufHndl Open failed in Market Context", "TmHndl Open failed in Market Context"};
    for (int handle = 0; handle < 4; ++handle) {
        host() = HostState{};
        LoadedPlugin plugin;
        plugin.init();
        const MainFrame frame;
        const DialogTrap trap;
        otp_fail_call(handle + 1);
        plugin.hotKey();
        otp_fail_call(0);
        EXPECT_EQ(trap.texts, std::vector<std::string>{boxes[handle]});
        press("Recover");
        // Without the message or its buffer nothing can be sent; the time handles are not needed.
        EXPECT_EQ(host().sent.size(), handle < 2 ? 0u : 1u);
    }
}

}  // namespace
