#include "listctrl/model/list_content.h"

#include <utility>

namespace mc {

ListContent::ListContent(RecordStore& store, std::function<void()> invalid)
    : m_store(store), m_order(store, m_columns), m_invalid(std::move(invalid)) {}

ListContent::~ListContent() {
    if (m_reader) m_store.texts().setReader({});
}

void ListContent::install(std::span<const sVoskColInfo> columns, CellReader reader,
                          std::span<const ColumnId> mandatory) {
    m_columns.install(columns);
    m_columns.setMandatory(mandatory);
    m_reader = std::move(reader);
    m_store.texts().setReader(
        [this](Slot record, ColumnId column) { return read(record, column); });
}

void ListContent::columnsChanged(const LongWork& work) {
    compileExpressions();
    m_order.columnsChanged(work);
}

void ListContent::columnRemoved(ColumnId removed) {
    m_store.texts().drop(toColumnId(m_columns.size()));  // no column has the last id now
    m_order.columnRemoved(removed);
}

void ListContent::compileExpressions() {
    std::vector<std::string> expressions;
    for (std::size_t i = m_columns.dataSize(); i < m_columns.size(); ++i) {
        expressions.push_back(m_columns.descriptor(toColumnId(i)).expression);
        m_store.texts().drop(toColumnId(i));
    }
    m_computedColumns.emplace(m_columns.dataSize(), expressions);
    m_reportedInvalid.assign(m_columns.size(), false);
}

std::string_view ListContent::wholeText(std::size_t row, ColumnId column) const {
    const bool hasWhole = m_wholeReader && toIndex(column) < m_columns.dataSize();
    return hasWhole ? m_wholeReader(m_store.slotAt(row), column) : text(row, column);
}

std::string_view ListContent::read(Slot record, ColumnId column) {
    if (!m_reader) return {};
    const bool isData = toIndex(column) < m_columns.dataSize();
    return isData ? m_reader(record, column) : compute(record, column);
}

// A cell without a value stays empty. An expression that refers to a deleted column is invalid too.
std::string_view ListContent::compute(Slot record, ColumnId column) {
    m_computed.clear();
    const std::size_t index = toIndex(column);
    if (!m_computedColumns || index >= m_computedColumns->columns()) return {};
    const auto fetch = [&](int data) {
        return CellFetch::Result(m_reader(record, ColumnId{data}));
    };
    const CellOutcome outcome = m_computedColumns->compute(index, fetch, m_computed);
    const bool invalid = outcome == CellOutcome::invalid ||
                         (outcome == CellOutcome::notFetched && !m_columns.isValid(column));
    if (invalid && !m_reportedInvalid[index]) {
        m_reportedInvalid[index] = true;
        m_invalid();
    }
    return m_computed;
}

}  // namespace mc
