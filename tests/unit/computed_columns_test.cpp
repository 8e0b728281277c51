#include "listctrl/model/expression/computed_columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace mc;

namespace {

// Two data columns, "3" and "4"; the computed ones begin with column 2.
struct CellsRow {
    explicit CellsRow(const std::vector<std::string>& expressions) : columns(2, expressions) {}

    std::string cell(std::size_t column) {
        std::string text = "old";
        const auto data = [&](int number) -> CellFetch::Result {
            ++fetched;
            return number == 0 ? "3" : "4";
        };
        outcome = columns.compute(column, data, text);
        return text;
    }

    ComputedColumns columns;
    CellOutcome outcome = CellOutcome::produced;
    std::size_t fetched = 0;
};

TEST(ComputedColumnsTest, ComputedColumnsReferToOthers) {
    CellsRow row({R"( "0"*"1")", R"( "2"+"2")", R"( "3"/"0")"});
    EXPECT_EQ(row.columns.columns(), 5U);
    EXPECT_EQ(row.cell(2), "12.00");
    EXPECT_EQ(row.cell(3), "24.00");
    EXPECT_EQ(row.cell(4), "8.00");

    // Cells that are read as text, each fetched through the same buffer.
    CellsRow texts({R"(0-"0")", R"( "1"*2)", R"( "3"*("2"))", "2 3", R"( "3"+"5")"});
    EXPECT_EQ(texts.cell(4), "-24.00");
    EXPECT_EQ(texts.cell(6), "8.00");
}

TEST(ComputedColumnsTest, ColumnsThatReferToThemselvesKeepTheirText) {
    CellsRow row({R"( "2"+"2")", R"( "4"+"0")", R"( "0"+"3")", R"( "2"+1)"});
    for (std::size_t column = 2; column < 6; ++column) {
        EXPECT_EQ(row.cell(column), "old") << column;
        EXPECT_EQ(row.outcome, CellOutcome::notFetched) << column;
    }
    EXPECT_LT(row.fetched, 10U);
    EXPECT_EQ(CellsRow({"1+1"}).cell(2), "2.00");
}

// Each column asks for the one before it, once or twice.
std::vector<std::string> chain(std::size_t length, bool twice) {
    std::vector<std::string> expressions = {R"( "0"+0)"};
    for (std::size_t i = 1; i < length; ++i) {
        const std::string before = '"' + std::to_string(i + 1) + '"';
        expressions.push_back(" " + before + (twice ? "+" + before : "+1"));
    }
    return expressions;
}

TEST(ComputedColumnsTest, ChainsAreBoundedInDepthAndInCells) {
    const std::size_t deepest = ComputedColumns::kMaxDepth;
    CellsRow steps(chain(deepest + 1, false));
    EXPECT_EQ(steps.cell(deepest + 1), "102.00");
    EXPECT_EQ(steps.cell(deepest + 2), "old");

    CellsRow doubled(chain(60, true));
    EXPECT_EQ(doubled.cell(2 + 12), "12288.00");
    EXPECT_EQ(doubled.cell(2 + 59), "old");
    EXPECT_EQ(doubled.outcome, CellOutcome::notFetched);
    EXPECT_LT(doubled.fetched, 2 * ComputedColumns::kMaxCells);
}

}  // namespace
