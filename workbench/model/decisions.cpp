#include "workbench/model/decisions.h"

#include <optional>
#include <vector>

namespace mc {
namespace {

// What a press decides now: nothing that is pending no more, or changed since the press.
std::optional<PendingChange> asMeant(Slot slot, const PendingChanges& changes) {
    return changes.states().changedInPress(slot) ? std::nullopt : changes.recordIn(slot);
}

// One press of Accept.
class Acceptance {
public:
    Acceptance(PendingChanges& changes, Requests& requests, Host& host)
        : m_changes(changes), m_hold(changes), m_requests(requests), m_host(host) {}

    void run(const PressPlan& plan) {
        for (const Slot slot : plan.single) send(slot);
        for (const auto& [user, client] : plan.pairs)
            // Neither is accepted when the other cannot be.
            if (asMeant(client, m_changes) && send(user)) send(client);
        // Clients without a user are named only when no user is left without a client.
        if (!warnOf(plan.users)) warnOf(plan.clients);
    }

private:
    bool send(Slot slot) {
        const auto now = asMeant(slot, m_changes);
        if (!now || m_requests.sendAccept(*now) == 0) return false;
        m_changes.states().sent(slot, SentDecision::accept);
        return true;
    }

    // Names halves that stay, the last first, but for what was decided behind an earlier message
    // box of this press. False when there is none.
    bool warnOf(const std::vector<Slot>& halves) {
        std::string names;
        for (auto half = halves.rbegin(); half != halves.rend(); ++half)
            if (const auto now = m_changes.recordIn(*half))
                names.append("  ").append(now->entityName);
        if (names.empty()) return false;
        const std::string text = "Autenticate User and Account for" + names;
        m_host.showMessage(text);
        m_host.reportToUser(text + "For Investor client Autenticate User and Client Together",
                            kReportMessage);
        return true;
    }

    PendingChanges& m_changes;
    PendingChanges::Hold m_hold;
    Requests& m_requests;
    Host& m_host;
};

}  // namespace

void acceptSelected(const PressPlan& plan, PendingChanges& changes, Requests& requests,
                    Host& host) {
    Acceptance(changes, requests, host).run(plan);
}

void rejectSelected(const PressPlan& plan, const std::string& reason, PendingChanges& changes,
                    Requests& requests) {
    if (reason.empty()) return;
    const PendingChanges::Hold hold(changes);
    for (const Slot slot : plan.single) {
        const auto now = asMeant(slot, changes);
        if (now && requests.sendReject(*now, reason) != 0)
            changes.states().sent(slot, SentDecision::reject);
    }
}

}  // namespace mc
