#include "workbench/model/records/pending_changes.h"

#include "workbench/model/records/main_list.h"

namespace mc {

PendingChanges::PendingChanges(RecordsView& view) : m_view(view) {
    m_rows.setCellReader([](const void* record, int column) {
        return mainCellText(*static_cast<const Entry*>(record), column);
    });
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
    static_cast<void>(record.release());  // its row owns it now
    entry.slot = m_rows.insertItem(m_rows.storedCount(), &entry).slot;
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
    std::unique_ptr<Entry> removed(found);
    if (m_holds > 0) m_removed.push_back(std::move(removed));
    m_view.rowsChanged();
}

void PendingChanges::clearAllRecords() {
    for (std::size_t place = 0; place < size(); ++place) {
        std::unique_ptr<Entry> removed(static_cast<Entry*>(&at(place)));
        if (m_holds > 0) m_removed.push_back(std::move(removed));
    }
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
