// Whose details are visible, what becomes of unsent edits, folding, and the states of changes, as a
// checker's hand finds them.
#include "listctrl/model/list_commands.h"
#include "tests/windows/test_host.h"

namespace {

const std::string kStrip = "Maker Checker Details";
const std::string kLimits = kStrip + ": Client - C1, RMS Limits, 7";

std::string strip() {
    return textOf(details());
}

// Two changes of users and the limits, whose details are visible.
struct LimitsShown : OpenWorkbench {
    LimitsShown() : OpenWorkbench({"6", "8"}) { openLimits(); }
};

void editMargin(const char* text) {
    edit(2, text);
    hand::key(VK_RETURN);
}

TEST(Details, TheQuestionAboutUnsentEditsIsAnsweredByYesOnly) {
    LimitsShown open;
    const auto accept = [] { hand::key('Y', hand::kCtrlShift); };
    editMargin("2500");
    hand::clickRow(mainList(), 0);
    for (const WORD no : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        hand::during(accept, {[no] { hand::key(no); }});
        EXPECT_EQ(value(2), "2500.00");
        EXPECT_EQ(takeSent(), Texts{});
    }
    hand::during(accept, {[] { hand::key('Y'); }});
    EXPECT_EQ(takeSent(), Texts{"om_authenticate_functionality"});
    EXPECT_EQ(strip(), kLimits + " - not selected, 1 unsent");
}

TEST(Details, ARepublishedChangeIsAskedForAgainAndKeepsWhatIsTyped) {
    LimitsShown open;
    editMargin("2500");
    edit(3, "77");
    open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
    EXPECT_EQ(takeSent(), Texts{"om_get_auth_limits_details"});
    answer(limitsAnswer("7", "1600"));
    EXPECT_EQ(strip(), kLimits + " (changed since you opened it)");
    hand::key('U', hand::kCtrlShift);
    EXPECT_EQ(takeSent(), Texts{}) << "nobody has read the new values yet";
    EXPECT_EQ(value(2), "2500.00");
    EXPECT_EQ(value(3), "77");
}

TEST(Details, ADoubleClickOpensTheFirstSelected) {
    OpenWorkbench open({"1", "2"});
    hand::clickRow(mainList(), 0);
    hand::clickRow(mainList(), 1, hand::kCtrl);
    NMHDR notice{mainList(), IDC_MAIN_LIST, static_cast<UINT>(NM_DBLCLK)};
    SendMessageA(findPane(), WM_NOTIFY, notice.idFrom, reinterpret_cast<LPARAM>(&notice));
    EXPECT_EQ(takeSent(51803), Texts{"1"});
}

TEST(Details, KeysShowTheWholeTextAndTheNeighbour) {
    LimitsShown open;
    open.plugin.publish(pending("9", "354", {{54001, "C1"}}));
    EXPECT_EQ(strip(), kLimits + " - also pending: 9 MODIFY CLIENT (F8)");
    editMargin("15000");
    EXPECT_EQ(
        textOf(GetDlgItem(GetParent(details()), IDC_DETAIL_LINE)),
        "Ten times what the maker asked for. Cash Margin: 1200 to 15000.00, +13,800 (+1150 %), "
        "15 thousand; Update sends 15000.00, the maker asked for 1500");
    std::string whole;
    hand::during([] { hand::key(VK_F3); }, {[&] {
                     whole = textOf(GetDlgItem(GetActiveWindow(), IDC_WHOLE_TEXT));
                     hand::key(VK_ESCAPE);
                 }});
    EXPECT_EQ(whole,
              "Cash Margin, Value (8 characters):\r\n15000.00\r\n\r\nCash Margin, Old Value (4 "
              "characters):\r\n1200");
    EXPECT_EQ(GetFocus(), details());
    // An unsent edit is asked about; the neighbour is then the selected change.
    hand::during([] { hand::key(VK_F8); }, {[] { hand::key('Y'); }});
    EXPECT_EQ(strip(), kStrip + ": C1, MODIFY CLIENT, 9 - also pending: 7 RMS Limits (F8)");
    EXPECT_EQ(selectedRows(), ListRows{3});
    EXPECT_EQ(takeSent(), Texts{"om_get_auth_account_details"});
}

TEST(Details, HeadingsFoldByClickAndKeys) {
    const LimitsShown open;
    hand::clickRow(details(), 0, hand::kCtrl);
    EXPECT_EQ(rowCount(details()), 5) << "with Ctrl a click only selects";
    hand::clickRow(details(), 0);
    EXPECT_EQ(rowCount(details()), 1);
    hand::key(VK_RIGHT);
    EXPECT_EQ(rowCount(details()), 5);
    hand::hold(VK_DOWN, 1);
    hand::key(VK_LEFT);  // to the heading
    hand::key(VK_LEFT);
    EXPECT_EQ(rowCount(details()), 1);
    EXPECT_EQ(rowTexts(details(), 0, 3), (Texts{"RMS Limits", "", ""}));
}

TEST(Details, WithoutTheRightNothingOpens) {
    host().mayModify = false;
    const LimitsShown open;
    for (const int row : {2, 4}) {
        hand::clickRow(details(), row);
        hand::key(VK_F2);
        hand::doubleClickRow(details(), row, 1);
        EXPECT_EQ(GetFocus(), details());
    }
}

// What the tip says of the list's cell below the mouse; empty: there is none.
std::string tipOf(HWND list) {
    std::string text;
    for (const HWND tip : tips()) {
        char buffer[256]{};
        TTTOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V1_SIZE;
        tool.hwnd = list;
        tool.uId = 1;
        tool.lpszText = buffer;
        SendMessageA(tip, TTM_GETTEXTA, sizeof buffer, reinterpret_cast<LPARAM>(&tool));
        text += buffer;
    }
    return text;
}

// Three changes, of which the first was looked at.
struct FirstLookedAt : OpenWorkbench {
    FirstLookedAt() : OpenWorkbench({"6", "7", "8"}) { look(0, "6"); }
    static void look(int row, const char* key) {
        hand::doubleClickRow(mainList(), row);
        answer({{32767, "om_get_auth_user_details"}, {51803, key}, {31003, "U"}});
    }
};

TEST(Details, TheQuickFilterWorksFromAnywhereAndKeepsWhatIsRead) {
    const FirstLookedAt open;
    SetFocus(filterEdit(0));
    hand::hold(VK_F7, 3);
    EXPECT_EQ(column(2), (Texts{"7", "8"})) << "a held key is one step";
    EXPECT_TRUE(selectedRows().empty()) << "what is hidden is not decided";
    open.look(0, "7");
    EXPECT_EQ(column(2), (Texts{"7", "8"}));
    hand::clickRow(mainList(), 1);
    EXPECT_EQ(column(2), (Texts{"7", "8"})) << "no row moves below a click";
    open.look(1, "8");
    EXPECT_EQ(column(2), Texts{"8"});
    hand::key(VK_F7, hand::kCtrl);
    EXPECT_EQ(column(2), (Texts{"6", "7", "8"}));
    hand::key(VK_F7);
    EXPECT_EQ(column(2), Texts{});
    SendMessageA(mainList(), WM_COMMAND, mc::kResetFiltersCommand, 0);
    EXPECT_EQ(column(2), (Texts{"6", "7", "8"}));
}

TEST(Details, TheTipOfTheFirstCellSaysThemInWords) {
    const FirstLookedAt open;
    hand::moveTo(hand::cell(mainList(), 1));
    EXPECT_EQ(tipOf(mainList()), "not looked at");
    hand::moveTo(hand::cell(mainList(), 0));
    EXPECT_EQ(tipOf(mainList()), "looked at; its details are open");
    hand::moveTo(hand::cell(mainList(), 1, 2));
    EXPECT_EQ(tipOf(mainList()), "");
}

}  // namespace
