#include "workbench/model/presses.h"

#include <algorithm>

#include "workbench/model/decisions.h"
#include "workbench/model/press_line.h"

namespace mc {

std::vector<Slot> Presses::missingHalves() const {
    std::vector<Slot> missing;
    const PressPlan now = plan(PressButton::accept);
    for (const auto* halves : {&now.users, &now.clients})
        for (const Slot half : *halves)
            if (const Slot other = m_changes.related().otherHalf(half); other != kNoSlot)
                missing.push_back(other);
    return missing;
}

// The opposite of a decision whose outcome is awaited may be a slip.
bool Presses::mayDecideAgain(const PressPlan& plan) {
    if (plan.opposite == 0) return true;
    const bool accepts = plan.button != PressButton::reject;
    const bool one = plan.leaving.size() == 1;
    const auto change = m_changes.recordIn(plan.leaving.front());
    return m_host.confirm(
        (one && change ? pressName(*change) + " was "
                       : std::to_string(plan.opposite) + " of these changes were ") +
        (accepts ? "rejected" : "accepted") + " and the outcome is awaited.\n\n" +
        verbOf(plan.button) + (one ? " it all the same?" : " them all the same?"));
}

void Presses::sayWhatChanged(SelectedRecords selected) {
    if (std::ranges::any_of(selected,
                            [this](Slot slot) { return m_changes.states().changedInPress(slot); }))
        m_sight.leavesOut();
}

// A question dispatches messages: what is executed is the plan made after it.
void Presses::accept(SelectedRecords selected) {
    const PendingChanges::Hold hold(m_changes);
    m_changes.states().pressBegins(selected);
    const auto plan = [&] { return planOf(PressButton::accept, selected); };
    if (!selected.empty() && m_details.mayLeaveEdits("Accept without sending?") &&
        mayDecideAgain(plan()))
        acceptSelected(plan(), m_changes, m_requests, m_host);
    sayWhatChanged(selected);
}

void Presses::reject(SelectedRecords selected, const AskReason& askReason) {
    const PendingChanges::Hold hold(m_changes);
    m_changes.states().pressBegins(selected);
    const PressPlan plan = planOf(PressButton::reject, selected);
    if ((selected.empty() || m_details.mayLeaveEdits("Reject without sending?")) &&
        mayDecideAgain(plan))
        rejectSelected(plan, askReason(), m_changes, m_requests);
    sayWhatChanged(selected);
}

void Presses::update() {
    const PendingChanges::Hold hold(m_changes);
    const Slot slot = m_changes.states().shown();
    m_changes.states().pressBegins({&slot, 1});
    if (!mayDecideAgain(planOf(PressButton::update, {}))) return;
    sayWhatChanged({&slot, 1});
    if (m_changes.states().changedInPress(slot)) return;
    if (m_requests.sendLimitsUpdate() == 0) return;
    if (slot != kNoSlot) m_changes.states().sent(slot, SentDecision::update);
    m_details.editsSent();
}

void Presses::recover() {
    if (!m_details.mayLeaveEdits("Recover and drop them?")) return;
    m_details.empty();
    if (m_requests.sendRecovery() != 0) m_changes.states().recoverSent();
}

}  // namespace mc
