#include "listctrl/model/list_order.h"

namespace mc {
namespace {

std::optional<ColumnSort> afterRemoval(const std::optional<ColumnSort>& sort, ColumnId removed) {
    const auto column = sort ? idAfterRemoval(sort->column, removed) : std::nullopt;
    return column ? std::optional(ColumnSort{*column, sort->ascending}) : std::nullopt;
}

}  // namespace

bool ListOrder::sort(ColumnSort sort, const LongWork& work) {
    if (!m_columns.positionOf(sort.column)) return true;
    const auto type = static_cast<int>(m_columns.descriptor(sort.column).type);
    const SortOrder order{sort.column, comparisonOf(type), sort.ascending ? -1 : 1};
    if (m_store.sort(order, work) == RecordStore::Outcome::ended) return false;
    m_current = sort;
    return true;
}

bool ListOrder::captionClicked(ColumnId column, const LongWork& work) {
    const bool again = m_current && m_current->column == column;
    return sort({column, !again || !m_current->ascending}, work);
}

void ListOrder::setStandard(std::optional<ColumnSort> sort) {
    if (m_standard && !sort) end();
    m_standard = sort;
    if (m_standard) m_current = m_standard;
}

void ListOrder::columnsChanged(const LongWork& work) {
    if (m_standard && !m_columns.positionOf(m_standard->column)) m_standard.reset();
    if (!m_current) return;
    if (m_columns.positionOf(m_current->column))
        sort(*m_current, work);
    else
        end();
}

void ListOrder::columnRemoved(ColumnId removed) {
    if (const auto kept = afterRemoval(m_current, removed))
        m_current = kept;
    else
        end();
    m_standard = afterRemoval(m_standard, removed);
}

void ListOrder::end() {
    if (!m_current) return;
    m_current.reset();
    m_store.unsort();
}

}  // namespace mc
