#include "listctrl/model/table/selection_rules.h"

#include <gtest/gtest.h>

#include <string_view>

using namespace mc;

namespace {

using Rows = std::vector<std::size_t>;
constexpr Modifiers kCtrl{true, false};
constexpr Modifiers kShift{false, true};
constexpr Modifiers kBoth{true, true};

class Selecting : public testing::Test {
protected:
    Selecting() {
        store.setCellReader([this](Slot row, ColumnId) { return records.substr(row, 1); });
        for (Slot slot = 0; slot < records.size(); ++slot) store.insertItem(slot, slot);
    }
    std::string_view records = "jihgfedcba";
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
    rules.click(4, kBoth);
    EXPECT_EQ(store.selectedRows(), (Rows{1, 2, 3, 4, 8})) << "a range beside what is selected";
    rules.rightClick(3);
    EXPECT_EQ(store.selectedRows().size(), 5u) << "a menu for all that is selected";
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
    rules.move(Move::up, 4, kCtrl);
    rules.move(Move::up, 4, kBoth);
    EXPECT_EQ(store.selectedRows(), (Rows{3, 4, 5, 6, 7, 8, 9})) << "from where Ctrl+Space was";
    rules.space(kShift);
    EXPECT_EQ(store.selectedRows(), (Rows{7, 8, 9})) << "from the anchor to the focus";
    EXPECT_EQ(rules.move(Move::home, 4, {}), 0u);
    EXPECT_EQ(store.selectedRows(), Rows{0});
    rules.move(Move::down, 4, kCtrl);
    rules.space({});
    EXPECT_EQ(store.selectedRows(), (Rows{0, 1}));
    EXPECT_EQ(rules.move(Move::pageUp, 4, {}), 0u);

    RecordStore none;
    SelectionRules empty(none);
    EXPECT_EQ(empty.move(Move::down, 4, {}), std::nullopt);
    empty.space({});
    empty.selectAll();
    EXPECT_EQ(none.focusedRow(), std::nullopt);
}

TEST_F(Selecting, AllGivesAFocusWhereThereIsNone) {
    rules.selectAll();
    EXPECT_EQ(store.selectedCount(), 10u);
    EXPECT_EQ(store.focusedRow(), 0u);
    rules.click(4, {});
    rules.selectAll();
    EXPECT_EQ(store.focusedRow(), 4u);
}

TEST_F(Selecting, TheAnchorFollowsItsRecordAndIsHandedOn) {
    rules.click(2, {});
    store.sort({ColumnId{0}, Comparison::text, -1});  // turned round: the row is 7 now
    rules.click(9, kShift);
    EXPECT_EQ(store.selectedRows(), (Rows{7, 8, 9}));

    // A change is accepted, another arrives and is given its slot; Shift+Down.
    store.unsort();
    rules.click(0, {});
    store.deleteItem(0);
    store.insertItem(0, 0);
    rules.move(Move::down, 4, kShift);
    EXPECT_EQ(store.selectedRows(), (Rows{0, 1}));
}

TEST_F(Selecting, WithoutAnAnchorShiftStartsAtTheFocus) {
    store.setFocus(4);
    rules.move(Move::down, 4, kShift);
    rules.move(Move::down, 4, kShift);
    EXPECT_EQ(store.selectedRows(), (Rows{4, 5, 6}));
    store.reset();
    rules.click(0, kShift);
    EXPECT_EQ(store.selectedRows(), Rows{});
}

TEST_F(Selecting, WhatIsSelectedAlreadyChangesNothing) {
    rules.click(3, {});
    const auto revision = store.selectionRevision();
    rules.click(3, {});
    rules.move(Move::up, 4, kCtrl);
    EXPECT_EQ(store.selectionRevision(), revision);
    rules.click(4, {});
    EXPECT_NE(store.selectionRevision(), revision);
}

TEST_F(Selecting, OthersAskForTheNextRow) {
    for (const std::size_t row : {1u, 4u, 9u}) store.select(row, true);
    store.setFocus(4);
    constexpr std::optional<std::size_t> kNone;
    constexpr NextRow kAny{}, kAbove{false, false, true}, kSelected{true, false, false},
        kSelectedAbove{true, false, true}, kFocused{false, true, false},
        kFocusedAbove{false, true, true}, kBothStates{true, true, false};
    const struct {
        std::optional<std::size_t> start;
        NextRow wanted;
        std::optional<std::size_t> found;
    } cases[] = {
        {kNone, kAny, 0},          {8, kAny, 9},
        {9, kAny, kNone},          {kNone, kAbove, kNone},
        {0, kAbove, kNone},        {9, kAbove, 8},
        {kNone, kSelected, 1},     {1, kSelected, 4},
        {9, kSelected, kNone},     {9, kSelectedAbove, 4},
        {3, kSelectedAbove, 1},    {1, kSelectedAbove, kNone},
        {kNone, kFocused, 4},      {3, kFocused, 4},
        {4, kFocused, kNone},      {5, kFocusedAbove, 4},
        {4, kFocusedAbove, kNone}, {99, kAny, kNone},
        {kNone, kBothStates, 4},
    };
    for (const auto& each : cases)
        EXPECT_EQ(nextRow(store, each.start, each.wanted), each.found)
            << each.start.value_or(99) << each.wanted.selected << each.wanted.focused
            << each.wanted.above;
    store.select(4, false);
    EXPECT_EQ(nextRow(store, kNone, kBothStates), kNone);
    store.setReversed(true);
    EXPECT_EQ(nextRow(store, kNone, kSelected), 0u) << "it was the last row";
}

}  // namespace
