#include "listctrl/model/table/marquee.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace mc;

namespace {

using Rows = std::vector<std::size_t>;

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

TEST(LinesToScroll, GrowWithTheDistance) {
    for (const auto& [y, lines] : {std::pair{-1, -1}, {-25, -3}, {0, 0}, {99, 0}, {100, 1}})
        EXPECT_EQ(linesToScroll(y, 0, 100, 10), lines) << y;
}

}  // namespace
