// The pane's lay-out: buttons, lists and the bar between them, and what is kept of it.
#include <gtest/gtest.h>

#include <filesystem>

#include "settings/settings_store.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

namespace fs = std::filesystem;

TEST(PaneLayout, TheBarObeysMouseAndKeys) {
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

TEST(PaneLayout, ButtonsAndListsStayInSightInASmallPane) {
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

TEST(PaneLayout, AFloatingPaneKeepsItsSizeFromSessionToSession) {
    const std::string path = settingsStore().GetUserSettingPath();
    fs::create_directories(fs::path(path).parent_path());
    const auto stored = [&] {
        char value[32]{};
        GetPrivateProfileStringA("VOSK_DIALOG_BAR_SIZE", "1000", "", value, sizeof value,
                                 path.c_str());
        return std::string(value);
    };
    WritePrivateProfileStringA("VOSK_DIALOG_BAR_SIZE", "1000", "640,420", path.c_str());
    { const OpenWorkbench docked; }
    EXPECT_EQ(stored(), "640,420") << "a pane that never floated says nothing";
    {
        const OpenWorkbench open;
        SendMessageA(findPane(), WM_NCLBUTTONDBLCLK, HTCAPTION, 0);
        RECT client{};
        GetClientRect(findPane(), &client);
        EXPECT_EQ(client.right, 640);
        EXPECT_EQ(client.bottom, 420);
        SetWindowPos(GetParent(findPane()), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    }
    EXPECT_EQ(stored(), "220,320") << "its least size";
    WritePrivateProfileStringA("VOSK_DIALOG_BAR_SIZE", "1000", nullptr, path.c_str());
}

}  // namespace
