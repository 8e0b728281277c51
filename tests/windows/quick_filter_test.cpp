// What the hand makes of the states of changes: the quick filter, and the tip that says them.
#include <gtest/gtest.h>

#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

constexpr WPARAM kResetFilters = 33078;  // an entry of the captions' menu

// What the tip says of the list's cell below the mouse; empty: there is none.
std::string tipOf(HWND list) {
    std::string text;
    const auto asks = [&](HWND window) {
        if (classOf(window) != TOOLTIPS_CLASSA) return false;
        char buffer[256]{};
        TTTOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V1_SIZE;
        tool.hwnd = list;
        tool.uId = 1;
        tool.lpszText = buffer;
        SendMessageA(window, TTM_GETTEXTA, sizeof buffer, reinterpret_cast<LPARAM>(&tool));
        text += buffer;
        return false;
    };
    findWindow(nullptr, asks);
    return text;
}

// Three changes, of which the first was looked at.
class StatesOfChanges : public testing::Test {
protected:
    void SetUp() override {
        for (const char* key : {"6", "7", "8"})
            open.plugin.publish(pending(key, "340", {{31003, std::string("DLR") + key}}));
        look(0, "6");
    }
    static void look(int row, const char* key) {
        hand::doubleClickRow(mainList(), row);
        answer({{32767, "om_get_auth_user_details"}, {51803, key}, {31003, "DLR"}});
    }
    OpenWorkbench open;
};

TEST_F(StatesOfChanges, TheQuickFilterWorksFromAnywhereAndKeepsWhatIsRead) {
    SetFocus(filterEdit(0));
    hand::hold(VK_F7, 3);
    EXPECT_EQ(column(2), (Texts{"7", "8"})) << "a held key is one step";
    EXPECT_TRUE(selectedRows().empty()) << "what is hidden is not decided";
    look(0, "7");
    EXPECT_EQ(column(2), (Texts{"7", "8"}));
    hand::clickRow(mainList(), 1);
    EXPECT_EQ(column(2), (Texts{"7", "8"})) << "no row moves below a click";
    look(1, "8");
    EXPECT_EQ(column(2), Texts{"8"});
    hand::key(VK_F7, hand::kCtrl);
    EXPECT_EQ(column(2), (Texts{"6", "7", "8"}));
    hand::key(VK_F7);
    EXPECT_EQ(column(2), Texts{});
    SendMessageA(mainList(), WM_COMMAND, kResetFilters, 0);
    EXPECT_EQ(column(2), (Texts{"6", "7", "8"}));
}

TEST_F(StatesOfChanges, TheTipOfTheFirstCellSaysThemInWords) {
    hand::moveTo(hand::cell(mainList(), 1));
    EXPECT_EQ(tipOf(mainList()), "not looked at");
    hand::moveTo(hand::cell(mainList(), 0));
    EXPECT_EQ(tipOf(mainList()), "looked at; its details are open");
    hand::moveTo(hand::cell(mainList(), 1, 2));
    EXPECT_EQ(tipOf(mainList()), "");
}

}  // namespace
