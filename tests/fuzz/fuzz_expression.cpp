// Expressions and cells from anywhere: the compiled steps and the reference agree, and computed
// columns that refer to each other at will come to an end.
//
// The input makes the draws: expressions are more often sensible than not, as are the cells. It is
// also an expression itself.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "listctrl/model/expression/computed_columns.h"
#include "tests/fuzz/input.h"
#include "tests/unit/reference_expression.h"

using namespace mc;

namespace {

using Texts = std::vector<std::string>;

class Draws {
public:
    Draws(const std::uint8_t* data, std::size_t size) : m_input(data, size) {}

    std::string cell() {
        if (below(3) == 0) return one(kOddCells);
        return std::to_string(below(256) * below(256)) + "." + std::to_string(10 + below(90));
    }

    std::string expression() {
        return (below(8) != 0 ? " " : "") + (below(3) != 0 ? sensible(2) : chaotic());
    }

private:
    std::size_t below(std::size_t bound) { return m_input.below(bound); }
    std::string one(const auto& of) { return m_input.oneOf(of); }

    std::string reference() { return "\"" + std::to_string(below(5)) + "\""; }

    std::string operand(int depth) {
        switch (below(depth > 0 ? 5U : 4U)) {
            case 0:
                return std::to_string(below(12));
            case 1:
                return one(kSigns) + reference();
            case 4:
                return "(" + sensible(depth - 1) + ")";
            default:
                return reference();
        }
    }

    std::string sensible(int depth) {
        std::string text = operand(depth);
        for (std::size_t more = below(4); more > 0; --more)
            text += one(kOperators) + operand(depth);
        return text;
    }

    std::string chaotic() {
        std::string text;
        for (std::size_t more = below(12); more > 0; --more)
            text += below(3) == 0 ? reference() : one(kScraps);
        return text;
    }

    static constexpr std::array kOddCells{
        "",   "0",   "0.00", "-5",  "1,000", "abc", "1e3", "1/2", " 7",   "5 ",     ".",    "1.2.3",
        "-0", "inf", "nan",  "(2",  "2)",    "1*0", "*",   "1 2", "0x1F", "\"0\"",  "+3",   "0.0.5",
        "12", "3",   "7.50", "-2 ", "-inf",  "+",   "9",   "4",   "-",    "00.123", "INFY", "+0X2"};
    static constexpr std::array kSigns{"", "", " -", " +", "-", "5", "!"};
    static constexpr std::array kOperators{
        "+", "-",  "*",  "/",  "\\", "%", "<<", ">>", "^",  "&",
        "|", "&&", "||", "==", "<",  ">", ">=", "<=", "!=", " - "};
    static constexpr std::array kScraps{"+", "-",  "*",  "/",    "\\",  "%",   "<",   ">",
                                        "=", "&",  "|",  "^",    "!",   "(",   ")",   " ",
                                        "1", "\t", "\"", "0",    ".",   ",",   "2.5", "x",
                                        "e", "!=", "e5", "0x1F", "inf", "nan", "*-",  "\xE9"};

    Input m_input;
};

// What the cell shows, and all digits of the value and the status, which it does not show.
void agrees(const std::string& expression, const Texts& cells) {
    const auto fetch = reference::fetchFrom(cells);
    std::string text = "old", expected = "old";
    const CellOutcome outcome = computeCell(expression, fetch, text);
    require(outcome == reference::computeCell(expression, fetch, expected) && text == expected,
            "another cell", expression);
    const auto infix = reference::substitute(expression, fetch);
    if (!infix) return;
    double value = 0.0;
    const int status = reference::evaluate(*infix, value);
    const Evaluation found = evaluateExpression(*infix);
    require(static_cast<int>(found.status) == status, "another status", *infix);
    require(found.value == value || (found.value != found.value && value != value), "another value",
            *infix);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Draws draws(data, size);
    Texts expressions;
    for (int i = 0; i < 6; ++i) {
        expressions.push_back(draws.expression());
        agrees(expressions.back(), {draws.cell(), draws.cell(), draws.cell(), draws.cell()});
    }
    agrees({reinterpret_cast<const char*>(data), size}, {draws.cell(), draws.cell()});
    const ComputedColumns columns(2, expressions);
    const auto fetch = [&](int column) { return CellFetch::Result(column == 0 ? "7.5" : "-2"); };
    std::string text;
    columns.compute(2, fetch, text);
    return 0;
}
