#include "workbench/model/decisions.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "link/model/functionality.h"

namespace mc {
namespace {

// One press of Accept.
class Acceptance {
public:
    Acceptance(PendingChanges& changes, Requests& requests, Host& host)
        : m_changes(changes), m_hold(changes), m_requests(requests), m_host(host) {}

    void run(SelectedRecords selected) {
        for (const PendingChange& change : selected)
            take(m_changes.current(change).value_or(change));
        pairUp();
        warnOfUnpaired();
    }

private:
    void take(PendingChange change) {
        const bool investor = change.type == kInvestorClient;
        if (investor && change.functionalityCode == kAddUser)
            pendingUsers.push_back(std::move(change));
        else if (investor && change.functionalityCode == kAddClient)
            pendingClients.push_back(std::move(change));
        else
            send(change);
    }

    // A change that was decided while a message box was open is pending no more.
    bool send(const PendingChange& change) {
        const auto now = m_changes.current(change);
        if (!now || m_requests.sendAccept(*now) == 0) return false;
        m_changes.states().sent(now->slot, SentDecision::accept);
        return true;
    }

    // From the last to the first on both sides. The pass over the users goes on after a match, so a
    // client can be accepted with two users of the same name; it leaves its array once.
    void pairUp() {
        for (std::size_t c = pendingClients.size(); c-- > 0;) {
            const PendingChange& client = pendingClients[c];
            bool paired = false;
            for (std::size_t u = pendingUsers.size(); u-- > 0;) {
                const PendingChange& user = pendingUsers[u];
                if (user.entityName != client.linkedUser) continue;
                // Neither is accepted when the other cannot be.
                if (m_changes.isPending(client) && send(user)) send(client);
                pendingUsers.erase(pendingUsers.begin() + static_cast<std::ptrdiff_t>(u));
                paired = true;
            }
            if (paired)
                pendingClients.erase(pendingClients.begin() + static_cast<std::ptrdiff_t>(c));
        }
    }

    // Clients without a user are named only when no user is left without a client.
    // What was decided behind an earlier message box of this press is not named.
    void warnOfUnpaired() {
        for (auto* changes : {&pendingUsers, &pendingClients})
            std::erase_if(*changes,
                          [this](const auto& each) { return !m_changes.isPending(each); });
        const auto& unpaired = pendingUsers.empty() ? pendingClients : pendingUsers;
        if (unpaired.empty()) return;
        std::string text = "Autenticate User and Account for";
        for (auto each = unpaired.rbegin(); each != unpaired.rend(); ++each)
            text.append("  ").append(each->entityName);
        m_host.showMessage(text);
        m_host.reportToUser(text + "For Investor client Autenticate User and Client Together",
                            kReportMessage);
    }

    PendingChanges& m_changes;
    PendingChanges::Hold m_hold;
    Requests& m_requests;
    Host& m_host;
    std::vector<PendingChange> pendingUsers;
    std::vector<PendingChange> pendingClients;
};

}  // namespace

void acceptSelected(SelectedRecords selected, PendingChanges& changes, Requests& requests,
                    Host& host) {
    Acceptance(changes, requests, host).run(selected);
}

void rejectSelected(SelectedRecords selected, const std::string& reason, PendingChanges& changes,
                    Requests& requests) {
    if (reason.empty()) return;
    const PendingChanges::Hold hold(changes);
    for (const PendingChange& change : selected) {
        const auto now = changes.current(change);
        if (now && requests.sendReject(*now, reason) != 0)
            changes.states().sent(now->slot, SentDecision::reject);
    }
}

}  // namespace mc
