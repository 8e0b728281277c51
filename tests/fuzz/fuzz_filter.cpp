// Filter texts and cell texts of any bytes: the rows that a filter pass shows, one by one and all
// in a row, and the order that every comparison brings them in.
//
// The input is lines: the first is the filter text, its first byte choosing the flags and the
// order; the others are cells.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "listctrl/model/table/record_store.h"

using namespace mc;

namespace {

void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "violated: %s\n", what);
    std::abort();
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

constexpr ColumnId kColumn{0};

// A line's slot is its number.
void checkFilter(const RecordStore& store, const std::vector<std::string_view>& lines,
                 std::string_view filterText, bool exact, FilterKind kind) {
    const FilterPattern pattern(filterText, exact, kind);
    for (std::size_t i = 0; i < store.storedCount(); ++i) {
        const Slot slot = store.storedAt(i);
        const std::string_view cell = lines[slot];
        require(store.rowOf(slot).has_value() == pattern.matches(cell),
                "the pass shows what the pattern matches");
    }
}

// Dates among texts of other lengths have no order that all comparisons agree with.
void checkOrder(const RecordStore& store, const SortOrder& order) {
    if (order.comparison == Comparison::dateTime) return;
    for (std::size_t row = 1; row < store.rowCount(); ++row)
        require(
            compareRows(order, store.cellText(row - 1, kColumn), store.cellText(row, kColumn)) <= 0,
            "rows stand in order");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const unsigned flags = data[0];
    auto lines = linesOf({reinterpret_cast<const char*>(data) + 1, size - 1});
    const std::string_view filterText = lines.front();
    const bool exact = (flags & 1) != 0;
    const auto kind = flags >= 192 ? FilterKind::value : FilterKind::pattern;
    const SortOrder order{kColumn, comparisonOf(static_cast<int>(flags >> 2) % 10),
                          (flags & 2) != 0 ? 1 : -1};
    RecordStore store;
    store.setCellReader([&](Slot line, ColumnId) -> std::string_view { return lines[line]; });
    store.filters().setMatchExactly(exact);
    store.filters().set(kColumn, filterText, kind);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        // Some rows are there at the pass, the others come afterwards.
        if (i == lines.size() / 2) {
            store.filter();
            store.sort(order);
        }
        store.insertItem(0, static_cast<Slot>(i));
    }
    if (lines.size() > 3) {
        checkFilter(store, lines, filterText, exact, kind);
        checkOrder(store, order);
    }
    store.filter();
    checkFilter(store, lines, filterText, exact, kind);
    store.sort(order);
    checkOrder(store, order);
    return 0;
}
