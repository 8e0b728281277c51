// Which pending changes belong together: those about the same entity, and the two halves of an
// investor's pair, a new user and a new client that are accepted together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "listctrl/model/table/record_store.h"
#include "workbench/model/records/change_table.h"
#include "workbench/model/records/entity_index.h"
#include "workbench/model/records/quick_filter.h"

namespace mc {

class RelatedChanges {
public:
    // Both must outlive the object. Of a change that comes, goes or is renamed (ChangeTable), it is
    // notified: it goes before its texts change, and comes again after.
    RelatedChanges(const ChangeTable& table, const RecordStore& rows)
        : m_table(table), m_rows(rows), m_byEntity({table, rows}) {}
    void came(Slot slot) { m_byEntity.insert(slot); }
    void goes(Slot slot) { m_byEntity.erase(slot); }
    void clear() { m_byEntity.clear(); }

    // Which half of an investor's new user and client a change is, and of such a half the id of
    // that user, until the next change comes or changes. Of a slot that has a change, or had while
    // there is a Hold.
    enum class Half : std::uint8_t { none, user, client };
    Half halfOf(Slot slot) const;
    std::string_view userOf(Slot slot, Half half) const;

    // A pending change that is the other half of the pair and not selected; kNoSlot when there is
    // none. Costs a look at the changes that are about the same user.
    Slot otherHalf(Slot slot) const;

    // The pending changes about the same entity as `change`, itself included if it is pending, in
    // the order of their keys; kMaxAbout at most. Costs a look at each.
    static constexpr std::size_t kMaxAbout = 64;
    std::vector<PendingChange> aboutTheSame(const PendingChange& change) const;

    // Which changes are about the same as the one in the slot, itself included. Holds a copy, as
    // the change may be gone when it is asked.
    QuickFilter::IsOne sameAs(Slot slot) const;

private:
    struct Entities {
        const ChangeTable& table;
        const RecordStore& rows;
        Entity own(Slot slot) const { return table.entity(slot); }
        Entity linked(Slot slot) const { return table.linkedEntity(slot); }
        Slot end() const { return table.end(); }
        bool pending(Slot slot) const { return rows.stored().contains(slot); }
    };

    const ChangeTable& m_table;
    const RecordStore& m_rows;
    mutable EntityIndex<Entities> m_byEntity;  // a question makes it complete
};

}  // namespace mc
