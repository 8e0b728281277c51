#include "listctrl/model/table/record_store.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using namespace mc;

namespace {

using Outcome = RecordStore::Outcome;
constexpr ColumnId kColumn{0};

class RecordStoreTest : public testing::Test {
protected:
    RecordStoreTest() {
        m_store.setCellReader(
            [this](Slot slot, ColumnId) -> std::string_view { return m_texts[slot]; });
    }

    // Under the slot `slot`, a new one unless it is given.
    Slot insert(std::size_t position, const char* text, std::optional<Slot> slot = {}) {
        if (!slot) {
            slot = static_cast<Slot>(m_texts.size());
            m_texts.emplace_back();
        }
        m_texts[*slot] = text;
        m_inserted = m_store.insertItem(position, *slot);
        return *slot;
    }
    void append(std::initializer_list<const char*> texts) {
        for (const char* text : texts) insert(0, text);
    }
    std::string shown() const {
        std::string rows;
        for (std::size_t row = 0; row < m_store.rowCount(); ++row)
            rows += (row > 0 ? " " : "") + std::string(m_store.cellText(row, kColumn));
        return rows;
    }
    void filter(const char* text) {
        m_store.filters().set(kColumn, text);
        m_store.filter();
    }
    void refresh(Slot slot, const char* text) {
        m_texts[slot] = text;
        m_store.refresh(slot);
    }

    RecordStore m_store;
    std::vector<std::string> m_texts;  // by slot
    std::optional<std::size_t> m_inserted;
};

TEST_F(RecordStoreTest, WithoutDataTakesAndShowsNothing) {
    m_store.setCellReader(nullptr);
    insert(0, "a");
    EXPECT_EQ(m_inserted, std::nullopt);
    EXPECT_EQ(m_store.storedCount(), 0U);
    EXPECT_EQ(m_store.filter(), Outcome::nothingDone);
    EXPECT_EQ(m_store.cellText(0, kColumn), "no data descriptor initialised");
    EXPECT_TRUE(m_store.distinctValues(kColumn).values.empty());
}

TEST_F(RecordStoreTest, InsertsInTheMiddleAndAppendsAtZero) {
    append({"a", "b", "c"});
    for (const std::size_t position : {1U, 0U, 99U}) insert(position, "x");
    EXPECT_EQ(m_inserted, 5U);
    EXPECT_EQ(shown(), "a x b c x x");
    filter("x");
    insert(2, "x");  // the third record, and the third row
    EXPECT_EQ(shown(), "x x x x");
    EXPECT_EQ(m_store.storedPosition(m_store.slotAt(2)), 2U);
}

TEST_F(RecordStoreTest, DeletesRowsAndStoredRecords) {
    append({"a", "b", "c", "d", "e"});
    EXPECT_EQ(m_store.deleteItem(5), Outcome::nothingDone);
    EXPECT_EQ(m_store.deleteItem(1), Outcome::done);
    m_store.setReversed(true);
    EXPECT_EQ(shown(), "e d c a");
    EXPECT_EQ(m_store.deleteItem(0), Outcome::done);
    EXPECT_EQ(shown(), "d c a");
    EXPECT_EQ(m_store.deleteStored(0), Outcome::done);
    EXPECT_EQ(shown(), "d c");
    filter("d");
    EXPECT_EQ(m_store.deleteStored(0), Outcome::done);  // filtered out
    EXPECT_EQ(m_store.deleteStored(1), Outcome::nothingDone);
    EXPECT_EQ(shown(), "d");
    m_store.reset();
    EXPECT_EQ(m_store.rowCount() + m_store.storedCount(), 0U);
}

TEST_F(RecordStoreTest, FiltersThatDontBelongTogetherFail) {
    append({"a", "b"});
    m_store.filters().setAll({kColumn, ColumnId{1}}, {ColumnFilter{"a"}});
    EXPECT_STREQ(messageOf(m_store.filter()), "Error occured while filtering");
    EXPECT_EQ(m_store.rowCount(), 2U);
    EXPECT_STREQ(messageOf(m_store.deleteItem(1)), "Delete item: Item not found");
    EXPECT_EQ(m_store.cellText(1, kColumn), "");
    m_store.filters().clear();
    EXPECT_EQ(m_store.filter(), Outcome::done);
    EXPECT_EQ(shown(), "a b");
}

TEST_F(RecordStoreTest, ExactnessIsAskedOnceOrKept) {
    append({"abc", "ABCD"});
    m_store.filters().matchExactlyOnce();
    filter("abc");
    EXPECT_EQ(shown(), "abc");
    insert(0, "abcde");  // judged as the rows on show were
    EXPECT_EQ(shown(), "abc");
    m_store.filter();
    EXPECT_EQ(shown(), "abc ABCD abcde");
    m_store.filters().setMatchExactly(true);
    m_store.filter();
    m_store.filter();
    EXPECT_EQ(shown(), "abc");
}

// Records that come or change later are judged by the value, too, and a pattern takes its place.
TEST_F(RecordStoreTest, AValueStaysOneUntilThePatternChanges) {
    append({"a~b", "a", "a~bc", "A~B"});
    m_store.filters().set(kColumn, "a~b", FilterKind::value);
    m_store.filter();
    EXPECT_EQ(shown(), "a~b A~B");
    insert(0, "b");
    refresh(insert(0, "c"), "A~b");
    EXPECT_EQ(shown(), "a~b A~B A~b");
    filter("a~b");
    EXPECT_EQ(shown(), "a~b a a~bc A~B b A~b");
}

TEST_F(RecordStoreTest, RowsArriveAndMoveWhereOrderAndFilterWantThem) {
    append({"7", "30", "5"});
    filter("<100");
    m_store.sort({kColumn, Comparison::integer, -1});
    const Slot six = insert(1, "6");
    const Slot large = insert(0, "200");
    EXPECT_EQ(shown(), "5 6 7 30");
    refresh(large, "20");
    EXPECT_EQ(shown(), "5 6 7 20 30");
    refresh(six, "25");
    EXPECT_EQ(shown(), "5 7 20 25 30");
    refresh(six, "500");
    EXPECT_EQ(shown(), "5 7 20 30");
    m_store.sort({kColumn, Comparison::integer, 1});
    EXPECT_EQ(shown(), "30 20 7 5");
    m_store.unsort();
    EXPECT_EQ(shown(), "7 30 5 20");
    refresh(six, "8");
    EXPECT_EQ(shown(), "7 8 30 5 20");
}

// Texts that no record has any longer are let go of in between.
TEST_F(RecordStoreTest, StaysRightThroughManyTexts) {
    append({"1", "2", "3"});
    filter(">0");
    m_store.sort({kColumn, Comparison::integer, -1});
    for (int i = 10; i < 6000; ++i) {
        refresh(m_store.storedAt(static_cast<std::size_t>(i % 3)), std::to_string(i).c_str());
        ASSERT_EQ(m_store.cellText(2, kColumn), std::to_string(i));
        if (i % 1500 == 0) m_store.filter();
    }
    EXPECT_EQ(shown(), "5997 5998 5999");
}

TEST_F(RecordStoreTest, SelectionFocusAndAnchorBelongToRecords) {
    append({"c", "b", "a", "d"});
    m_store.select(0, true);
    m_store.setFocus(1);
    m_store.setAnchor(0);
    m_store.sort({kColumn, Comparison::text, -1});
    EXPECT_EQ(m_store.selectedRows(), std::vector<std::size_t>{2});
    EXPECT_EQ(m_store.focusedRow(), 1U);
    EXPECT_EQ(m_store.anchorRow(), 2U);

    const Slot gone = m_store.slotAt(2);
    m_store.deleteItem(2);  // the row after it takes its place
    EXPECT_EQ(m_store.selectedRows(), std::vector<std::size_t>{2});
    EXPECT_EQ(m_store.anchorRow(), 2U);
    insert(0, "0", gone);  // the slot is given again, and with it nothing of the selection
    EXPECT_EQ(m_store.selectedRows(), std::vector<std::size_t>{3});
    EXPECT_EQ(m_store.anchorRow(), 3U);

    m_store.deleteItem(3);  // the last row: none is selected
    EXPECT_EQ(m_store.selectedCount(), 0U);
    EXPECT_EQ(m_store.anchorRow(), 2U);
    m_store.deleteItem(2);  // it had the focus and was the last
    EXPECT_EQ(m_store.focusedRow(), 1U);

    m_store.select(0, true);
    filter("x");
    filter("");
    EXPECT_EQ(m_store.selectedCount(), 0U);
    EXPECT_EQ(m_store.focusedRow(), std::nullopt);
    EXPECT_EQ(m_store.anchorRow(), std::nullopt);
}

TEST_F(RecordStoreTest, DistinctValuesComeInOrderOfFirstAppearance) {
    append({"b", "", "a", "b", "B", "a", "c"});
    filter("zzz");
    EXPECT_EQ(m_store.distinctValues(kColumn).values,
              (std::vector<std::string>{"b", "a", "B", "c"}));
    const DistinctValues some = m_store.distinctValues(kColumn, 3);
    EXPECT_EQ(some.values.size(), 3U);
    EXPECT_EQ(some.beyond, 1U);
    m_store.reset();
    append({"", ""});
    EXPECT_TRUE(m_store.distinctValues(kColumn).values.empty());
}

TEST_F(RecordStoreTest, TellsWhatChanged) {
    append({"a", "b", "c"});
    m_store.takeChanges();
    const auto expect = [&](bool count, bool selection, std::size_t first, std::size_t last) {
        const RowChanges changes = m_store.takeChanges();
        EXPECT_EQ(changes.count, count);
        EXPECT_EQ(changes.selection, selection);
        EXPECT_EQ(changes.first, first);
        EXPECT_EQ(changes.last, last);
    };
    expect(false, false, 0, 0);
    insert(0, "d");
    expect(true, false, 3, RowChanges::kToTheEnd);
    refresh(m_store.slotAt(1), "x");
    refresh(m_store.slotAt(2), "y");
    expect(false, false, 1, 3);
    m_store.select(0, true);
    expect(false, true, 0, 0);
    m_store.deleteItem(2);
    expect(true, false, 2, RowChanges::kToTheEnd);
}

}  // namespace
