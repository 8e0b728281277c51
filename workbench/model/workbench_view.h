// What the workbench's rules tell the window that shows them.
#pragma once

#include <vector>

#include "listctrl/model/detail_group.h"

// Implemented by the pane, and by a recorder in the native tests. The records already stand as the
// call says; nothing here may call back into the workbench.
class WorkbenchView {
public:
    virtual void rowsChanged() = 0;   // a record came, changed or went
    virtual void emptyDetails() = 0;  // no details are on show any more

    // Shows these groups behind those on show.
    virtual void showDetails(std::vector<DetailGroup> groups) = 0;

    // The edited values have left: no row holds an unsent edit any more.
    virtual void editsSent() = 0;

protected:
    ~WorkbenchView() = default;
};
