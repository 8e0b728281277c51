#include "workbench/model/records/related_changes.h"

#include <algorithm>

#include "link/model/functionality.h"
#include "text/read_number.h"

namespace mc {

RelatedChanges::Half RelatedChanges::halfOf(Slot slot) const {
    if (m_table.text(slot, ChangeTable::CodedText::type) != kInvestorClient) return Half::none;
    const std::string_view code = m_table.text(slot, ChangeTable::CodedText::functionality);
    return code == kAddUser ? Half::user : code == kAddClient ? Half::client : Half::none;
}

std::string_view RelatedChanges::userOf(Slot slot, Half half) const {
    return half == Half::user ? m_table.entityName(slot) : m_table.linkedUser(slot);
}

Slot RelatedChanges::otherHalf(Slot slot) const {
    const Half half = halfOf(slot), other = half == Half::user ? Half::client : Half::user;
    if (half == Half::none) return kNoSlot;
    return m_byEntity.findIf({EntityKind::user, userOf(slot, half)}, [&](Slot each) {
        return halfOf(each) == other && !m_rows.selection().isSelected(each);
    });
}

QuickFilter::IsOne RelatedChanges::sameAs(Slot slot) const {
    return [this, change = m_table.read(slot)](Slot other) {
        const Entity entities[] = {
            entityOf(change.functionalityCode, change.entityName),
            linkedEntityOf(change.functionalityCode, change.type, change.linkedUser)};
        const auto isOne = [&entities](const Entity& entity) {
            return entity.kind != EntityKind::none &&
                   std::ranges::find(entities, entity) != std::end(entities);
        };
        return isOne(m_table.entity(other)) || isOne(m_table.linkedEntity(other));
    };
}

std::vector<PendingChange> RelatedChanges::aboutTheSame(const PendingChange& change) const {
    std::vector<PendingChange> found;
    for (const Slot slot :
         m_byEntity.find({entityOf(change.functionalityCode, change.entityName),
                          linkedEntityOf(change.functionalityCode, change.type, change.linkedUser)},
                         kMaxAbout))
        found.push_back(m_table.read(slot));
    std::ranges::stable_sort(found, {}, [](const PendingChange& each) {
        return std::pair(longIntegerOf(each.key), each.slot);
    });
    const auto again = std::ranges::unique(found, {}, &PendingChange::slot);
    found.erase(again.begin(), again.end());
    return found;
}

}  // namespace mc
