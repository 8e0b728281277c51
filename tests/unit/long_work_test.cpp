// Passes over all records that are ended at each of their questions, or at which records come,
// change and go meanwhile.
#include "listctrl/model/table/long_work.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "listctrl/model/table/record_store.h"

using namespace mc;

namespace {

constexpr ColumnId kName{0}, kNumber{1}, kDate{2};
constexpr std::size_t kBetween = 5;  // records from one question to the next

// Filtered, sorted and selected; its texts come in another order, and some of them twice.
class List {
public:
    List() {
        rows.texts().setReader([this](Slot slot, ColumnId column) -> std::string_view {
            return m_texts[slot][toIndex(column)];
        });
        for (int i = 0; i < 40; ++i) insert(i * 7 % 19);
        rows.filters().set(kNumber, ">2");
        rows.filter();
        rows.sort({kName, Comparison::text, 1});
        for (const std::size_t row : {3U, 5U, 20U}) rows.selection().select(row, true);
        rows.selection().setFocus(5);
        rows.selection().setAnchor(3);
    }
    void insert(int number) {
        const std::string digits = std::to_string(number);
        m_texts.push_back(
            {"name " + digits, digits, "0" + std::to_string(number % 9) + "/01/2020"});
        rows.insertItem(0, static_cast<Slot>(m_texts.size() - 1));
    }
    // What a message from the server does.
    void change() {
        insert(11);
        m_texts[4][0] = "aa";
        rows.refresh(4);
        rows.deleteRecord(7);
    }
    // All that is to be seen of it, and where a record that comes now goes.
    auto seen() {
        insert(11);
        std::vector<Slot> slots;
        rows.visible().order().copyTo(slots);
        std::ranges::replace(slots, static_cast<Slot>(m_texts.size() - 1), kNoSlot);
        rows.deleteStored(rows.stored().size() - 1);
        const RowFilters& filters = rows.filters();
        return std::tuple(slots, filters.columns(), filters.active().size(),
                          rows.selection().rows(), rows.selection().focusedRow(),
                          rows.selection().anchorRow(), rows.selection().deselectedByFilter());
    }
    RecordStore rows;

private:
    std::vector<std::vector<std::string>> m_texts;  // by slot and column
};

using Pass = bool (*)(List&, const LongWork&);  // false: it was ended

template <int column, Comparison comparison, int direction>
bool sortBy(List& list, const LongWork& work) {
    return list.rows.sort({ColumnId{column}, comparison, direction}, work) !=
           RecordStore::Outcome::ended;
}
bool filterBy(List& list, ColumnId column, const char* text, const LongWork& work) {
    const RowFilters before = list.rows.filters();
    list.rows.filters().set(column, text);
    if (list.rows.filter(work) != RecordStore::Outcome::ended) return true;
    list.rows.filters() = before;
    return false;
}
bool fillBy(List& list, ColumnId column, ValueOrder order, const LongWork& work) {
    const auto values = list.rows.distinctValues(column, order, work);
    EXPECT_TRUE(!values || *values == list.rows.distinctValues(column, order));
    return values.has_value();
}

const struct {
    const char* what;
    Pass pass;
} kPasses[] = {
    {"sort by text", sortBy<2, Comparison::text, -1>},
    {"by numbers", sortBy<1, Comparison::number, 1>},
    {"by numbers, read once", sortBy<2, Comparison::integer, 1>},
    {"by dates", sortBy<2, Comparison::dateTime, 1>},
    {"the other way", sortBy<0, Comparison::text, -1>},
    {"filter", [](List& l, auto& w) { return filterBy(l, kDate, "*5*", w); }},
    {"by numbers", [](List& l, auto& w) { return filterBy(l, kDate, ">3", w); }},
    {"filter ends", [](List& l, auto& w) { return filterBy(l, kNumber, "", w); }},
    {"judge",
     [](List& l, auto& w) {
         l.rows.passing().setJudge([](Slot slot) { return slot % 3 != 0 || slot >= 40; });
         const bool done = filterBy(l, kName, "*1*", w);
         if (!done) l.rows.passing().setJudge({});
         return done;
     }},
    {"choices", [](List& l, auto& w) { return fillBy(l, kDate, ValueOrder::mostFrequent, w); }},
    {"by name", [](List& l, auto& w) { return fillBy(l, kDate, ValueOrder::alphabetical, w); }},
};

TEST(LongWork, EndedAtAnyQuestionLeavesAllAsItWas) {
    int asked = 0;
    for (const auto& [what, pass] : kPasses) {
        SCOPED_TRACE(what);
        List whole;
        const auto before = whole.seen();
        pass(whole, {});
        int questions = 0;
        for (bool done = false; !done; ++questions) {
            SCOPED_TRACE(questions);
            List list;
            int left = questions;
            done = pass(list, LongWork([&left] { return left-- > 0; }, kBetween));
            if (!done) {
                EXPECT_EQ(list.seen(), before);
            }
            pass(list, {});
            EXPECT_EQ(list.seen(), whole.seen()) << "then done";
        }
        asked += questions;
    }
    EXPECT_GT(asked, 60);
}

TEST(LongWork, BeginsAgainWhenRecordsChangeMeanwhile) {
    for (const auto& [what, pass] : kPasses) {
        SCOPED_TRACE(what);
        List expected;
        expected.change();
        pass(expected, {});
        bool changed = true;
        for (int question = 0; changed; ++question) {
            List list;
            changed = false;
            int left = question;
            EXPECT_TRUE(pass(list, LongWork(
                                       [&] {
                                           changed = changed || left == 0;
                                           if (left-- == 0) list.change();
                                           return !changed;
                                       },
                                       kBetween)))
                << "ended and changed at one question: done";
            if (changed) {
                EXPECT_EQ(list.seen(), expected.seen()) << question;
            }
        }
    }
}

}  // namespace
