// The plan of a press of one of the four buttons: what would leave, in which order, what would
// stay, and in which states those changes are. The press line shows it, and the press executes it.
#pragma once

#include <cstddef>
#include <ctime>
#include <span>
#include <string>
#include <vector>

#include "details/model/typed_value.h"
#include "link/model/requests.h"
#include "workbench/model/records/pending_changes.h"

namespace mc {

enum class PressButton { accept, reject, update, recover };

using SelectedRecords = std::span<const Slot>;  // in row order

struct PressPlan {
    struct Pair {
        Slot user, client;
    };

    PressButton button = PressButton::accept;

    // Accept and Reject. The single ones leave first, in row order, then the pairs, user before
    // client and neither without the other. A client is in as many pairs as users have its id.
    std::vector<Slot> single;
    std::vector<Pair> pairs;
    std::vector<Slot> users, clients;  // halves that stay, in row order: their pairs are not whole
    Slot missing = kNoSlot;            // pending and not selected: the other half of one of these
    std::vector<Slot> leaving;         // those of `single` and `pairs`, each once
    StateCounts states;                // of those that leave
    std::size_t again = 0;             // of them, this decision was sent and its outcome is awaited
    std::size_t opposite = 0;          // or the other decision was
    std::time_t sentAt = 0;            // the last of these
    std::size_t deselected = 0;        // rows that filters deselected since the hand last selected

    // Unsent values, the one that is being typed among them, and for Update the key of the change
    // that they are of.
    std::size_t edits = 0;
    std::string key = {};
    bool refused = false;  // what is being typed cannot be kept: the press will do nothing else
};

// The one plan of a press. It takes one pass over the selected changes, and looks for the other
// half of one that stays after the other, by its user id, until it finds one. Valid until the next
// change comes, changes or goes, or for the time of a PendingChanges::Hold, with changes in it that
// may have gone.
PressPlan planPress(PressButton button, SelectedRecords selected, const PendingChanges& changes,
                    const AskedDetails& details, const TypedValue& typed = {});

}  // namespace mc
