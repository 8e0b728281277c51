// What mouse, keys, the marquee and typed letters select in a list.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/table/marquee.h"
#include "listctrl/model/table/selection_rules.h"
#include "listctrl/model/table/type_to_find.h"

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

class MarqueeTest : public testing::Test {
protected:
    MarqueeTest() {
        m_store.texts().setReader([](Slot, ColumnId) { return std::string_view(); });
        for (Slot slot = 0; slot < 20; ++slot) m_store.insertItem(0, slot);
        for (const std::size_t row : {1U, 7U, 19U}) m_store.selection().select(row, true);
        m_store.selection().setFocus(7);
        m_store.selection().setAnchor(1);
    }
    void press(bool adds, Marquee::Point at) {
        m_marquee.press(adds);
        if (!adds) m_store.selection().clear();
        m_marquee.begin(at);
    }
    void moveTo(Marquee::Point at) { m_marquee.moveTo(at, {100, 10}); }
    const Rows& selected() { return m_store.selection().rows(); }

    RecordStore m_store;
    Marquee m_marquee{m_store};
};

TEST_F(MarqueeTest, SelectsTheRowsItTouches) {
    const struct {
        const char* what;
        bool adds;
        Marquee::Point from, to;
        Rows selected;
        std::size_t anchor, focus;
    } cases[] = {
        {"upwards beside rows", false, {120, 59}, {99, 40}, {4, 5}, 5, 4},
        {"only beside them", false, {120, 59}, {100, 0}, {}, 1, 7},
        {"from below", false, {50, 300}, {50, 175}, {17, 18, 19}, 19, 17},
        {"above the first", false, {120, 15}, {50, -40}, {0, 1}, 1, 0},
        {"added", true, {120, 65}, {50, 85}, {1, 6, 7, 8, 19}, 6, 8},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        press(each.adds, each.from);
        moveTo(each.to);
        EXPECT_EQ(selected(), each.selected);
        EXPECT_EQ(m_store.selection().anchorRow(), each.anchor);
        EXPECT_EQ(m_store.selection().focusedRow(), each.focus);
        m_marquee.putBack();
        EXPECT_EQ(selected(), (Rows{1, 7, 19}));
        EXPECT_EQ(m_store.selection().anchorRow(), 1U);
        EXPECT_EQ(m_store.selection().focusedRow(), 7U);
    }
}

// Rows come and go while it is dragged; the slots of those that go are used again.
TEST_F(MarqueeTest, IsAlwaysWhatItTouchesNow) {
    std::mt19937 random(7);
    for (int drag = 0; drag < 200; ++drag) {
        const bool adds = drag % 2 == 0;
        std::vector<bool> before(20);
        for (const std::size_t row : selected()) before[m_store.slotAt(row)] = adds;
        const int from = static_cast<int>(random() % 260) - 20;
        press(adds, {120, from});
        for (int move = 0; move < 6; ++move) {
            if (random() % 3 == 0) {
                const auto slot = static_cast<Slot>(random() % 20);
                m_store.deleteRecord(slot);
                m_store.insertItem(random() % 20, slot);
                before[slot] = false;
            }
            const int to = static_cast<int>(random() % 260) - 20;
            moveTo({50, to});
            Rows expected;
            for (int row = 0; row < 20; ++row)
                if (before[m_store.slotAt(static_cast<std::size_t>(row))] ||
                    (std::min(from, to) < row * 10 + 10 && std::max(from, to) >= row * 10))
                    expected.push_back(static_cast<std::size_t>(row));
            EXPECT_EQ(selected(), expected) << drag << " " << move;
        }
    }
}

TEST_F(MarqueeTest, WhatAFilterHidesMeanwhileIsNotSelectedAgain) {
    press(false, {120, 59});
    m_store.passing().setJudge([](Slot slot) { return slot % 12 != 7; });
    m_store.filter();
    m_marquee.putBack();
    EXPECT_EQ(selected(), Rows{1});
    EXPECT_EQ(m_store.selection().count(), 1U);
    EXPECT_EQ(m_store.selection().anchorRow(), 1U);
    EXPECT_EQ(m_store.selection().focusedRow(), std::nullopt);
}

TEST(LinesToScroll, GrowWithTheDistance) {
    for (const auto& [y, lines] : {std::pair{-1, -1}, {-25, -3}, {0, 0}, {99, 0}, {100, 1}})
        EXPECT_EQ(linesToScroll(y, 0, 100, 10), lines) << y;
}

constexpr ColumnId kFindColumn{0};
using Row = std::optional<std::size_t>;

class Finding : public testing::Test {
protected:
    Finding() {
        rows.texts().setReader(
            [this](Slot row, ColumnId) -> std::string_view { return texts[row]; });
        for (const char* text : {"Bela", "asha", "Chitra", "ASHOK", "", "anil", "110", "10"}) {
            texts.push_back(text);
            rows.insertItem(0, static_cast<Slot>(texts.size() - 1));
        }
    }
    std::vector<std::string> texts;
    RecordStore rows;
};

TEST_F(Finding, TypedLettersLeadFromRowToRow) {
    const struct {
        const char* what;
        Row focus;
        const char* typed;  // "|" is a pause
        std::vector<Row> found;
    } cases[] = {
        {"from the top", {}, "c", {2}},
        {"on from the focused row", 1, "a", {3}},
        {"around the end", 6, "B", {0}},
        {"the focused row is the only one", 2, "c", {2}},
        {"further letters may stay", 0, "asho", {1, 1, 1, 3}},
        {"letter by letter", 0, "an", {1, 5}},
        {"a repeated letter steps", 0, "aaaa", {1, 3, 5, 1}},
        {"unless a cell begins with them all", 0, "11", {6, 6}},
        {"after a pause the next word begins", 0, "a|b", {1, 0}},
        {"no such row", 0, "zb", {{}, {}}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        rows.selection().setFocus(each.focus.value_or(rows.rowCount()));
        TypeToFind find;
        std::uint32_t now = ~std::uint32_t{0} - 100;  // the clock starts again meanwhile
        std::vector<Row> found;
        for (const char* c = each.typed; *c != '\0'; ++c) {
            now += *c == '|' ? TypeToFind::kPause : TypeToFind::kPause / 4;
            if (*c == '|') continue;
            found.push_back(find.type(*c, now, rows, kFindColumn));
            if (found.back()) rows.selection().setFocus(*found.back());
        }
        EXPECT_EQ(found, each.found);
    }
}

}  // namespace
