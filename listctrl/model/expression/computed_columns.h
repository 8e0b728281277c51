// The user-defined columns of a list, behind its data columns.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "listctrl/model/expression/expression.h"

namespace mc {

// Computed columns may refer to each other, and by mistake to themselves. References nest no deeper
// than there are columns (and never deeper than kMaxDepth), and one cell asks for kMaxCells
// computed cells at most; what is beyond cannot be fetched, and the cell that was asked for keeps
// its text.
class ComputedColumns {
public:
    static constexpr std::size_t kMaxDepth = 100;
    static constexpr std::size_t kMaxCells = 10'000;

    // The columns from `dataColumns` on have these expressions.
    ComputedColumns(std::size_t dataColumns, std::span<const std::string> expressions);

    std::size_t dataColumns() const { return m_dataColumns; }
    std::size_t columns() const { return m_dataColumns + m_expressions.size(); }

    // Computes the cell of `column` for the row that `fetchData` reads the data columns of. It is
    // not asked for columns that do not exist. A computed cell that has no text is fetched as an
    // empty one.
    CellOutcome compute(std::size_t column, CellFetch fetchData, std::string& text) const;

private:
    struct Request;
    CellOutcome compute(std::size_t column, Request& request, std::string& text) const;

    std::size_t m_dataColumns;
    std::vector<CompiledExpression> m_expressions;
};

}  // namespace mc
