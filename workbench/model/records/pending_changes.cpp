#include "workbench/model/records/pending_changes.h"

#include <utility>

namespace mc {

PendingChanges::PendingChanges(RecordsView& view) : m_view(view) {
    m_rows.setCellReader([this](Slot record, ColumnId column) { return cellText(record, column); });
}

sMakeCheckStruct* PendingChanges::findRecord(std::string_view key) const {
    return m_index.find(key);
}

bool PendingChanges::selected(std::string_view key) const {
    const Entry* const found = m_index.find(key);
    const auto row = found != nullptr ? m_rows.rowOf(found->slot) : std::nullopt;
    return row && m_rows.selected(*row);
}

void PendingChanges::addRecord(std::unique_ptr<Entry> record) {
    Entry& entry = *record;
    if (!m_index.insert(entry)) return;
    if (m_free.empty()) {
        m_free.push_back(static_cast<Slot>(m_records.size()));
        m_records.emplace_back();
    }
    entry.slot = m_free.back();
    m_free.pop_back();
    m_records[entry.slot] = std::move(record);
    m_rows.insertItem(m_rows.storedCount(), entry.slot);
    m_view.rowsChanged();
}

void PendingChanges::refreshRecord(const sMakeCheckStruct& record) {
    if (!isPending(record)) return;
    m_rows.refresh(static_cast<const Entry&>(record).slot);
    m_view.rowsChanged();
}

void PendingChanges::removeRecord(std::string_view key) {
    Entry* const found = m_index.find(key);
    if (found == nullptr) return;
    m_rows.deleteRecord(found->slot);
    m_index.erase(key);
    m_free.push_back(found->slot);
    std::unique_ptr<Entry> removed = std::move(m_records[found->slot]);
    if (m_holds > 0) m_removed.push_back(std::move(removed));
    m_view.rowsChanged();
}

void PendingChanges::clearAllRecords() {
    if (m_holds > 0) std::move(m_records.begin(), m_records.end(), std::back_inserter(m_removed));
    m_records.clear();
    m_free.clear();
    m_rows.reset();
    m_index.clear();
}

std::vector<sMakeCheckStruct*> PendingChanges::selectedRecords() const {
    std::vector<sMakeCheckStruct*> records;
    for (const std::size_t row : m_rows.selectedRows())
        records.push_back(&recordOf(m_rows.slotAt(row)));
    return records;
}

}  // namespace mc
