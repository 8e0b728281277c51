// The pending changes: what they say, indexed by key, with one row each in the main list, in order
// of arrival.
//
// A call that runs out of memory throws, and did nothing; what removes changes does not fail.
//
// Calls cost the logarithm of the number of changes at most, where nothing else is said. One
// thread.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "listctrl/model/table/record_store.h"
#include "workbench/model/records/change_states.h"
#include "workbench/model/records/change_table.h"
#include "workbench/model/records/free_slots.h"
#include "workbench/model/records/key_index.h"
#include "workbench/model/records/quick_filter.h"
#include "workbench/model/records/records_view.h"
#include "workbench/model/records/related_changes.h"

namespace mc {

class PendingChanges {
public:
    // `view` is notified of every row that comes and goes; it must outlive the object.
    explicit PendingChanges(RecordsView& view);
    PendingChanges(const PendingChanges&) = delete;

    std::size_t size() const { return m_rows.stored().size(); }

    // The change at `position` in order of arrival, below size().
    PendingChange at(std::size_t position) const {
        return m_table.read(m_rows.stored().at(position));
    }

    // What the changes say, and which of them belong together.
    const ChangeTable& table() const { return m_table; }
    const RelatedChanges& related() const { return m_related; }

    // The rows of the main list: which changes show, in which order, and which are selected.
    RecordStore& rows() { return m_rows; }
    const RecordStore& rows() const { return m_rows; }

    // What was done with the changes, by slot.
    ChangeStates& states() { return m_states; }
    const ChangeStates& states() const { return m_states; }

    QuickFilter& quickFilter() { return m_quickFilter; }
    const QuickFilter& quickFilter() const { return m_quickFilter; }

    // The change in a slot, with the texts that it has now; none when no pending one has it. While
    // there is a Hold, that is the change that had the slot when the Hold began.
    std::optional<PendingChange> recordIn(Slot slot) const;
    bool isPending(Slot slot) const { return m_rows.stored().contains(slot); }

    // The slots of the changes whose rows are selected, in row order: one pass over the rows.
    std::vector<Slot> selectedRecords() const { return m_rows.selection().inOrder(); }

    // The change under `key`.
    std::optional<PendingChange> findRecord(std::string_view key) const;

    // Its slot alone, or kNoSlot. Its texts are about to be read.
    Slot find(std::string_view key) const;

    // Whether the row of the change under `key` is selected.
    bool selected(std::string_view key) const;

    // Indexes the change under its key and appends its row; a key that is indexed already adds
    // nothing.
    using Origin = ChangeStates::Origin;
    void addRecord(std::string_view key, const ChangeTexts& texts,
                   Origin origin = Origin::published);

    // Removes the change under the key and its row. Changes nothing when the key is not indexed.
    void removeRecord(std::string_view key);

    // Keeps new texts of the change that was found in a slot; its row stays where it is and nobody
    // is notified. False, and nothing happens, when it is not pending any more.
    bool rewriteRecord(Slot slot, const ChangeTexts& texts, Origin origin = Origin::published);

    // The same, and its row is filtered and sorted again.
    void refreshRecord(Slot slot, const ChangeTexts& texts, Origin origin = Origin::published);

    // Removes every change without notifying the view of single rows.
    void clearAllRecords();

    // While one lives, no slot is given to another change. A decision holds changes across message
    // boxes, behind which publications come in: one that goes meanwhile is then not pending, even
    // when a new one of its key comes.
    class Hold {
    public:
        explicit Hold(PendingChanges& changes) : m_slots(changes.m_slots) { m_slots.hold(); }
        ~Hold() { m_slots.release(); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        FreeSlots& m_slots;
    };

private:
    struct KeyOf {
        const ChangeTable& table;
        std::string_view operator()(Slot slot) const { return table.key(slot); }
    };
    bool list(Slot slot, std::string_view key, const ChangeTexts& texts, Origin origin);
    void unlist(Slot slot, std::string_view key) noexcept;

    RecordsView& m_view;
    ChangeTable m_table;
    KeyIndex<KeyOf> m_index{KeyOf{m_table}};
    RecordStore m_rows;
    RelatedChanges m_related{m_table, m_rows};
    ChangeStates m_states;
    QuickFilter m_quickFilter;
    FreeSlots m_slots;
};

}  // namespace mc
