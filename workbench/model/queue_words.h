// What the main list says about itself.
#pragma once

#include <string>

#include "listctrl/model/list_summary.h"
#include "workbench/model/records/pending_changes.h"

namespace mc {

// For its strip. Takes one pass over the visible rows where filters hide some.
ListSummary queueSummary(const PendingChanges& changes);

// Instead of rows. A subscription brings only what is made from then on, so before the first
// Recover an empty list does not mean that nothing is pending.
std::string emptyQueueText(const Arrivals& arrivals);

}  // namespace mc
