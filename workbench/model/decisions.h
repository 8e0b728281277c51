// Accept and reject: executes the plan of a press.
#pragma once

#include <string>

#include "link/model/host.h"
#include "link/model/requests.h"
#include "workbench/model/press_plan.h"
#include "workbench/model/records/pending_changes.h"

namespace mc {

// Sends accept for every change that the plan lets leave, in its order. A user whose accept fails
// withholds its client's. Halves that stay are named to the checker. What is decided meanwhile,
// behind a message box, is skipped, and so is what was published again since the states were told
// of the press. A Hold must have been there since the plan was made.
void acceptSelected(const PressPlan& plan, PendingChanges& changes, Requests& requests, Host& host);

// Sends reject with `reason` in the plan's order; without a reason it sends nothing.
void rejectSelected(const PressPlan& plan, const std::string& reason, PendingChanges& changes,
                    Requests& requests);

}  // namespace mc
