// The hand itself: that its input reaches what it is meant for, the way a user's does.
#include "tests/windows/hand.h"

#include <gtest/gtest.h>

#include "tests/windows/test_host.h"

namespace {

class Hand : public testing::Test {
protected:
    void SetUp() override {
        for (int key = 10; key < 30; ++key)
            open.plugin.publish(pending(std::to_string(key), "340", {{31003, "U"}}));
        pump();
    }
    static std::vector<int> selected() {
        std::vector<int> rows;
        int row = -1;
        while ((row = static_cast<int>(SendMessageA(mainList(), LVM_GETNEXTITEM,
                                                    static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0)
            rows.push_back(row);
        return rows;
    }
    OpenWorkbench open;
};

TEST_F(Hand, ClicksAndKeysReachWhatTheyAreMeantFor) {
    hand::click(button("Recover"));
    EXPECT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(GetFocus(), button("Recover"));
    hand::clickRow(mainList(), 3);
    EXPECT_EQ(GetFocus(), mainList());
    EXPECT_EQ(selected(), std::vector<int>{3});
    hand::clickRow(mainList(), 5, hand::kCtrl);
    EXPECT_EQ(selected(), (std::vector<int>{3, 5}));
    hand::clickRow(mainList(), 7, hand::kShift);
    EXPECT_EQ(selected(), (std::vector<int>{5, 6, 7}));
    hand::clickRow(mainList(), 2);
    hand::hold(VK_DOWN, 3);
    EXPECT_EQ(selected(), std::vector<int>{6});
    hand::key(VK_UP, hand::kShift);
    EXPECT_EQ(selected(), (std::vector<int>{5, 6}));
    host().sent.clear();
    hand::doubleClickRow(mainList(), 4);
    EXPECT_EQ(host().sent.size(), 1u) << "the details of the row";
    for (int key = 1; key < 0xFF; ++key) EXPECT_GE(GetAsyncKeyState(key), 0) << key;
}

TEST_F(Hand, StepsAreDoneInsideTheLoopThatInputOpens) {
    hand::clickRow(mainList(), 0);
    hand::during([] { hand::click(button("Reject")); },
                 {[] { hand::type("Wrong branch, #2"); }, [] { hand::key(VK_RETURN); }});
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 32766), "Wrong branch, #2");
    host().sent.clear();
    hand::during([] { hand::click(hand::cell(mainList(), 1), {}, hand::Button::right); },
                 {[] { hand::key(VK_DOWN); }, [] { hand::key(VK_ESCAPE); }});
    EXPECT_EQ(selected(), std::vector<int>{1});
}

TEST_F(Hand, DragsAndTurnsTheWheel) {
    const HWND bar = descendant(findPane(), "MakerChecker.SplitterBar", 0);
    RECT before{}, after{};
    GetWindowRect(bar, &before);
    const POINT from = hand::middle(bar), to{from.x, from.y + 40};
    hand::drag(from, to, true);
    GetWindowRect(bar, &after);
    EXPECT_EQ(after.top, before.top) << "Esc";
    hand::drag(from, to);
    GetWindowRect(bar, &after);
    EXPECT_EQ(after.top, before.top + 40);
    hand::drag(to, {from.x, from.y - 80});
    hand::wheel(mainList(), -1);
    EXPECT_GT(SendMessageA(mainList(), LVM_GETTOPINDEX, 0, 0), 0);
}

}  // namespace
