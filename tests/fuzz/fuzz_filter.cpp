// A filter on the texts of a column: one by one and all in a row as the rules written down plainly,
// and a list under it shows the records that pass and no others.
#include <algorithm>
#include <limits>
#include <vector>

#include "listctrl/model/table/record_store.h"
#include "listctrl/model/table/text_search.h"
#include "tests/fuzz/input.h"
#include "tests/unit/reference_list.h"
#include "text/read_number.h"

using namespace mc;

namespace {

// The reference reads numbers with the C library, which knows hexadecimal, "inf", "nan" and parts
// of exponents; their letters become another.
std::string plain(std::string text) {
    for (char& c : text)
        if (std::string_view("nNiIxXpPeE\0", 11).find(c) != std::string_view::npos) c = 'q';
    return text;
}

// Most inputs are made of few letters, so that filters match and nearly match.
constexpr std::string_view kLetters[] = {"", "aAbaAbaAbaAbaAb\n", "aAbB1.-~*<>1a\n",
                                         "aAbB1.-~*<>1a\n"};

}  // namespace

// How the filter is read, the filter, and cells, a line each.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input all(data, size);
    const std::size_t how = all.below(128);
    const bool exact = how % 2 != 0;
    const FilterKind kind = how % 8 >= 6 ? FilterKind::value : FilterKind::pattern;
    std::string lines = all.bytes(size);
    if (const std::string_view letters = kLetters[how / 8 % 4]; !letters.empty())
        for (char& c : lines) c = letters[static_cast<unsigned char>(c) % letters.size()];
    Input input(reinterpret_cast<const std::uint8_t*>(lines.data()), lines.size());
    std::string filter = plain(input.until('\n'));
    std::vector<std::string> cells;
    while (!input.empty()) cells.push_back(plain(input.until('\n')));
    if (how >= 32 && !cells.empty()) filter = cells.front().substr(cells.front().size() / 3);
    if (how >= 64) filter = "*" + filter + "*";

    TextTable texts;
    for (const std::string& cell : cells) texts.add(cell);
    std::vector<double> numbers(texts.size());
    for (TextTable::Code code = 0; code < texts.size(); ++code)
        numbers[code] =
            readNumber(texts.text(code)).value_or(std::numeric_limits<double>::quiet_NaN());
    const FilterPattern pattern(filter, exact, kind);
    std::vector<std::uint8_t> marks;
    markMatches(pattern, texts, numbers, marks);

    RecordStore list;
    list.texts().setReader([&](Slot slot, ColumnId) -> std::string_view { return cells[slot]; });
    list.filters().setMatchExactly(exact);
    list.filters().set(ColumnId{0}, filter, kind);
    for (Slot slot = 0; slot < cells.size(); slot += 2) list.insertItem(list.stored().size(), slot);
    list.filter();
    for (Slot slot = 1; slot < cells.size(); slot += 2) list.insertItem(list.stored().size(), slot);

    std::size_t passing = 0;
    for (Slot slot = 0; slot < cells.size(); ++slot) {
        const std::string& cell = cells[slot];
        const bool expected = reference::matches(cell, filter, exact, kind == FilterKind::value);
        require(pattern.matches(cell) == expected, "a cell alone", filter + "> on <" + cell);
        require((marks[texts.add(cell)] != 0) == expected, "in a row", filter + "> on <" + cell);
        require(list.rowOf(slot).has_value() == expected, "its row", filter + "> on <" + cell);
        passing += expected;
    }
    require(list.rowCount() == passing && list.stored().size() == cells.size(), "no more rows");
    return 0;
}
