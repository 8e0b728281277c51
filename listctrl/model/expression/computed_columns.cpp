#include "listctrl/model/expression/computed_columns.h"

#include <algorithm>

namespace mc {

struct ComputedColumns::Request {
    CellFetch fetchData;
    std::size_t depth = 0;
    std::size_t cells = 0;
};

ComputedColumns::ComputedColumns(std::size_t dataColumns, std::span<const std::string> expressions)
    : m_dataColumns(dataColumns), m_expressions(expressions.begin(), expressions.end()) {}

CellOutcome ComputedColumns::compute(std::size_t column, CellFetch fetchData,
                                     std::string& text) const {
    Request request{fetchData};
    return compute(column, request, text);
}

CellOutcome ComputedColumns::compute(std::size_t column, Request& request,
                                     std::string& text) const {
    const std::size_t deepest = std::min(columns(), kMaxDepth);
    if (column < m_dataColumns || column >= columns()) return CellOutcome::notFetched;
    if (request.depth == deepest || request.cells == kMaxCells) return CellOutcome::notFetched;
    ++request.depth;
    ++request.cells;
    std::string nested;
    const auto fetch = [&](int number) -> CellFetch::Result {
        const auto wanted = static_cast<std::size_t>(number);  // a negative one exceeds columns()
        if (wanted < m_dataColumns) return request.fetchData(number);
        nested.clear();
        if (compute(wanted, request, nested) == CellOutcome::notFetched) return std::nullopt;
        return nested;
    };
    const CellOutcome outcome = m_expressions[column - m_dataColumns].compute(fetch, text);
    --request.depth;
    return outcome;
}

}  // namespace mc
