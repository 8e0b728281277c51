#include "listctrl/model/table/row_filters.h"

#include <algorithm>
#include <utility>

namespace mc {

void RowFilters::set(ColumnId column, std::string_view text, FilterKind kind) {
    m_filters.resize(m_columns.size());
    const auto found = std::find(m_columns.begin(), m_columns.end(), column);
    const auto filter = m_filters.begin() + (found - m_columns.begin());
    if (found == m_columns.end()) {
        if (text.empty()) return;
        m_columns.push_back(column);
        m_filters.push_back({std::string(text), kind});
    } else if (text.empty()) {
        m_columns.erase(found);
        m_filters.erase(filter);
    } else {
        *filter = {std::string(text), kind};
    }
}

void RowFilters::setAll(std::vector<ColumnId> columns, std::vector<ColumnFilter> filters) {
    m_columns = std::move(columns);
    m_filters = std::move(filters);
}

ColumnFilter RowFilters::of(ColumnId column) const {
    const auto found = std::find(m_columns.begin(), m_columns.end(), column);
    const auto index = static_cast<std::size_t>(found - m_columns.begin());
    return index < m_filters.size() ? m_filters[index] : ColumnFilter{};
}

bool RowFilters::apply() {
    if (m_columns.size() != m_filters.size()) return false;
    std::vector<Active> active;
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        active.push_back(
            {m_columns[i],
             FilterPattern(m_filters[i].text, m_exactOnce || m_matchExactly, m_filters[i].kind)});
    m_active = std::move(active);
    m_exactOnce = false;
    return true;
}

}  // namespace mc
