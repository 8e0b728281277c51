// Accept and reject: what one press does with the selected rows.
#pragma once

#include <span>
#include <string>

#include "link/model/host.h"
#include "link/model/requests.h"
#include "workbench/model/records/pending_changes.h"

namespace mc {

using SelectedRecords = std::span<const PendingChange>;  // in row order

// Sends accept for every selected change. An investor's new user and new client are accepted
// together only, user first; those of them that find no partner among the selected are named to the
// checker and stay pending.
void acceptSelected(SelectedRecords selected, PendingChanges& changes, Requests& requests,
                    Host& host);

// Sends reject with `reason` for every selected change; without a reason it sends nothing.
void rejectSelected(SelectedRecords selected, const std::string& reason, PendingChanges& changes,
                    Requests& requests);

}  // namespace mc
