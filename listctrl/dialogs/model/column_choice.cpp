#include "listctrl/dialogs/model/column_choice.h"

#include <algorithm>

namespace mc {

ColumnChoice::ColumnChoice(ColumnModel columns, std::optional<ColumnSort> sort)
    : m_columns(std::move(columns)), m_layout{m_columns.shown(), false, sort} {
    findAvailable();
}

void ColumnChoice::findAvailable() {
    m_available.clear();
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (std::ranges::find(m_layout.shown, toColumnId(i)) == m_layout.shown.end())
            m_available.push_back(toColumnId(i));
}

Rows ColumnChoice::add(const Rows& availableRows) {
    Rows rows;
    for (const std::size_t row : availableRows) {
        rows.push_back(m_layout.shown.size());
        m_layout.shown.push_back(m_available[row]);
    }
    findAvailable();
    return rows;
}

std::vector<ColumnId> ColumnChoice::remove(const Rows& shownRows) {
    std::vector<ColumnId> kept, hidden;
    for (const std::size_t row : shownRows) {
        const ColumnId id = m_layout.shown[row];
        const bool last = hidden.size() + 1 == m_layout.shown.size();
        (m_columns.isMandatory(id) || last ? kept : hidden).push_back(id);
    }
    for (const ColumnId id : hidden) {
        std::erase(m_layout.shown, id);
        setAscending(id, std::nullopt);
    }
    findAvailable();
    return kept;
}

Rows ColumnChoice::move(const Rows& shownRows, std::size_t before) {
    return moveRows(m_layout.shown, shownRows, before);
}

Rows ColumnChoice::moveUp(const Rows& shownRows) {
    if (shownRows.empty()) return {};
    return move(shownRows, std::max<std::size_t>(shownRows.front(), 1) - 1);
}

Rows ColumnChoice::moveDown(const Rows& shownRows) {
    if (shownRows.empty()) return {};
    return move(shownRows, shownRows.back() + 2);
}

void ColumnChoice::restoreDefault() {
    m_columns.reset();
    m_layout = {m_columns.shown(), true, std::nullopt};
    findAvailable();
}

std::optional<bool> ColumnChoice::ascending(ColumnId id) const {
    if (!m_layout.sort || m_layout.sort->column != id) return std::nullopt;
    return m_layout.sort->ascending;
}

void ColumnChoice::setAscending(ColumnId id, std::optional<bool> ascending) {
    if (ascending)
        m_layout.sort = ColumnSort{id, *ascending};
    else if (this->ascending(id))
        m_layout.sort.reset();
}

}  // namespace mc
