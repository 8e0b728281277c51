// Notified of the rows that come, change and go, and of what is done with their changes.
// Implemented by the view of the workbench.
#pragma once

namespace mc {

class RecordsView {
public:
    virtual void rowsChanged() = 0;
    // The states of some changes are others; every row is where it was.
    virtual void statesChanged() = 0;

protected:
    ~RecordsView() = default;
};

}  // namespace mc
