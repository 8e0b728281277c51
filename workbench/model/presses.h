// The four buttons: what a press of each would do, and does.
//
// `selected`, in row order, is what was selected at the press: a change that goes while a box is
// open, or is published again, is not decided, and none is decided instead. Where edits are not
// sent, all but Update ask first. Accept and Reject ask before they decide otherwise than a
// decision that was sent, whose outcome is awaited.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "workbench/model/open_details.h"
#include "workbench/model/press_plan.h"

namespace mc {

class Presses {
public:
    // All must outlive the object.
    Presses(Host& host, PendingChanges& changes, Requests& requests, OpenDetails& details,
            PressSight& sight)
        : m_host(host),
          m_changes(changes),
          m_requests(requests),
          m_details(details),
          m_sight(sight) {}

    // What a press of the button would do now, with what is selected and typed now.
    PressPlan plan(PressButton button, const TypedValue& typed = {}) const {
        return planOf(button, m_changes.selectedRecords(), typed);
    }

    // The other halves of pairs that a press of Accept lacks.
    std::vector<Slot> missingHalves() const;

    void accept(SelectedRecords selected);
    // An empty reason rejects nothing.
    using AskReason = std::function<std::string()>;
    void reject(SelectedRecords selected, const AskReason& askReason);
    void update();
    void recover();

private:
    PressPlan planOf(PressButton button, SelectedRecords selected,
                     const TypedValue& typed = {}) const {
        return planPress(button, selected, m_changes, m_details.asked(), typed);
    }
    bool mayDecideAgain(const PressPlan& plan);
    void sayWhatChanged(SelectedRecords selected);

    Host& m_host;
    PendingChanges& m_changes;
    Requests& m_requests;
    OpenDetails& m_details;
    PressSight& m_sight;
};

}  // namespace mc
