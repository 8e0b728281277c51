// What the workbench's rules tell the window that shows them.
#pragma once

// Implemented by the pane, and by a recorder in the native tests. The records already stand as the
// call says; nothing here may call back into the workbench.
class WorkbenchView {
public:
    virtual void rowsChanged() = 0;   // a record came, changed or went
    virtual void emptyDetails() = 0;  // no details are on show any more

protected:
    ~WorkbenchView() = default;
};
