#include "listctrl/model/expression/expression.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/unit/reference_expression.h"

using namespace mc;

namespace {

using Cells = std::vector<std::string>;

// What the user sees: the text, or the outcome in brackets.
std::string shown(CellOutcome outcome, const std::string& text) {
    constexpr const char* kOutcomes[] = {"", "[not fetched]", "[unchanged]", "[invalid]"};
    return text + kOutcomes[static_cast<int>(outcome)];
}

std::string cell(std::string_view expression, const Cells& cells = {}) {
    std::string text = "old";
    const CellOutcome outcome = computeCell(expression, reference::fetchFrom(cells), text);
    return shown(outcome, text);
}

std::string referenceCell(const std::string& expression, const Cells& cells) {
    std::string text = "old";
    const CellOutcome outcome =
        reference::computeCell(expression, reference::fetchFrom(cells), text);
    return shown(outcome, text);
}

TEST(ExpressionTest, ComputesInfixTexts) {
    struct {
        const char* infix;
        const char* shown;
    } const cases[] = {
        // precedence and order
        {"7%3*2", "1.00"},
        {"1+2<<3-1", "16.00"},
        {"5>3&&2>1", "0.00"},  // 5 > (3 && 2) > 1
        // meanings
        {"7.9\\2.1", "3.00"},
        {"1<<31", "-2147483648.00"},
        {"3000000000&1", "0.00"},
        {"3000000000%(0-1)", "0.00"},
        {"1e3+0x1F", "1031.00"},
        {"inf-inf", "nan"},
        // signs
        {"()-3", "-3.00"},
        {"2- -3", "5.00"},
        {"-(3)", "0.00"},    // the sign is an operand of its own
        {"2*-3", "0.00"},    // "*-" is no operator
        {"2 3*-4", "2.00"},  // its "*" acts at once: 2 * 3 - 4
        {"2<= -3", "0.00"},  // "=" alone is no operator, so the sign is binary
        // what is right of the first slash is tested
        {"1/2-2", "Divided by ZERO error"},
        {"4/abc", "old[unchanged]"},
        // status 1 and 3
        {"1 !| 2", "0.00"},
        {"1.2.3", "0.00"},
        // status 4
        {"", "old[invalid]"},
        {"7\\0", "old[invalid]"},
        {"7%0+abc", "old[invalid]"},  // the first failure counts
        {"abc+7%0", "0.00"},
        {"(7%0", "0.00"},  // parentheses are looked at before anything is computed
    };
    for (const auto& [infix, expected] : cases) {
        EXPECT_EQ(cell(infix), expected) << infix;
        EXPECT_EQ(referenceCell(infix, {}), expected) << infix << ", by the reference";
    }
}

// Where C++ itself has no result.
TEST(ExpressionTest, OperatorsHaveAResultForAllOperands) {
    struct {
        const char* spelling;
        double a, b, result;
    } const cases[] = {
        {"%", INT_MIN, -1, 0},           {"\\", INT_MIN, -1, INT_MIN}, {"\\", 1, 1e-300, INT_MIN},
        {"<<", -1, 31, INT_MIN},         {"<<", 1, -1, INT_MIN},       {">>", INT_MIN, 63, -1},
        {"^", HUGE_VAL, 1, INT_MIN + 1},
    };
    for (const auto& [spelling, a, b, result] : cases) {
        const auto found =
            std::ranges::find(operatorTable(), std::string_view(spelling), &Operator::spelling);
        ASSERT_NE(found, operatorTable().end()) << spelling;
        double value = a;
        EXPECT_TRUE(found->apply(value, b)) << spelling;
        EXPECT_EQ(value, result) << a << spelling << b;
    }
}

// One expression for rows of every shape, those seen before and new ones, more than are kept.
TEST(ExpressionTest, EachRowIsComputedAsIfItWereTheOnlyOne) {
    const char* const cells[] = {"5",    "-5", "2.5", "-0.25", "1,000", "-1,234.5", "+3", "0",
                                 "-0.0", "",   "-",   "5-3",   "1,,0",  "-.5",      "--1"};
    for (const std::string expression : {R"( "0"*"1")", R"( "0"-"1"/"2")", R"(2-"0"+(-"1"))",
                                         R"( "0"5+"1")", R"( "0"<="1"-"2")"}) {
        const CompiledExpression compiled(expression);
        std::mt19937 random(3);
        for (int i = 0; i < 400; ++i) {
            Cells row;
            while (row.size() < 3) row.emplace_back(cells[random() % std::size(cells)]);
            std::string text = "old";
            const CellOutcome outcome = compiled.compute(reference::fetchFrom(row), text);
            EXPECT_EQ(shown(outcome, text), referenceCell(expression, row))
                << expression << " of " << row[0] << " | " << row[1] << " | " << row[2];
        }
    }
}

TEST(ExpressionTest, TakesDeepAndHugeTexts) {
    const auto times = [](std::size_t count, const std::string& text) {
        std::string all;
        for (std::size_t i = 0; i < count; ++i) all += text;
        return all;
    };
    EXPECT_EQ(cell(times(10'000, "(") + "7" + times(10'000, ")")), "7.00");
    EXPECT_EQ(cell(times(10'000, "(") + "7" + times(9'999, ")")), "0.00");
    EXPECT_EQ(cell(times(10'000, "(1+") + "\"0\"" + times(10'000, ")"), {"2"}), "10002.00");
    EXPECT_EQ(cell(times(10'000, "(1+") + "\"0\"" + times(10'000, ")"), {"2 "}), "10002.00");
    EXPECT_EQ(cell(times(200'000, "1+") + "1"), "200001.00");
    EXPECT_EQ(cell(times(200'000, "*")), "0.00");
    EXPECT_EQ(cell("1" + times(200'000, " ") + "+1"), "2.00");
    EXPECT_EQ(cell(times(200'000, "9")), "inf");
    EXPECT_EQ(cell(times(100'000, " \"0\"+") + "1", {"1.5"}), "150001.00");
}

}  // namespace
