#include "workbench/model/pending_changes.h"

sMakeCheckStruct* PendingChanges::findRecord(std::string_view key) const {
    const auto found = m_index.find(key);
    return found != m_index.end() ? found->second.get() : nullptr;
}

void PendingChanges::addRecord(std::unique_ptr<Entry> record) {
    Entry& entry = *record;
    if (!m_index.try_emplace(entry.key, std::move(record)).second) return;
    m_rows.append(entry);
    m_view.rowAppended();
}

void PendingChanges::removeRecord(std::string_view key) {
    const auto found = m_index.find(key);
    if (found == m_index.end()) return;
    const std::size_t row = m_rows.remove(*found->second);
    // The index's key is the record's text: the entry leaves the index before the record goes.
    auto node = m_index.extract(found);
    m_view.rowRemoved(row);
    if (m_holds > 0) m_removed.push_back(std::move(node.mapped()));
}

void PendingChanges::clearAllRecords() {
    m_rows.clear();
    m_index.clear();
}
