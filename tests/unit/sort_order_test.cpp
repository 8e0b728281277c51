#include "listctrl/model/table/sort_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "listctrl/model/table/column_texts.h"
#include "tests/unit/reference_list.h"

using namespace mc;

namespace {

int signOf(int value) {
    return (value > 0) - (value < 0);
}

TEST(SortOrder, ComparesByDataType) {
    const struct {
        int dataType;
        const char *a, *b;
        int order;  // of a against b, the smallest first
    } cases[] = {
        {1, "-2147483648", "2147483647", -1},
        {1, "4000000000", "5000000000", 0},
        {4, "4000000000", "5000000000", -1},
        {4, "-9223372036854775808", "9223372036854775807", -1},
        {2, "na", "0", 0},
        {2, "-0", "0", 0},
        {2, "1e999", "2e999", 0},
        {6, "abc", "ab", 1},
        {6, "31/12/2023", "01/01/2024", -1},
        {6, "1/2/2024", "01/01/2024", 1},
        {10, "b", "a", 0},
        {-1, "b", "a", 0},
    };
    for (const auto& [dataType, a, b, order] : cases) {
        const Comparison comparison = comparisonOf(dataType);
        EXPECT_EQ(signOf(compareTexts(comparison, a, b)), order)
            << dataType << ' ' << a << ' ' << b;
        EXPECT_EQ(signOf(compareTexts(comparison, b, a)), -order)
            << dataType << ' ' << a << ' ' << b;
        EXPECT_EQ(signOf(compareRows({ColumnId{0}, comparison, -1}, a, b)), order);
        EXPECT_EQ(signOf(compareRows({ColumnId{0}, comparison, 1}, a, b)), -order);
    }
}

// Each list ascends; texts of one line are the same moment.
TEST(SortOrder, DatesAndTimesAscend) {
    const std::vector<std::vector<std::vector<const char*>>> lists = {
        {{"01/02/2024", "01-02-2024", "01-Feb-2024", "2024/02/01", "1/2/24", "01/february/2024"},
         {"02/02/2024", "2024-02-02"},
         {"01/03/2024", "01-MAR-2024"},
         {"01/02/2025"},
         {"01/02/2069", "01/02/69"}},
        {{"01/01/70", "01/01/1970"}, {"31/12/99"}, {"01/01/00", "2000-1-1"}},
        {{"12:00 AM", "00:00", "0:00:00", "12:00am"},
         {"00:00:00.005"},
         {"00:00:00.5", "00:00:00.50"},
         {"01:00", "01:00 AM", "1:00am"},
         {"11:99 AM"},
         {"12:00 PM", "12:00"},
         {"12:30 PM"},
         {"01:00 PM", "13:00:00"}},
        {{"01/02/2024 11:00 PM", "01/02/2024T23:00"}, {"02/02/2024 01:00 AM"}},
    };
    for (const auto& list : lists) {
        std::uint64_t last = 0;
        for (const auto& same : list) {
            const std::uint64_t key = dateTimeKey(same.front());
            EXPECT_GT(key, last) << same.front();
            for (const char* text : same) EXPECT_EQ(dateTimeKey(text), key) << text;
            last = key;
        }
    }
    for (const char* text :
         {"", "-", "abc", "1/2", "1//2024", "01/02/20245", "01/Foo/2024", "10:", "10:00 XM",
          "10:00 A", "10:00 AMx", "01/02/2024x", "01/02/2024 ", "2024/02/2024", "100:00", "10.30"})
        EXPECT_EQ(dateTimeKey(text), 0U) << text;
}

struct Column {
    int dataType;
    const char* letters;
    std::size_t most;
};

SlotSequence slotsBelow(std::size_t count) {
    SlotSequence slots;
    slots.homes().grow(count);
    for (Slot slot = 0; slot < count; ++slot) slots.append(slot);
    return slots;
}

void expectSorted(const Column& column, std::size_t rows, std::mt19937& random) {
    const std::string_view letters = column.letters;
    std::vector<std::string> texts(rows);
    for (auto& text : texts) {
        // Some begin alike for longer than the bytes that are compared at once.
        if (column.dataType % 5 == 3 && random() % 2 == 0) text.assign(random() % 80, 'b');
        for (std::size_t i = random() % (column.most + 1); i > 0; --i)
            text += letters[random() % letters.size()];
    }
    ColumnTexts kept;
    std::vector<Slot> slots(rows);
    std::iota(slots.begin(), slots.end(), Slot{0});
    kept.fill(slotsBelow(rows), [&](Slot slot) { return std::string_view(texts[slot]); });
    std::shuffle(slots.begin(), slots.end(), random);
    if (random() % 3 == 0) slots.resize(rows / 10);
    for (const int direction : {-1, 1}) {
        std::vector<Slot> expected = slots;
        std::stable_sort(expected.begin(), expected.end(), [&](Slot a, Slot b) {
            return reference::compare(column.dataType, direction, texts[a], texts[b]) < 0;
        });
        std::vector<Slot> sorted = slots;
        kept.sort(sorted, comparisonOf(column.dataType), direction);
        ASSERT_TRUE(sorted == expected) << column.dataType << ", direction " << direction;
    }
}

TEST(SortOrder, SortsAsAStableSortByTheReferenceComparison) {
    const Column columns[] = {
        {1, "0123456789-", 8}, {4, "0123456789-", 17}, {2, "0123456789.-e", 12}, {5, "-NA19", 2},
        {7, "0123456789.", 5}, {9, "019.-A", 6},       {3, "ab\xE4\x01 ", 20},   {8, "abcdefgh", 3},
        {6, "/0", 1},          {0, "ab", 3},
    };
    std::mt19937 random(3);
    for (const Column& column : columns)
        for (const std::size_t rows : {1U, 2U, 50U, 700U, 20000U})
            expectSorted(column, rows, random);
}

// Texts cached by column, most of them equal to others or, at first, all different: changing and
// forgetting them leaves the others as they are.
void expectKept(bool allDifferent) {
    std::mt19937 random(4);
    ColumnTexts kept;
    std::vector<std::string> texts(3000);
    const SlotSequence stored = slotsBelow(texts.size());
    if (allDifferent)
        for (Slot i = 0; i < texts.size(); ++i) texts[i] = std::to_string(10000 + i);
    kept.fill(stored, [&](Slot slot) { return std::string_view(texts[slot]); });
    std::vector<Slot> all, passing, expected;
    for (int step = 0; step < 20001; ++step) {
        const auto slot = static_cast<Slot>(random() % texts.size());
        texts[slot] = random() % 4 == 0 ? "" : std::to_string(random() % 5000);
        kept.set(slot, texts[slot]);
        if (step % 2000 != 0) continue;
        for (Slot i = 0; i < texts.size(); ++i) ASSERT_EQ(kept.text(i), texts[i]);
        stored.copyTo(all);
        passing = expected = all;
        std::erase_if(expected,
                      [&](Slot i) { return !reference::matches(texts[i], ">2500~1", false); });
        kept.keepMatching(FilterPattern(">2500~1", false), passing);
        ASSERT_EQ(passing, expected);
        passing = expected = all;
        std::ranges::stable_sort(expected, {}, [&](Slot i) { return texts[i]; });
        kept.sort(passing, Comparison::text, -1);
        ASSERT_EQ(passing, expected);
    }
    std::map<std::string, std::size_t> rows;
    for (const std::string& text : texts)
        if (!text.empty()) ++rows[text];
    const DistinctValues found = kept.distinct(stored, all, ValueOrder::alphabetical);
    ASSERT_EQ(found.values.size(), rows.size());
    for (auto value = found.values.begin(); const auto& [text, count] : rows) {
        EXPECT_EQ(value->text, text);
        EXPECT_EQ(value++->rows, count);
    }
    for (Slot i = 0; i < texts.size(); ++i) ASSERT_EQ(kept.text(i), texts[i]);
}

TEST(ColumnTexts, KeepsTheLastTextOfEachSlot) {
    expectKept(false);
    expectKept(true);
}

}  // namespace
