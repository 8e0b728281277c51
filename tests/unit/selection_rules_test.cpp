#include "listctrl/model/selection_rules.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Rows = std::vector<std::size_t>;
constexpr Modifiers kCtrl{true, false};
constexpr Modifiers kShift{false, true};

class Selecting : public testing::Test {
protected:
    Selecting() {
        store.setCellReader([](const void* record, int) {
            return std::string_view(static_cast<const char*>(record), 1);
        });
        for (char& record : records) store.insertItem(store.storedCount(), &record);
    }
    std::array<char, 10> records{'j', 'i', 'h', 'g', 'f', 'e', 'd', 'c', 'b', 'a'};
    RecordStore store;
    SelectionRules rules{store};
};

TEST_F(Selecting, ByTheMouse) {
    rules.click(3, {});
    EXPECT_EQ(store.selectedRows(), Rows{3});
    rules.click(6, kShift);
    EXPECT_EQ(store.selectedRows(), (Rows{3, 4, 5, 6}));
    rules.click(1, kShift);
    EXPECT_EQ(store.selectedRows(), (Rows{1, 2, 3})) << "from the anchor, not from the last click";
    rules.click(8, kCtrl);
    rules.click(2, kCtrl);
    EXPECT_EQ(store.selectedRows(), (Rows{1, 3, 8}));
    EXPECT_EQ(store.focusedRow(), 2u);
    rules.rightClick(3);
    EXPECT_EQ(store.selectedRows(), (Rows{1, 3, 8})) << "a menu for all that is selected";
    rules.rightClick(5);
    EXPECT_EQ(store.selectedRows(), Rows{5});
    rules.click(std::nullopt, kCtrl);
    rules.click(99, kShift);
    EXPECT_EQ(store.selectedRows(), Rows{5});
    rules.click(std::nullopt, {});
    EXPECT_EQ(store.selectedRows(), Rows{});
}

TEST_F(Selecting, ByTheKeys) {
    EXPECT_EQ(rules.move(Move::down, 4, {}), 0u) << "the first key goes to the first row";
    EXPECT_EQ(rules.move(Move::up, 4, {}), 0u);
    EXPECT_EQ(rules.move(Move::pageDown, 4, {}), 3u);
    EXPECT_EQ(rules.move(Move::pageDown, 4, kShift), 6u);
    EXPECT_EQ(store.selectedRows(), (Rows{3, 4, 5, 6}));
    EXPECT_EQ(rules.move(Move::end, 4, kCtrl), 9u);
    EXPECT_EQ(store.selectedRows(), (Rows{3, 4, 5, 6}));
    rules.space(kCtrl);
    EXPECT_EQ(store.selectedRows(), (Rows{3, 4, 5, 6, 9}));
    EXPECT_EQ(rules.move(Move::home, 4, {}), 0u);
    EXPECT_EQ(store.selectedRows(), Rows{0});
    EXPECT_EQ(rules.move(Move::pageUp, 4, {}), 0u);
    rules.selectAll();
    EXPECT_EQ(store.selectedCount(), 10u);

    RecordStore none;
    SelectionRules empty(none);
    EXPECT_EQ(empty.move(Move::down, 4, {}), std::nullopt);
    empty.space({});
}

TEST_F(Selecting, TheAnchorFollowsItsRecordAndMayGo) {
    rules.click(2, {});
    store.sort({0, Comparison::text, -1});  // turned round: the row is 7 now
    rules.click(9, kShift);
    EXPECT_EQ(store.selectedRows(), (Rows{7, 8, 9}));
    store.deleteItem(7);
    store.setFocus(0);
    rules.click(1, kShift);
    EXPECT_EQ(store.selectedRows(), (Rows{0, 1})) << "without its record it starts at the focus";
    store.reset();
    rules.click(0, kShift);
    EXPECT_EQ(store.selectedRows(), Rows{});
}

}  // namespace
