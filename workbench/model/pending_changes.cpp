#include "workbench/model/pending_changes.h"

sMakeCheckStruct* PendingChanges::findRecord(std::string_view key) const {
    return m_index.find(key);
}

void PendingChanges::addRecord(std::unique_ptr<Entry> record) {
    Entry& entry = *record;
    if (!m_index.insert(entry)) return;
    m_rows.append(entry);
    static_cast<void>(record.release());  // the index owns it now
    m_view.rowAppended();
}

void PendingChanges::removeRecord(std::string_view key) {
    Entry* const found = m_index.find(key);
    if (found == nullptr) return;
    const std::size_t row = m_rows.remove(*found);
    m_index.erase(key);
    std::unique_ptr<Entry> removed(found);
    m_view.rowRemoved(row);
    if (m_holds > 0) m_removed.push_back(std::move(removed));
}

void PendingChanges::clearAllRecords() {
    m_rows.clear();
    m_index.forEach([](Entry& record) { delete &record; });
    m_index.clear();
}
