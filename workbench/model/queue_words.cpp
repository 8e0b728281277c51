#include "workbench/model/queue_words.h"

#include "text/time_of_day.h"

namespace mc {

ListSummary queueSummary(const PendingChanges& changes) {
    const RecordStore& rows = changes.rows();
    return {.rows = rows.rowCount(),
            .records = rows.stored().size(),
            .filters = rows.filters().columns().size(),
            .quickFilter = changes.quickFilter().words(),
            .selected = rows.selection().count(),
            .notLookedAt = changes.states().notLookedAtVisible()};
}

std::string emptyQueueText(const Arrivals& arrivals) {
    if (arrivals.recovered) return "No pending changes";
    if (!arrivals.subscribedAt)
        return "Nothing comes by itself in this session. Recover (F5) asks for what is pending";
    const std::string since = timeOfDay(*arrivals.subscribedAt);
    return (arrivals.any ? "Nothing is left of what has come since " : "Nothing has come since ") +
           since + ". Recover (F5) asks for what was pending before";
}

}  // namespace mc
