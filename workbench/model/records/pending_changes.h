// The pending changes: a table of their texts, indexed by key, with one row each in the main list,
// in order of arrival.
//
// Texts that differ from change to change are kept with the change; those with few different values
// (maker, branch, broker, kind ...) are coded once, when they come, in columns that the list's
// filters and sorts work on. So a change takes about 150 bytes, and the first filter of such a
// column reads no change. What is read out is a copy: it stays as it was, whatever comes meanwhile.
//
// A call that runs out of memory throws, and did nothing; what removes changes does not fail.
//
// Calls cost the logarithm of the number of changes at most, where nothing else is said. One
// thread.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <optional>
#include <string_view>
#include <vector>

#include "link/model/pending_record.h"
#include "listctrl/model/table/record_store.h"
#include "workbench/model/records/change_states.h"
#include "workbench/model/records/entity_index.h"
#include "workbench/model/records/key_index.h"
#include "workbench/model/records/quick_filter.h"
#include "workbench/model/records/records_view.h"
#include "workbench/model/records/short_text.h"

namespace mc {

// A change as it was read out. Its slot tells it from a later change of the same key: see Hold.
struct PendingChange : sMakeCheckStruct {
    Slot slot = kNoSlot;
};

// What a publication says of a change. A text that it does not give stays as it is, and is empty
// for a new change. The texts are the caller's.
struct ChangeTexts {
    using Text = std::optional<std::string_view>;
    Text makerId{}, entityName{}, functionalityCode{}, brokerId{}, branchId{}, linkedUser{}, type{};
};

class PendingChanges {
public:
    // `view` is notified of every row that comes and goes; it must outlive the object.
    explicit PendingChanges(RecordsView& view);
    PendingChanges(const PendingChanges&) = delete;
    PendingChanges& operator=(const PendingChanges&) = delete;

    std::size_t size() const { return m_rows.stored().size(); }

    // The change at `position` in order of arrival, below size().
    PendingChange at(std::size_t position) const { return read(m_rows.stored().at(position)); }

    // The rows of the main list: which changes show, in which order, and which are selected.
    RecordStore& rows() { return m_rows; }
    const RecordStore& rows() const { return m_rows; }

    // What was done with the changes, by slot.
    ChangeStates& states() { return m_states; }
    const ChangeStates& states() const { return m_states; }

    QuickFilter& quickFilter() { return m_quickFilter; }
    const QuickFilter& quickFilter() const { return m_quickFilter; }

    // The change in a row of the main list; none beyond the end.
    std::optional<PendingChange> recordAt(std::size_t row) const;

    // The change in a slot; none when no pending one has it.
    std::optional<PendingChange> recordIn(Slot slot) const;

    // The slots of the changes whose rows are selected, in row order: one pass over the rows.
    std::vector<Slot> selectedRecords() const { return m_rows.selection().inOrder(); }

    // Which half of an investor's new user and client a change is, and of such a half the id of
    // that user, until the next change comes or changes. Of a slot that it has, or had while there
    // is a Hold.
    enum class Half : std::uint8_t { none, user, client };
    Half halfOf(Slot slot) const;
    std::string_view userOf(Slot slot, Half half) const;

    // A pending change that is the other half of the pair and not selected; kNoSlot when there is
    // none. Costs a look at the changes that are about the same user.
    Slot otherHalf(Slot slot) const;

    // The text of a cell of the main list, cut to kCellBytes; empty where there is no column. Lives
    // until the next change comes or changes.
    std::string_view cellText(Slot change, ColumnId column) const;

    // The whole text of a cell, not cut. Lives as long.
    std::string_view wholeText(Slot change, ColumnId column) const;

    // The pending changes about the same entity as `change`, itself included if it is pending, in
    // the order of their keys; kMaxAbout at most. Costs a look at each.
    static constexpr std::size_t kMaxAbout = 64;
    std::vector<PendingChange> aboutTheSame(const PendingChange& change) const;

    // The change under `key`.
    std::optional<PendingChange> findRecord(std::string_view key) const;

    // Its slot alone, or kNoSlot; and one of the texts of a slot that it had, empty for kNoSlot,
    // until the next change comes or changes.
    Slot find(std::string_view key) const;
    enum class CodedText { maker, branch, broker, functionality, type };
    std::string_view text(Slot slot, CodedText which) const;

    // Whether it is still pending, though perhaps with other texts. By slot: while there is a Hold.
    bool isPending(const PendingChange& change) const;
    bool isPending(Slot slot) const { return m_rows.stored().contains(slot); }

    // The same change as it is now; none when it is no longer pending.
    std::optional<PendingChange> current(const PendingChange& change) const;

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
    bool rewriteRecord(Slot slot, const ChangeTexts& texts);

    // The same, and its row is filtered and sorted again.
    void refreshRecord(Slot slot, const ChangeTexts& texts);

    // Removes every change without notifying the view of single rows.
    void clearAllRecords();

    // While one lives, no slot is given to another change. A decision holds changes across message
    // boxes, behind which publications come in: one that goes meanwhile is then not pending, even
    // when a new one of its key comes.
    class Hold {
    public:
        explicit Hold(PendingChanges& changes) : m_changes(changes) { ++changes.m_holds; }
        ~Hold() {
            if (--m_changes.m_holds == 0) m_changes.m_gone = 0;
        }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        PendingChanges& m_changes;
    };

private:
    struct OwnTexts {
        ShortText key, entityName, linkedUser;
    };
    struct CodedField;
    static const CodedField kCodedFields[];
    static constexpr std::size_t kCodedCount = 5;

    PendingChange read(Slot slot) const;
    bool write(Slot slot, const ChangeTexts& texts);
    bool renames(Slot slot, const ChangeTexts& texts) const;
    Slot takeSlot();
    void giveBack(Slot slot, bool mayBeHeld) noexcept;
    bool list(Slot slot, std::string_view key, const ChangeTexts& texts, Origin origin);
    void unlist(Slot slot, std::string_view key) noexcept;
    QuickFilter::IsOne sameAs(Slot slot) const;

    RecordsView& m_view;
    std::deque<OwnTexts> m_own;                    // by slot
    std::array<ColumnTexts, kCodedCount> m_coded;  // by slot; in the order of CodedText
    ColumnTexts m_kinds;                           // by slot: the names of the kinds of change
    struct KeyOf {
        const std::deque<OwnTexts>& own;
        std::string_view operator()(Slot slot) const { return own[slot].key.view(); }
    };
    KeyIndex<KeyOf> m_index{KeyOf{m_own}};
    struct EntitiesOf {
        const PendingChanges& changes;
        Entity own(Slot slot) const;
        Entity linked(Slot slot) const;
        Slot end() const { return static_cast<Slot>(changes.m_own.size()); }
        bool pending(Slot slot) const { return changes.isPending(slot); }
    };
    mutable EntityIndex<EntitiesOf> m_byEntity{EntitiesOf{*this}};  // a question makes it complete
    RecordStore m_rows;
    ChangeStates m_states;
    QuickFilter m_quickFilter;
    std::vector<Slot> m_free;  // slots without a change, last those that went in a Hold
    std::size_t m_gone = 0;    // how many of them went while there is a Hold
    int m_holds = 0;
};

}  // namespace mc
