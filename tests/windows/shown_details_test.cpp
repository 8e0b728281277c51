// Whose details are visible, and what becomes of unsent edits, as a checker's hand finds it.
#include <gtest/gtest.h>

#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

const std::string kStrip = "Maker Checker Details";
const std::string kLimits = kStrip + ": Client - C1, RMS Limits, 7";

std::string strip() {
    return textOf(details());
}

// Three changes are pending; the details of the limits are visible.
class ShownDetails : public testing::Test {
protected:
    void SetUp() override {
        open.plugin.publish(pending("6", "340", {{31003, "DLR6"}}));
        open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
        open.plugin.publish(pending("8", "365", {{31003, "DLR8"}}));
        hand::doubleClickRow(mainList(), 1);
        answer(limitsAnswer("7"));
        host().sent.clear();
    }
    static void editMargin(const char* text) {
        hand::clickRow(details(), 2, {}, 1);
        hand::key(VK_F2);
        hand::type(text);
        hand::key(VK_RETURN);
    }
    OpenWorkbench open;
};

TEST_F(ShownDetails, TheQuestionAboutUnsentEditsIsAnsweredByYesOnly) {
    const auto accept = [] { hand::key('Y', hand::kCtrlShift); };
    editMargin("2500");
    hand::clickRow(mainList(), 0);
    for (const WORD no : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
        hand::during(accept, {[no] { hand::key(no); }});
        EXPECT_EQ(rowTexts(details(), 2, 2)[1], "2500.00");
        EXPECT_EQ(takeSent(), Texts{});
    }
    hand::during(accept, {[] { hand::key('Y'); }});
    EXPECT_EQ(takeSent(), Texts{"om_authenticate_functionality"});
    EXPECT_EQ(strip(), kLimits + " - not selected, 1 unsent");
}

TEST_F(ShownDetails, ARepublishedChangeIsAskedForAgainAndKeepsWhatIsTyped) {
    editMargin("2500");
    hand::clickRow(details(), 3, {}, 1);
    hand::key(VK_F2);
    hand::type("77");
    open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
    EXPECT_EQ(takeSent(), Texts{"om_get_auth_limits_details"});
    answer(limitsAnswer("7", "1600"));
    EXPECT_EQ(strip(), kLimits + " (changed since you opened it)");
    hand::key(VK_RETURN);
    EXPECT_EQ(rowTexts(details(), 2, 2)[1], "2500.00");
    EXPECT_EQ(rowTexts(details(), 3, 2)[1], "77");
}

TEST_F(ShownDetails, KeysShowTheWholeTextAndTheNeighbour) {
    constexpr int kLine = 4002, kWholeText = 1751;  // res/resource_ids.h
    open.plugin.publish(pending("9", "354", {{54001, "C1"}}));
    EXPECT_EQ(strip(), kLimits + " - also pending: 9 MODIFY CLIENT (F8)");
    editMargin("15000");
    EXPECT_EQ(
        textOf(GetDlgItem(GetParent(details()), kLine)),
        "Ten times what the maker asked for. Cash Margin: 15000.00, 15 thousand; Update sends "
        "15000.00, the maker asked for 1500");
    std::string whole;
    hand::during([] { hand::key(VK_F3); }, {[&] {
                     whole = textOf(GetDlgItem(GetActiveWindow(), kWholeText));
                     hand::key(VK_ESCAPE);
                 }});
    EXPECT_EQ(whole, "Value (8 characters):\r\n15000.00");
    EXPECT_EQ(GetFocus(), details());
    // An unsent edit is asked about; the neighbour is then the selected change.
    hand::during([] { hand::key(VK_F8); }, {[] { hand::key('Y'); }});
    EXPECT_EQ(strip(), kStrip + ": C1, MODIFY CLIENT, 9 - also pending: 7 RMS Limits (F8)");
    EXPECT_EQ(ListView_GetNextItem(mainList(), -1, LVNI_SELECTED), 3);
    EXPECT_EQ(takeSent(), Texts{"om_get_auth_account_details"});
}

}  // namespace
