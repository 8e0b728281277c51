// The records of all pending changes: owned here, indexed by key, listed in the store of the main
// list in order of arrival.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "link/model/pending_record.h"
#include "listctrl/model/table/record_store.h"
#include "workbench/model/records/key_index.h"
#include "workbench/model/records/main_list.h"

namespace mc {

// Told of the rows that come, change and go. Implemented by the view of the workbench.
class RecordsView {
public:
    virtual void rowsChanged() = 0;

protected:
    ~RecordsView() = default;
};

class PendingChanges {
public:
    // One record and its place among the rows.
    struct Entry : sMakeCheckStruct {
        Slot slot = kNoSlot;
    };

    // `view` is told of every row that comes and goes; it must outlive the object.
    explicit PendingChanges(RecordsView& view);
    ~PendingChanges() { clearAllRecords(); }
    PendingChanges(const PendingChanges&) = delete;
    PendingChanges& operator=(const PendingChanges&) = delete;

    std::size_t size() const { return m_rows.storedCount(); }

    // The record that arrived as number `place` of those that are left; `place` is below size().
    sMakeCheckStruct& at(std::size_t place) const { return recordOf(m_rows.storedAt(place)); }

    // The rows of the main list: which records show, in which order, and which are selected.
    RecordStore& rows() { return m_rows; }
    const RecordStore& rows() const { return m_rows; }

    // The records whose rows are selected, in row order.
    std::vector<sMakeCheckStruct*> selectedRecords() const;

    // The record under `key`, or null.
    sMakeCheckStruct* findRecord(std::string_view key) const;

    bool isPending(const sMakeCheckStruct& record) const {
        return findRecord(record.key) == &record;
    }

    // Whether the row of the record under `key` is selected.
    bool selected(std::string_view key) const;

    // The text of a cell of the main list.
    std::string_view cellText(Slot record, ColumnId column) const {
        return mainCellText(recordOf(record), column);
    }

    // The record in a row of the main list, or null.
    sMakeCheckStruct* recordAt(std::size_t row) const {
        const Slot slot = m_rows.slotAt(row);
        return slot != kNoSlot ? &recordOf(slot) : nullptr;
    }

    // Indexes the record under its key and appends its row; a key that is indexed already adds
    // nothing.
    void addRecord(std::unique_ptr<Entry> record);

    // Removes the key's row, destroys the record and removes the key from the index. Changes
    // nothing when the key is not indexed.
    void removeRecord(std::string_view key);

    // The record's texts changed. Nothing happens when it is not pending any more.
    void refreshRecord(const sMakeCheckStruct& record);

    // Removes every record without telling the view of single rows.
    void clearAllRecords();

    // While one lives, records that are removed stay readable, though they are neither indexed nor
    // listed any more: a decision holds pointers to records across message boxes, behind which
    // publications come in.
    class Hold {
    public:
        explicit Hold(PendingChanges& changes) : m_changes(changes) { ++changes.m_holds; }
        ~Hold() {
            if (--m_changes.m_holds == 0) m_changes.m_removed.clear();
        }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

        // Whether `record` is still pending.
        bool pending(const sMakeCheckStruct& record) const { return m_changes.isPending(record); }

    private:
        PendingChanges& m_changes;
    };

private:
    sMakeCheckStruct& recordOf(Slot slot) const { return *m_records[slot]; }

    RecordsView& m_view;
    KeyIndex<Entry> m_index;
    RecordStore m_rows;
    std::vector<std::unique_ptr<Entry>> m_records;  // by slot
    std::vector<Slot> m_free;                       // slots without a record
    int m_holds = 0;
    std::vector<std::unique_ptr<Entry>> m_removed;  // while there is a Hold
};

}  // namespace mc
