// Esc ends long work on a list, and does nothing else.
#include <gtest/gtest.h>

#include "listctrl/model/list_commands.h"
#include "tests/windows/hand.h"
#include "tests/windows/replaced_import.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

// Work is long for the plug-in: each look at the clock finds it far on. At the first look Esc is
// pressed, and another key behind it.
std::vector<WORD> theKeys;

ULONGLONG WINAPI fastClock() {
    static ULONGLONG now = 0;
    for (const WORD key : std::exchange(theKeys, {}))
        for (const DWORD up : {0, KEYEVENTF_KEYUP}) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wVk = key;
            input.ki.dwFlags = up;
            SendInput(1, &input, sizeof input);
        }
    return now += 1000;
}

TEST(LongWork, EscEndsItAndDoesNothingElse) {
    OpenWorkbench open;
    for (int i = 0; i < 4200; ++i)
        open.plugin.publish(pending(std::to_string(i * 11 % 4200 + 1000), "340",
                                    {{31003, "U" + std::to_string(i * 13 % 4200)}}));
    pump();
    hand::clickRow(mainList(), 3);
    hand::click(filterEdit(0));
    hand::type("U");
    hand::key(VK_RETURN);
    const LONG width = headerItem(0).right;
    const auto firstRows = [] {
        Texts keys;
        for (int row = 0; row < 20; ++row) keys.push_back(rowTexts(mainList(), row)[2]);
        return keys;
    };
    const Texts before = firstRows();
    const ReplacedImport clock("GetTickCount64",
                               reinterpret_cast<FARPROC>(reinterpret_cast<void*>(fastClock)));
    ASSERT_TRUE(clock.found());
    const auto isAsBefore = [&](const char* what) {
        EXPECT_TRUE(theKeys.empty()) << what << " asked";
        EXPECT_EQ(firstRows(), before) << what;
        EXPECT_EQ(textOf(filterEdit(0)), "U") << what;
        EXPECT_EQ(headerItem(0).right, width) << what;
        EXPECT_NE(GetCursor(), LoadCursorA(nullptr, IDC_WAIT)) << what;
    };
    SetFocus(mainList());
    theKeys = {VK_ESCAPE, VK_DOWN};
    hand::click(captionPoint(2));
    isAsBefore("sort");
    EXPECT_EQ(selectedRows(), (std::vector<int>{4})) << "the other key came";
    theKeys = {VK_ESCAPE};
    SendMessageA(mainList(), WM_COMMAND, mc::kFitToDataCommand, 0);
    isAsBefore("fit");
    hand::click(filterEdit(0));
    theKeys = {VK_ESCAPE};
    hand::type("9");
    hand::key(VK_RETURN);
    isAsBefore("filter");
    theKeys = {VK_ESCAPE};
    hand::key(VK_F4);
    isAsBefore("choices");
    EXPECT_EQ(SendMessageA(filterBox(0), CB_GETDROPPEDSTATE, 0, 0), FALSE);
    theKeys = {VK_DOWN, VK_ESCAPE};
    hand::click(captionPoint(2));
    EXPECT_NE(firstRows(), before) << "keys that were pressed before Esc come first";
}

}  // namespace
