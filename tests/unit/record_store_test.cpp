// The record store against the reference list (random steps, the same state after each), and what
// the reference does not say.
#include "listctrl/model/table/record_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>

#include "tests/unit/reference_list.h"

using namespace mc;

namespace {

using reference::Record;

constexpr int kColumns = 4;

// Steps both lists through the same changes.
class Pair {
public:
    explicit Pair(unsigned seed) : m_random(seed) {
        m_store.texts().setReader([this](Slot slot, ColumnId column) -> std::string_view {
            return m_bySlot[slot]->cells[toIndex(column)];
        });
    }

    void step() {
        static constexpr void (Pair::*kSteps[])() = {
            &Pair::insert,  &Pair::insert,      &Pair::insert,       &Pair::insert,
            &Pair::append,  &Pair::deleteRow,   &Pair::deleteStored, &Pair::refresh,
            &Pair::refresh, &Pair::setFilter,   &Pair::filter,       &Pair::sort,
            &Pair::select,  &Pair::select,      &Pair::focus,        &Pair::anchor,
            &Pair::rarely,  &Pair::switchFlags, &Pair::countValues,
        };
        const auto change = kSteps[below(std::size(kSteps))];
        (this->*change)();
        compareRows();
    }

private:
    std::size_t below(std::size_t end) { return end == 0 ? 0 : m_random() % end; }
    std::size_t anyRow() { return below(m_reference.itemCount + 2); }

    std::string randomText(int column) {
        static const std::vector<std::string> kTexts[kColumns] = {
            {"", "abc", "ABC", "abcd", "xyz", "xBCy", "NA", "longer than eight bytes",
             "longer than eight letters", "\xE4"},
            {"", "-", "NA", "-1", "0", "100", "150.5", "99", "1e3", "7x", " 12"},
            {"", "-", "01/02/2024", "02/01/2024", "31/12/2023", "01/02/2025"},
            {"1", "2", "3", "-4", "4000", "4000", "x"},
        };
        if (below(4) == 0 && column == 3) return std::to_string(below(1000));
        const auto& texts = kTexts[column];
        return texts[below(texts.size())];
    }

    Record* newRecord() {
        Record& record = m_records.emplace_back();
        for (int column = 0; column < kColumns; ++column)
            record.cells.push_back(randomText(column));
        return &record;
    }

    // The slots of records that went are used again.
    void insertAt(std::size_t position) {
        Record* const record = newRecord();
        const auto unused = std::find(m_bySlot.begin(), m_bySlot.end(), nullptr);
        const auto slot = static_cast<Slot>(unused - m_bySlot.begin());
        if (unused == m_bySlot.end()) m_bySlot.push_back(nullptr);
        m_bySlot[slot] = record;
        m_slots[record] = slot;
        EXPECT_EQ(m_store.insertItem(position, slot), RecordStore::Outcome::done);
        EXPECT_EQ(m_store.stored().rowOf(slot), m_reference.insertItem(position, record));
    }
    void freeSlotsOfGone() {
        for (Record*& record : m_bySlot)
            if (std::ranges::find(m_reference.store, record) == m_reference.store.end())
                record = nullptr;
    }
    void insert() { insertAt(below(m_reference.store.size() + 2)); }
    void append() { insertAt(0); }

    void expectSame(RecordStore::Outcome ours, const reference::List::Outcome& expected) {
        EXPECT_EQ(ours == RecordStore::Outcome::done ? 1 : 0, expected.result);
        EXPECT_EQ(std::string(messageOf(ours) != nullptr ? messageOf(ours) : ""), expected.message);
        freeSlotsOfGone();
    }
    void deleteRow() {
        const std::size_t row = anyRow();
        expectSame(m_store.deleteItem(row), m_reference.deleteItem(row));
    }
    void deleteStored() {
        const std::size_t position = below(m_reference.store.size() + 1);
        expectSame(m_store.deleteStored(position), m_reference.deleteStored(position));
    }

    void refresh() {
        if (m_reference.store.empty()) return;
        Record* const record = m_reference.store[below(m_reference.store.size())];
        const int column = static_cast<int>(below(kColumns));
        record->cells[static_cast<std::size_t>(column)] = randomText(column);
        m_store.refresh(m_slots[record]);
        m_reference.refresh(record);
    }

    void setFilter() {
        static const std::vector<std::string> kFilters = {"",         "",
                                                          "",         "",
                                                          "a",        "abc",
                                                          "*bc",      "*bc*",
                                                          "*",        ">99",
                                                          "<100",     "abc~xyz",
                                                          "~",        "1~2~3~4~5~6",
                                                          ">abc",     "<",
                                                          "*longer*", "longer than eight b",
                                                          "NA~-"};
        const int column = static_cast<int>(below(kColumns));
        const std::string& text = kFilters[below(kFilters.size())];
        const bool isValue = below(4) == 0;
        m_store.filters().set(ColumnId{column}, text,
                              isValue ? FilterKind::value : FilterKind::pattern);
        m_reference.setFilter({column, text, isValue});
        if (!text.empty()) {
            EXPECT_EQ(m_store.filters().of(ColumnId{column}).text, text);
        }
    }
    void filter() { expectSame(m_store.filter(), m_reference.filter()); }

    void sort() {
        if (below(4) == 0) return m_store.unsort(), m_reference.unsort();
        static constexpr int kTypes[kColumns][2] = {{3, 8}, {2, 9}, {6, 6}, {1, 4}};
        const int column = static_cast<int>(below(kColumns));
        const int type = below(10) == 0 ? 0 : kTypes[column][below(2)];
        const int direction = below(2) == 0 ? -1 : 1;
        m_store.sort({ColumnId{column}, comparisonOf(type), direction});
        m_reference.sort({column, type, direction});
    }

    void select() {
        const std::size_t row = anyRow();
        const bool on = below(3) != 0;
        m_store.selection().select(row, on);
        m_reference.select(row, on);
    }
    void focus() {
        const std::size_t row = anyRow();
        m_store.selection().setFocus(row);
        m_reference.focus = m_reference.at(row);
    }
    void anchor() {
        const std::size_t row = anyRow();
        m_store.selection().setAnchor(row);
        m_reference.anchor = m_reference.at(row);
    }

    void switchFlags() {
        const bool on = below(2) == 0;
        switch (below(3)) {
            case 0:
                m_store.filters().setMatchExactly(on), m_reference.wanted.exactAlways = on;
                break;
            case 1:
                m_store.filters().matchExactlyOnce(), m_reference.wanted.exactOnce = true;
                break;
            default:
                m_store.setReversed(on), m_reference.reversed = on;
                break;
        }
    }

    void countValues() {
        const int column = static_cast<int>(below(kColumns));
        const auto order = below(2) == 0 ? ValueOrder::mostFrequent : ValueOrder::alphabetical;
        const auto values = m_store.distinctValues(ColumnId{column}, order).values;
        std::map<std::string, std::size_t> counts;
        for (const DistinctValue& value : values) counts.emplace(value.text, value.rows);
        EXPECT_EQ(counts, m_reference.counts(column));
        EXPECT_TRUE(std::ranges::is_sorted(values, [order](const auto& a, const auto& b) {
            return order == ValueOrder::mostFrequent ? a.rows > b.rows : a.text < b.text;
        }));
    }

    void rarely() {
        switch (below(8)) {
            case 0:
                m_store.reset(), m_reference.reset(), freeSlotsOfGone();
                break;
            case 1:
                m_store.texts().drop();
                break;
            case 2:
                m_store.texts().drop(toColumnId(below(kColumns)));
                break;
            case 3:
                m_store.selection().selectAll();
                for (std::size_t row = 0; row < m_reference.itemCount; ++row)
                    m_reference.select(row, true);
                break;
            case 4:
                m_store.selection().clear();
                m_reference.selected.clear();
                break;
            case 5:
                m_store.filters().clear();
                m_reference.wanted.filters.clear(), m_reference.wanted.fit = true;
                break;
            case 6:
                m_store.filters().setAll({ColumnId{0}, ColumnId{1}}, {ColumnFilter{"a"}});
                m_reference.wanted.filters = {{0, "a"}, {1, ""}}, m_reference.wanted.fit = false;
                break;
            default:
                break;
        }
    }

    Record* recordAt(std::optional<std::size_t> row) const {
        const Slot slot = row ? m_store.slotAt(*row) : kNoSlot;
        return slot != kNoSlot ? m_bySlot[slot] : nullptr;
    }

    void compareRows() {
        ASSERT_EQ(m_store.stored().size(), m_reference.store.size());
        for (std::size_t i = 0; i < m_reference.store.size(); ++i) {
            Record* const record = m_reference.store[i];
            ASSERT_EQ(m_bySlot[m_store.stored().at(i)], record);
            ASSERT_EQ(m_store.stored().rowOf(m_slots[record]), i);
        }
        ASSERT_EQ(m_store.rowCount(), m_reference.itemCount);
        std::vector<std::size_t> selected;
        for (std::size_t row = 0; row < m_reference.itemCount; ++row) {
            Record* const record = m_reference.at(row);
            ASSERT_EQ(recordAt(row), record) << "row " << row;
            if (record != nullptr) {
                ASSERT_EQ(m_store.rowOf(m_slots[record]), row);
            }
            if (m_reference.selected.contains(record)) selected.push_back(row);
        }
        ASSERT_EQ(m_store.selection().rows(), selected);
        ASSERT_EQ(m_store.selection().count(), selected.size());
        ASSERT_EQ(recordAt(m_store.selection().focusedRow()), m_reference.focus);
        ASSERT_EQ(recordAt(m_store.selection().anchorRow()), m_reference.anchor);
    }

    std::mt19937 m_random;
    RecordStore m_store;
    reference::List m_reference;
    std::deque<Record> m_records;
    std::vector<Record*> m_bySlot;  // null: no record has the slot
    std::map<Record*, Slot> m_slots;
};

TEST(RecordStore, NeverDiffersFromTheReferenceList) {
    for (unsigned seed = 0; seed < 600; ++seed) {
        Pair lists(seed);
        for (int i = 0; i < 120; ++i) {
            lists.step();
            if (testing::Test::HasFatalFailure() || testing::Test::HasNonfatalFailure())
                FAIL() << "seed " << seed << ", step " << i;
        }
    }
}

TEST(RecordStore, WithoutDataTakesAndShowsNothing) {
    RecordStore store;
    EXPECT_EQ(store.insertItem(0, 0), RecordStore::Outcome::nothingDone);
    EXPECT_EQ(store.stored().size(), 0U);
    EXPECT_EQ(store.filter(), RecordStore::Outcome::nothingDone);
    EXPECT_EQ(store.cellText(0, ColumnId{0}), "no data descriptor initialised");
    EXPECT_TRUE(store.distinctValues(ColumnId{0}).values.empty());
}

TEST(RecordStore, DistinctValuesComeWithTheirRows) {
    constexpr std::string_view texts[] = {"b", "", "a", "c", "B", "a", "c"};
    RecordStore store;
    store.texts().setReader([&](Slot slot, ColumnId) { return texts[slot]; });
    for (Slot slot = 0; slot < std::size(texts); ++slot) store.insertItem(0, slot);
    store.filters().set(ColumnId{0}, "zzz");
    store.filter();
    const DistinctValues found = store.distinctValues(ColumnId{0});
    EXPECT_EQ(found.values, (std::vector<DistinctValue>{{"a", 2}, {"c", 2}, {"b", 1}, {"B", 1}}));
    EXPECT_EQ(found.rows, 7U) << "those without a text are no choice";
    store.passing().setArrange([](std::vector<Slot>& passing) { passing.pop_back(); });
    EXPECT_EQ(store.distinctValues(ColumnId{0}).values.front(), (DistinctValue{"a", 2}));
}

}  // namespace
