#include "listctrl/model/table/passing_records.h"

#include <algorithm>

namespace mc {

bool PassingRecords::passes(Slot slot) const {
    const auto& active = m_filters.active();
    return (!m_judge || m_judge(slot)) &&
           std::all_of(active.begin(), active.end(),
                       [&](const RowFilters::Active& filter) { return passes(slot, filter); });
}

bool PassingRecords::passes(Slot slot, const RowFilters::Active& filter) const {
    return filter.pattern.matches(m_texts.text(slot, filter.column));
}

std::vector<Slot>& PassingRecords::all(const LongWork& work, std::optional<ColumnId> unfiltered) {
    std::vector<Slot>& slots = m_passing;
    m_stored.copyTo(slots);
    for (const RowFilters::Active& filter : m_filters.active()) {
        if (filter.pattern.matchesEverything() || filter.column == unfiltered) continue;
        // A few that are left are tried one by one rather than all texts of the column; more of
        // them when those would have to be read first.
        const std::size_t share = m_texts.keeps(filter.column) ? 512 : 16;
        if (slots.size() < m_stored.size() / share)
            std::erase_if(slots, [&](Slot slot) {
                work.did();
                return !passes(slot, filter);
            });
        else
            m_texts.column(filter.column, m_stored, work).keepMatching(filter.pattern, slots, work);
    }
    if (m_judge)
        std::erase_if(slots, [&](Slot slot) {
            work.did();
            return !m_judge(slot);
        });
    if (m_arrange) m_arrange(slots);
    return slots;
}

}  // namespace mc
