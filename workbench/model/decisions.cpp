#include "workbench/model/decisions.h"

#include <algorithm>
#include <vector>

#include "link/model/functionality.h"

namespace mc {
namespace {

// One press of Accept.
class Acceptance {
public:
    Acceptance(PendingChanges& changes, Requests& requests, Host& host)
        : m_hold(changes), m_requests(requests), m_host(host) {}

    void run(SelectedRecords selected) {
        for (sMakeCheckStruct* record : selected) take(*record);
        pairUp();
        warnOfUnpaired();
    }

private:
    void take(sMakeCheckStruct& record) {
        const bool investor = record.type == kInvestorClient;
        if (investor && record.functionalityCode == kAddUser)
            pendingUsers.push_back(&record);
        else if (investor && record.functionalityCode == kAddClient)
            pendingClients.push_back(&record);
        else
            send(record);
    }

    // A change that was decided while a message box was open is pending no more.
    bool send(const sMakeCheckStruct& record) {
        return m_hold.pending(record) && m_requests.sendAccept(record) != 0;
    }

    // From the last to the first on both sides. The pass over the users goes on after a match, so a
    // client can be accepted with two users of the same name; it leaves its array once.
    void pairUp() {
        for (std::size_t c = pendingClients.size(); c-- > 0;) {
            sMakeCheckStruct* const client = pendingClients[c];
            for (std::size_t u = pendingUsers.size(); u-- > 0;) {
                sMakeCheckStruct* const user = pendingUsers[u];
                if (user->entityName != client->linkedUser) continue;
                // Neither is accepted when the other cannot be.
                if (m_hold.pending(*client) && send(*user)) send(*client);
                std::erase(pendingUsers, user);
                std::erase(pendingClients, client);
            }
        }
    }

    // Clients without a user are named only when no user is left without a client.
    // What was decided behind an earlier message box of this press is not named.
    void warnOfUnpaired() {
        for (auto* records : {&pendingUsers, &pendingClients})
            std::erase_if(*records, [this](const auto* each) { return !m_hold.pending(*each); });
        const auto& unpaired = pendingUsers.empty() ? pendingClients : pendingUsers;
        if (unpaired.empty()) return;
        std::string text = "Autenticate User and Account for";
        for (auto each = unpaired.rbegin(); each != unpaired.rend(); ++each)
            text.append("  ").append((*each)->entityName);
        m_host.showMessage(text);
        m_host.reportToUser(text + "For Investor client Autenticate User and Client Together",
                            kReportMessage);
    }

    PendingChanges::Hold m_hold;
    Requests& m_requests;
    Host& m_host;
    std::vector<sMakeCheckStruct*> pendingUsers;
    std::vector<sMakeCheckStruct*> pendingClients;
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
    for (const sMakeCheckStruct* record : selected)
        if (hold.pending(*record)) requests.sendReject(*record, reason);
}

}  // namespace mc
