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
        store.texts().setReader([this](Slot row, ColumnId) { return records.substr(row, 1); });
        for (Slot slot = 0; slot < records.size(); ++slot) store.insertItem(slot, slot);
    }
    std::string_view records = "jihgfedcba";
    RecordStore store;
    SelectionRules rules{store};
};

TEST_F(Selecting, ByTheMouse) {
    rules.click(3, {});
    EXPECT_EQ(store.selection().rows(), Rows{3});
    rules.click(6, kShift);
    EXPECT_EQ(store.selection().rows(), (Rows{3, 4, 5, 6}));
    rules.click(1, kShift);
    EXPECT_EQ(store.selection().rows(), (Rows{1, 2, 3}))
        << "from the anchor, not from the last click";
    rules.click(8, kCtrl);
    rules.click(2, kCtrl);
    EXPECT_EQ(store.selection().rows(), (Rows{1, 3, 8}));
    EXPECT_EQ(store.selection().focusedRow(), 2u);
    rules.click(4, kBoth);
    EXPECT_EQ(store.selection().rows(), (Rows{1, 2, 3, 4, 8})) << "a range beside what is selected";
    rules.rightClick(3);
    EXPECT_EQ(store.selection().rows().size(), 5u) << "a menu for all that is selected";
    rules.rightClick(5);
    EXPECT_EQ(store.selection().rows(), Rows{5});
    rules.click(std::nullopt, kCtrl);
    rules.click(99, kShift);
    EXPECT_EQ(store.selection().rows(), Rows{5});
    rules.click(std::nullopt, {});
    EXPECT_EQ(store.selection().rows(), Rows{});
}

TEST_F(Selecting, WithoutAnAnchorOrFocus) {
    rules.selectAll();
    EXPECT_EQ(store.selection().focusedRow(), 0u);
    store.selection().clear();
    store.selection().setFocus(4);
    rules.move(Move::down, 4, kShift);
    rules.move(Move::down, 4, kShift);
    EXPECT_EQ(store.selection().rows(), (Rows{4, 5, 6})) << "the focus is the anchor from then on";
}

TEST_F(Selecting, ByTheKeys) {
    EXPECT_EQ(rules.move(Move::down, 4, {}), 0u) << "the first key goes to the first row";
    EXPECT_EQ(rules.move(Move::up, 4, {}), 0u);
    EXPECT_EQ(rules.move(Move::pageDown, 4, {}), 3u);
    EXPECT_EQ(rules.move(Move::pageDown, 4, kShift), 6u);
    EXPECT_EQ(store.selection().rows(), (Rows{3, 4, 5, 6}));
    EXPECT_EQ(rules.move(Move::end, 4, kCtrl), 9u);
    EXPECT_EQ(store.selection().rows(), (Rows{3, 4, 5, 6}));
    rules.space(kCtrl);
    EXPECT_EQ(store.selection().rows(), (Rows{3, 4, 5, 6, 9}));
    rules.move(Move::up, 4, kCtrl);
    rules.move(Move::up, 4, kBoth);
    EXPECT_EQ(store.selection().rows(), (Rows{3, 4, 5, 6, 7, 8, 9})) << "from where Ctrl+Space was";
    rules.space(kShift);
    EXPECT_EQ(store.selection().rows(), (Rows{7, 8, 9})) << "from the anchor to the focus";
    EXPECT_EQ(rules.move(Move::home, 4, {}), 0u);
    EXPECT_EQ(store.selection().rows(), Rows{0});
    rules.move(Move::down, 4, kCtrl);
    rules.space({});
    EXPECT_EQ(store.selection().rows(), (Rows{0, 1}));
    EXPECT_EQ(rules.move(Move::pageUp, 4, {}), 0u);

    RecordStore none;
    SelectionRules empty(none);
    EXPECT_EQ(empty.move(Move::down, 4, {}), std::nullopt);
    empty.space({});
    empty.selectAll();
    EXPECT_EQ(none.selection().focusedRow(), std::nullopt);
}

}  // namespace
