#include "listctrl/model/list_content.h"

#include <utility>

namespace mc {

ListContent::ListContent(RecordStore& store, std::function<void()> invalid)
    : m_store(store), m_order(store, m_columns), m_invalid(std::move(invalid)) {}

ListContent::~ListContent() {
    if (m_reader) m_store.setCellReader({});
}

void ListContent::install(std::span<const sVoskColInfo> columns, int dpi, DataReader reader,
                          std::span<const ColumnId> mandatory) {
    m_columns.install(columns, dpi);
    m_columns.setMandatory(mandatory);
    m_reader = std::move(reader);
    m_store.setCellReader([this](const void* record, int column) { return read(record, column); });
}

void ListContent::columnsChanged() {
    compileExpressions();
    m_order.columnsChanged();
}

void ListContent::columnRemoved(ColumnId removed) {
    m_store.columnChanged(static_cast<int>(m_columns.size()));  // no column has the last id now
    m_order.columnRemoved(removed);
}

void ListContent::compileExpressions() {
    std::vector<std::string> expressions;
    for (std::size_t i = m_columns.dataSize(); i < m_columns.size(); ++i) {
        expressions.push_back(m_columns.descriptor(toColumnId(i)).expression);
        m_store.columnChanged(static_cast<int>(i));
    }
    m_computedColumns.emplace(m_columns.dataSize(), expressions);
    m_reportedInvalid.assign(m_columns.size(), false);
}

std::string_view ListContent::read(const void* record, int column) {
    if (!m_reader || column < 0) return {};
    const auto index = static_cast<std::size_t>(column);
    return index < m_columns.dataSize() ? m_reader(record, column) : compute(record, index);
}

// A cell without a value stays empty. An expression that refers to a deleted column is invalid too.
std::string_view ListContent::compute(const void* record, std::size_t column) {
    m_computed.clear();
    if (!m_computedColumns || column >= m_computedColumns->columns()) return {};
    const auto fetch = [&](int data) { return CellFetch::Result(m_reader(record, data)); };
    const CellOutcome outcome = m_computedColumns->compute(column, fetch, m_computed);
    const bool invalid =
        outcome == CellOutcome::invalid ||
        (outcome == CellOutcome::notFetched && !m_columns.isValid(toColumnId(column)));
    if (invalid && !m_reportedInvalid[column]) {
        m_reportedInvalid[column] = true;
        m_invalid();
    }
    return m_computed;
}

}  // namespace mc
