// Hosts as they are (console/minimal is one that has no common controls itself): without a
// manifest, as this one is, and on Windows without what is newer.
#include <gtest/gtest.h>

#include "framework/platform.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace {

TEST(HostsAsTheyAre, TipsOfEveryKindAreMade) {
    const OpenWorkbench open;
    std::set<std::string> found;
    findWindow(nullptr, [&](HWND window) {
        if (classOf(window) != TOOLTIPS_CLASSA) return false;
        const auto count = SendMessageA(window, TTM_GETTOOLCOUNT, 0, 0);
        for (WPARAM each = 0; static_cast<LRESULT>(each) < count; ++each) {
            char text[256]{};
            TTTOOLINFOA tool{};
            tool.cbSize = TTTOOLINFOA_V2_SIZE;
            tool.lpszText = text;
            if (SendMessageA(window, TTM_ENUMTOOLSA, each, reinterpret_cast<LPARAM>(&tool)) != 0)
                found.insert(text);
        }
        return false;
    });
    EXPECT_TRUE(found.contains("Accept the selected changes (Ctrl+Shift+Y)")) << "of a button";
    EXPECT_TRUE(found.contains("Entity Name")) << "of a caption";
}

// What older Windows answers in the stead of each function, at the system's dots per inch.
TEST(HostsAsTheyAre, OlderWindowsGivesTheSameAtItsOwnDotsPerInch) {
    const MainFrame frame;
    const auto answers = [&] {
        const int dpi = fw::dpiOf(frame.handle());
        LOGFONTW font{};
        GetObjectW(fw::systemFont(&NONCLIENTMETRICSW::lfMessageFont, 2 * dpi).get(), sizeof font,
                   &font);
        const RECT around = fw::windowAround({0, 0, 50, 50}, WS_POPUP | WS_CAPTION, 0, dpi);
        return std::vector<long>{dpi,         fw::systemDpi(), fw::metric(SM_CXVSCROLL, 2 * dpi),
                                 around.left, around.top,      font.lfHeight};
    };
    const auto now = answers();
    fw::NewerWindows& newer = fw::newerWindows();
    const fw::NewerWindows all = std::exchange(newer, {});
    EXPECT_EQ(answers(), now);
    newer = all;
}

// Nothing asks the host for a menu, and none opens before what asked for it has returned.
TEST(HostsAsTheyAre, MenusClimbNowhereAndOpenLater) {
    const OpenWorkbench open;
    for (const HWND window : {header(), mainList(), button("Accept"), findPane(), details()}) {
        const LPARAM at = MAKELPARAM(5, 5);
        PostMessageA(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), at);
        hand::waitUntil([] { return GetQueueStatus(QS_POSTMESSAGE) == 0; });
        SendMessageA(window, WM_RBUTTONDOWN, 0, at);
        SendMessageA(window, WM_RBUTTONUP, 0, at);
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetCurrentThreadId(), &info);
        EXPECT_EQ(info.flags & GUI_INMENUMODE, 0u) << classOf(window);
        MSG menu;
        while (PeekMessageA(&menu, nullptr, WM_APP, 0xBFFF, PM_REMOVE))
            continue;  // the menus, unopened
    }
    EXPECT_EQ(host().contextMenus, 0);
}

}  // namespace
