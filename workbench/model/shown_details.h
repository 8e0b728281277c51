// Emptying the details: the one way in which details leave the screen.
#pragma once

#include "link/model/requests.h"
#include "workbench/model/workbench_view.h"

// Empties the list and forgets whose details they were, and with them the edits that were typed in
// but not sent: an edit never outlives the sight of its value.
inline void emptyDetails(DetailsOnShow& details, WorkbenchView& view) {
    details = DetailsOnShow{};
    view.emptyDetails();
}
