// What the rules of the workbench ask of the window that shows details.
#pragma once

#include <string>
#include <vector>

#include "details/model/detail_group.h"

namespace mc {

// What the details list says about itself.
struct DetailsCaption {
    std::string title;      // of its strip: whose details these are, and what happened to them
    std::string emptyText;  // instead of rows: why there are none
    bool dimmed = false;    // other changes are selected than theirs
    std::string neighbours = {};  // behind the title: other pending changes about the same
    bool operator==(const DetailsCaption&) const = default;
};

// Implemented by the pane, and by a recorder in the native tests. The records already are as the
// call says; nothing here may call back into the workbench.
class DetailsView {
public:
    virtual void emptyDetails() = 0;  // no details are visible any more

    // Shows these groups instead of those that are visible. `anotherChange`: the details visible
    // last belonged to another change.
    virtual void showDetails(std::vector<DetailGroup> groups, bool anotherChange) = 0;

    // The edited values have left: no row holds an unsent edit any more.
    virtual void editsSent() = 0;

    // The edits are dropped: each edited row shows the value that was received.
    virtual void editsDropped() = 0;

    virtual void captionDetails(const DetailsCaption& caption) = 0;

protected:
    ~DetailsView() = default;
};

}  // namespace mc
