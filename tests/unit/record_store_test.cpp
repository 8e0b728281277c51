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
        m_store.texts().setReader(
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
    void filter(const char* text) {
        m_store.filters().set(kColumn, text);
        m_store.filter();
    }
    RecordStore m_store;
    std::vector<std::string> m_texts;  // by slot
    std::optional<std::size_t> m_inserted;
};

TEST_F(RecordStoreTest, WithoutDataTakesAndShowsNothing) {
    m_store.texts().setReader(nullptr);
    insert(0, "a");
    EXPECT_EQ(m_inserted, std::nullopt);
    EXPECT_EQ(m_store.stored().size(), 0U);
    EXPECT_EQ(m_store.filter(), Outcome::nothingDone);
    EXPECT_EQ(m_store.cellText(0, kColumn), "no data descriptor initialised");
    EXPECT_TRUE(m_store.distinctValues(kColumn).values.empty());
}

TEST_F(RecordStoreTest, DistinctValuesComeWithTheirRows) {
    append({"b", "", "a", "c", "B", "a", "c"});
    filter("zzz");
    using Values = std::vector<DistinctValue>;
    EXPECT_EQ(m_store.distinctValues(kColumn).values,
              (Values{{"a", 2}, {"c", 2}, {"b", 1}, {"B", 1}}));
    EXPECT_EQ(m_store.distinctValues(kColumn, ValueOrder::alphabetical).values,
              (Values{{"B", 1}, {"a", 2}, {"b", 1}, {"c", 2}}));
    EXPECT_EQ(m_store.distinctValues(kColumn).rows, 7U) << "those without a text are no choice";
    m_store.passing().setArrange([](std::vector<Slot>& passing) { passing.pop_back(); });
    EXPECT_EQ(m_store.distinctValues(kColumn).values.front(), (DistinctValue{"a", 2}));
    m_store.reset();
    append({"", ""});
    EXPECT_TRUE(m_store.distinctValues(kColumn).values.empty());
}

}  // namespace
