// Expressions and cells from anywhere: the compiled steps and the reference agree, and computed
// columns that refer to each other at will come to an end.
//
// Input: lines. The first is an expression for a row of the others, and all of them are the
// expressions of computed columns behind two data columns.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "listctrl/model/expression/computed_columns.h"
#include "tests/unit/reference_expression.h"

using namespace mc;

namespace {

constexpr std::size_t kMostLines = 8;

std::vector<std::string> linesOf(std::string_view input) {
    std::vector<std::string> lines(1);
    for (const char c : input) {
        if (c != '\n')
            lines.back() += c;
        else if (lines.size() < kMostLines)
            lines.emplace_back();
    }
    return lines;
}

void agrees(const std::string& expression, const std::vector<std::string>& cells) {
    const auto fetch = [&](int column) -> CellFetch::Result {
        if (column < 0 || static_cast<std::size_t>(column) >= cells.size()) return std::nullopt;
        return cells[static_cast<std::size_t>(column)];
    };
    std::string text = "old", expected = "old";
    const CellOutcome outcome = computeCell(expression, fetch, text);
    if (outcome == reference::computeCell(expression, fetch, expected) && text == expected) return;
    std::fprintf(stderr, "<%s> gives <%s> instead of <%s>\n", expression.c_str(), text.c_str(),
                 expected.c_str());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto lines = linesOf({reinterpret_cast<const char*>(data), size});
    agrees(lines.front(), lines);
    agrees(' ' + lines.front(), {"12.5", lines.back(), "3", "0"});

    const ComputedColumns columns(2, lines);
    const auto fetch = [&](int column) { return CellFetch::Result(column == 0 ? "7.5" : "-2"); };
    std::string text;
    columns.compute(2, fetch, text);
    return 0;
}
