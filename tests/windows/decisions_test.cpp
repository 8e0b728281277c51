// What only a dialog or a message box can do to a decision, and the list of the session's own.
#include "tests/windows/test_host.h"

namespace {

// Another checker is quicker while the box of a failed accept is open, and Accept is pressed again.
TEST(Presses, OneAtATimeAndOnlyOfWhatIsStillPending) {
    OpenWorkbench open({"1", "2", "3"});
    selectRows(mainList(), {0, 1, 2});
    host().sends = false;
    DialogTrap boxes([&](HWND) {
        host().sends = true;
        open.plugin.publish(outcome("2", "accepted"));
        PostMessageA(findPane(), WM_COMMAND, IDC_ACCEPT, 0);
    });
    hand::click(button("Accept"));
    EXPECT_EQ(boxes.texts, Texts{"Maker Checker Zek Error : Failed while sending "
                                 "om_authenticate_functionality"});
    EXPECT_EQ(takeSent(51803), Texts{"3"});
    EXPECT_EQ(rowCount(mainList()), 2) << "a row goes with the published outcome, not before";
}

TEST(Presses, RejectSendsTheReasonThatOkConfirms) {
    OpenWorkbench open;
    open.plugin.publish(pending("1", "354", {{54001, "ACC1"}}));
    hand::clickRow(mainList(), 0);
    const struct {
        const char* typed;
        WORD key;
        Texts reasons;
    } cases[] = {{"", VK_RETURN, {}},
                 {"wrong branch", VK_ESCAPE, {}},
                 {"wrong branch", VK_RETURN, {"wrong branch"}}};
    for (const auto& each : cases) {
        hand::during([] { hand::click(button("Reject")); },
                     {[&] { hand::type(each.typed), hand::key(each.key); }});
        EXPECT_EQ(takeSent(32766), each.reasons);
    }
    EXPECT_EQ(host().log,
              Texts{"Maker Checker Zek Message : Request sent to Reject Authentication"});
}

HWND ownDecisions() {
    const HWND list = descendant(findPane(), WC_LISTVIEWA, IDC_DECISIONS_LIST);
    return IsWindowVisible(list) != 0 ? list : nullptr;
}

// One key shows them at the focused change's own, beside the lists that a press is about.
TEST(Presses, OneKeyListsTheSessionsOwn) {
    const StoredProfile noProfile(nullptr, "Maker Checker Decisions List");
    OpenWorkbench open({"1", "2", "3"});
    for (const int row : {1, 0}) {
        hand::clickRow(mainList(), row);
        hand::key('Y', hand::kCtrlShift);
    }
    hand::clickRow(mainList(), 1);
    const RECT before = onScreen(details());
    hand::key(VK_F9);
    const HWND list = ownDecisions();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(GetFocus(), list);
    EXPECT_EQ(selectedRows(list), ListRows{0}) << "the decision about change 2";
    EXPECT_EQ(rowCount(list), 2);
    EXPECT_EQ(rowTexts(list, 0, 7)[2], "2");
    EXPECT_EQ(rowTexts(list, 0, 7)[6], "awaited");
    RECT shared{};
    const RECT mine = onScreen(list), main = onScreen(mainList()), now = onScreen(details());
    EXPECT_FALSE(IntersectRect(&shared, &mine, &main) || IntersectRect(&shared, &mine, &now));
    open.plugin.publish(outcome("2", "rejected"));
    pump();
    EXPECT_TRUE(rowTexts(list, 0, 7)[6].starts_with("rejected "));

    takeSent();
    hand::key(VK_TAB);
    EXPECT_NE(GetFocus(), list);
    hand::key(VK_TAB, hand::kShift);
    EXPECT_EQ(GetFocus(), list);
    hand::key(VK_ESCAPE);
    EXPECT_EQ(ownDecisions(), nullptr);
    EXPECT_EQ(GetFocus(), mainList());
    const RECT after = onScreen(details());
    EXPECT_TRUE(EqualRect(&before, &after));
    hand::click(filterEdit(0));
    hand::key(VK_F9);
    EXPECT_NE(ownDecisions(), nullptr);
    hand::click(filterEdit(0));
    hand::key(VK_F9);
    EXPECT_EQ(ownDecisions(), nullptr);
    EXPECT_TRUE(takeSent().empty());
}

}  // namespace
