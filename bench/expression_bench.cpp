// The text of a computed cell: ours against a general formula library with strtod and snprintf
// around it, and against the reference of the tests. Each benchmark computes a column of 100,000
// rows with all three in turn and reports nanoseconds per cell and the ratios (ours / other).
#include <benchmark/benchmark.h>
#include <muParser.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "listctrl/model/expression/expression.h"
#include "tests/unit/reference_expression.h"

using namespace mc;

namespace {

constexpr std::size_t kRows = 100'000;

using Row = std::array<std::string, 4>;  // price, quantity, price, charge

std::vector<Row> makeRows(bool negativePrices) {
    std::mt19937 random(5);
    std::vector<Row> rows(kRows);
    const auto price = [&] {
        return (negativePrices ? "-" : "") + std::to_string(100 + random() % 90'000) + "." +
               std::to_string(10 + random() % 90);
    };
    for (Row& row : rows)
        row = {price(), std::to_string(1 + random() % 5000), price(),
               "0." + std::to_string(100 + random() % 900)};
    return rows;
}

auto cellsOf(const Row& row) {
    return
        [&row](int column) -> CellFetch::Result { return row[static_cast<std::size_t>(column)]; };
}

// The formula library, its variables a to d filled from the texts of the columns in use.
class Formula {
public:
    Formula(const char* formula, std::size_t columns) : m_columns(columns) {
        for (std::size_t i = 0; i < columns; ++i)
            m_parser.DefineVar(std::string(1, static_cast<char>('a' + i)), &m_values[i]);
        m_parser.SetExpr(formula);
    }

    void compute(const Row& row, std::string& text) {
        for (std::size_t i = 0; i < m_columns; ++i)
            m_values[i] = std::strtod(row[i].c_str(), nullptr);
        char room[64];
        const int size = std::snprintf(room, sizeof room, "%.2f", m_parser.Eval());
        text.assign(room, static_cast<std::size_t>(size));
    }

private:
    mu::Parser m_parser;
    std::array<double, 4> m_values{};
    std::size_t m_columns;
};

// In processor time, so that neighbours on the machine don't count.
template <class Compute>
double nanosecondsPerCell(const std::vector<Row>& rows, std::string& text, Compute compute) {
    const std::clock_t start = std::clock();
    for (const Row& row : rows) {
        compute(row);
        benchmark::DoNotOptimize(text.data());
    }
    return static_cast<double>(std::clock() - start) * (1e9 / CLOCKS_PER_SEC) /
           static_cast<double>(rows.size());
}

void computedCell(benchmark::State& state, const char* expression, const char* formula,
                  std::size_t columns, bool negativePrices = false) {
    const auto rows = makeRows(negativePrices);
    const CompiledExpression compiled(expression);
    const std::string plain(expression);
    Formula library(formula, columns);
    std::string text;
    double ours = 0, peer = 0, reference = 0;
    for (auto _ : state) {
        ours += nanosecondsPerCell(rows, text,
                                   [&](const Row& row) { compiled.compute(cellsOf(row), text); });
        peer += nanosecondsPerCell(rows, text, [&](const Row& row) { library.compute(row, text); });
        reference += nanosecondsPerCell(
            rows, text, [&](const Row& row) { reference::computeCell(plain, cellsOf(row), text); });
    }
    const auto passes = static_cast<double>(state.iterations());
    state.counters["ours_ns"] = ours / passes;
    state.counters["peer_ns"] = peer / passes;
    state.counters["reference_ns"] = reference / passes;
    state.counters["to_peer"] = ours / peer;
    state.counters["to_reference"] = ours / reference;
}

BENCHMARK_CAPTURE(computedCell, product, R"( "0"*"1")", "a*b", 2);
BENCHMARK_CAPTURE(computedCell, quotient, R"( "0"/"1")", "a/b", 2);
BENCHMARK_CAPTURE(computedCell, four_columns, R"( ("0"-"2")*"1"+"3")", "(a-c)*b+d", 4);
// Negative cells are read as text.
BENCHMARK_CAPTURE(computedCell, negative, R"( "0"*"1")", "a*b", 2, true);

}  // namespace

BENCHMARK_MAIN();
