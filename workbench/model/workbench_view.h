// What the workbench's rules tell the window that shows them.
#pragma once

#include <cstddef>

// Implemented by the pane, and by a recorder in the native tests. The records already stand as the
// call says; nothing here may call back into the workbench.
class WorkbenchView {
public:
    virtual void rowAppended() = 0;                // the last row is new
    virtual void rowRemoved(std::size_t row) = 0;  // the row that stood at `row` is gone
    virtual void redrawRows() = 0;                 // some row's texts changed
    virtual void emptyDetails() = 0;               // no details are on show any more

protected:
    ~WorkbenchView() = default;
};
