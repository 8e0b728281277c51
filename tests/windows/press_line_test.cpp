// What the press line says of the buttons, its action, and opening the next change in one stroke.
#include "tests/windows/test_host.h"

namespace {

Fields half(const char* key, const char* code, Fields more) {
    more.insert(more.begin(), {54036, "INVESTOR_CLIENT"});
    return pending(key, code, more);
}

TEST(Presses, FollowsSelectionMouseAndFocus) {
    OpenWorkbench open({"1"});
    open.plugin.publish(pending("2", "354", {{54001, "C"}}));
    pump();
    const HWND line = GetDlgItem(findPane(), IDC_PRESS_LINE);
    EXPECT_EQ(pressLine(), "Accept nothing: no change is selected");
    const RECT buttons = onScreen(button("Accept")), list = onScreen(header());
    EXPECT_GE(onScreen(line).top, buttons.bottom);
    EXPECT_LE(onScreen(line).bottom, list.top);
    hand::clickRow(mainList(), 0);
    EXPECT_EQ(pressLine(), "Accept 1 MODIFY USER U, not looked at");
    hand::moveTo(hand::middle(button("Reject")));
    EXPECT_EQ(pressLine(), "Reject 1 MODIFY USER U, not looked at");
    hand::moveTo(hand::middle(details()));
    EXPECT_TRUE(hand::waitUntil([] { return pressLine().starts_with("Accept"); }));
    SetFocus(button("Recover"));
    EXPECT_EQ(pressLine(), "Recover: asks for everything that is pending");
    SetFocus(mainList());
    open.plugin.publish(outcome("1", "accepted"));
    EXPECT_EQ(pressLine(),
              "Selected by the list, not looked at: Accept 2 MODIFY CLIENT C, not looked at");
}

// The other half is hidden by a filter, which goes for it.
TEST(Presses, SelectsTheOtherHalf) {
    OpenWorkbench open;
    open.plugin.publish(half("1", "339", {{31003, "INV1"}}));
    open.plugin.publish(half("2", "353", {{54001, "CL1"}, {31003, "INV1"}}));
    pump();
    hand::click(filterEdit(0));
    hand::type("INV");
    hand::key(VK_RETURN);
    hand::clickRow(mainList(), 0);
    EXPECT_EQ(pressLine(),
              "Accept: half of a pair: 2 ADD CLIENT CL1 is hidden by a filter, nothing will leave"
              "  Select pair");
    hand::key('P', hand::kCtrlShift);
    EXPECT_EQ(selectedRows(), (ListRows{0, 1}));
    EXPECT_EQ(pressLine(),
              "Accept 2 ADD CLIENT CL1 and its user INV1 (1), user first; 2 not looked at");
    hand::clickRow(mainList(), 1);
    const HWND line = GetDlgItem(findPane(), IDC_PRESS_LINE);
    UpdateWindow(line);
    const RECT rect = onScreen(line);
    // The action is the last of the line: from the right, the first pixel that is a link.
    LONG x = rect.right - rect.left - 1;
    const int y = static_cast<int>(rect.bottom - rect.top) / 2;
    const auto cursorAt = [&](LONG at) {
        hand::moveTo({rect.left + at, rect.top + y});
        return GetCursor() == LoadCursorA(nullptr, IDC_HAND);
    };
    while (x > 0 && !cursorAt(x)) x -= 12;
    ASSERT_GT(x, 0);
    hand::click({rect.left + x, rect.top + y});
    EXPECT_EQ(selectedRows(), (ListRows{0, 1}));
}

// The outcome comes as the hand presses: what the list selected instead was not seen by anybody.
TEST(Presses, APressIsOfWhatWasSeen) {
    OpenWorkbench open({"1", "2", "3", "4"});
    hand::clickRow(mainList(), 0);
    open.plugin.publish(outcome("1", "accepted"));
    hand::key('Y', hand::kCtrlShift);
    hand::key('N', hand::kCtrlShift);
    EXPECT_EQ(pressLine(),
              "Not sent, as this changed just before the press: Selected by the "
              "list, not looked at: Accept 2 MODIFY USER U, not looked at");
    hand::clickRow(mainList(), 1);
    EXPECT_EQ(pressLine(), "Accept 3 MODIFY USER U, not looked at") << "another than was kept";
    hand::clickRow(mainList(), 0);
    const POINT accept = hand::middle(button("Accept"));
    hand::drag(accept, {accept.x + 1, accept.y}, false, [&] {
        Sleep(300);
        open.plugin.publish(outcome("2", "accepted"));
        hand::key(VK_CONTROL);  // it presses nothing
        UpdateWindow(GetDlgItem(findPane(), IDC_PRESS_LINE));
        Sleep(300);
    });
    EXPECT_EQ(takeSent(51803), Texts{}) << "the mouse was pressed before";
    hand::click(button("Accept"));
    EXPECT_EQ(takeSent(51803), Texts{"3"});
    EXPECT_FALSE(pressLine().starts_with("Not sent"));
    open.plugin.publish(outcome("3", "accepted"));
    // A message: what a host or a tool presses is never held back, right behind an outcome either.
    SendMessageA(button("Accept"), BM_CLICK, 0, 0);
    EXPECT_EQ(takeSent(51803), Texts{"4"}) << "no hand pressed it";
}

// A thread that is busy with messages handles what the hand did before it paints.
TEST(Presses, NothingIsSeenBeforeItIsPainted) {
    OpenWorkbench open({"1", "2"});
    hand::clickRow(mainList(), 0);
    open.plugin.publish(outcome("1", "accepted"));
    Sleep(300);
    hand::key('Y', hand::kCtrlShift);
    EXPECT_EQ(takeSent(51803), Texts{});
    EXPECT_TRUE(pressLine().starts_with("Not sent"));
    Sleep(300);
    hand::key('Y', hand::kCtrlShift);
    EXPECT_EQ(takeSent(51803), Texts{"2"});
}

// Keys that are faster than the pause in typing would decide what the filter is about to hide.
TEST(Presses, AFilterThatIsTypedAppliesBeforeAPress) {
    OpenWorkbench open({"1", "2", "3"});
    hand::click(filterEdit(2));
    hand::type("2");
    SetFocus(mainList());
    hand::key('A', hand::kCtrl);
    hand::key('Y', hand::kCtrlShift);
    EXPECT_EQ(takeSent(51803), Texts{});
    EXPECT_EQ(pressLine(),
              "Not sent, as this changed just before the press: Accept 2 MODIFY USER U, not looked "
              "at; 2 deselected by the filter");
    hand::key('Y', hand::kCtrlShift);
    EXPECT_EQ(takeSent(51803), Texts{"2"});
}

// Decided, and not yet gone: the next one below is read, and decided by the next press.
TEST(Presses, OneStrokeOpensTheNextChange) {
    OpenWorkbench open({"1", "2", "3"});
    hand::clickRow(mainList(), 0);
    hand::key('Y', hand::kCtrlShift);
    hand::key(VK_RETURN, hand::kCtrlShift);
    hand::key('Y', hand::kCtrlShift);
    open.plugin.publish(outcome("2", "accepted"));
    hand::click(filterEdit(0));
    hand::hold(VK_RETURN, 3, hand::kCtrlShift);
    EXPECT_EQ(takeSent(51803), (Texts{"1", "2", "2", "3"}));
    EXPECT_EQ(selectedRows(), ListRows{1});
}

}  // namespace
