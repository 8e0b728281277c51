#include "details/model/intake.h"

#include "details/model/limits_entity.h"
#include "link/model/functionality.h"
#include "link/model/mnemonics.h"
#include "sdk/host_services.h"

namespace mc {
namespace {

// The menu item that a checker's roles must hold to see the change.
int menuItemFor(const Functionality& kind, std::string_view type) {
    if (kind.group == FunctionalityGroup::limits) return kMenuItemSeeLimits;
    if (kind.group == FunctionalityGroup::user && type != kInvestorClient) return kMenuItemSeeUsers;
    return kMenuItemSeeClientsAndInvestors;
}

void nameUser(const FieldReader& message, sMakeCheckStruct& record) {
    message.read(MNM_USER, record.entityName);
}

void nameClient(const FieldReader& message, sMakeCheckStruct& record) {
    message.read(MNM_ACCOUNT_ID, record.entityName);
    record.linkedUser.clear();
    if (record.type == kInvestorClient) message.read(MNM_USER, record.linkedUser);
}

void nameLimits(const FieldReader& message, sMakeCheckStruct& record) {
    record.entityName = limitsEntityName(message);
}

void nameEntity(FunctionalityGroup group, const FieldReader& message, sMakeCheckStruct& record) {
    switch (group) {
        case FunctionalityGroup::user:
            return nameUser(message, record);
        case FunctionalityGroup::client:
            return nameClient(message, record);
        case FunctionalityGroup::limits:
            return nameLimits(message, record);
    }
}

}  // namespace

void Intake::handle(const FieldReader& message) {
    const PendingChanges::Hold hold(m_changes);  // the host may end the plug-in inside a service
    PuGetFindMenuItemInRoles* const holdsMenuItem = m_host.menuItemService();
    const auto status = message.text(MNM_PUBLICATION_STATUS);
    if (!status) return;
    if (*status == "auth pending")
        takePending(message, holdsMenuItem);
    else if (*status == "accepted" || *status == "rejected")
        takeDecided(message);
}

void Intake::takePending(const FieldReader& message, PuGetFindMenuItemInRoles* holdsMenuItem) {
    const auto key = message.text(MNM_AUTHORIZATION_KEY);
    if (!key) return;
    auto found = m_changes.findRecord(*key);
    const bool listed = found.has_value();
    PendingChange& record = listed ? *found : found.emplace();
    if (!listed) record.key = *key;
    message.read(MNM_FUNCTIONALITY, record.functionalityCode);
    message.read(MNM_TYPE, record.type);

    // A code that the workbench does not know is listed without a rights test and without a name.
    if (const Functionality* kind = findFunctionality(record.functionalityCode)) {
        const int menuItem = menuItemFor(*kind, record.type);
        if (holdsMenuItem == nullptr || holdsMenuItem(menuItem) == 0) {
            if (listed) discardListed(record.key);
            return;
        }
        nameEntity(kind->group, message, record);
    }

    message.read(MNM_REQUESTING_USER, record.makerId);
    message.read(MNM_BROKER, record.brokerId);
    message.read(MNM_BRANCH, record.branchId);
    // A checker never sees a change of his own. One that is listed already takes the new texts,
    // without a redraw.
    if (record.makerId == m_host.peerUserId()) {
        m_changes.rewriteRecord(record);
        return;
    }

    if (listed) {
        m_changes.refreshRecord(record);
        m_listener.publishedAgain(record);
    } else {
        m_changes.addRecord(record);
    }
    m_host.beep();
}

void Intake::takeDecided(const FieldReader& message) {
    const auto key = message.text(MNM_AUTHORIZATION_KEY);
    if (!key) return;
    discardListed(std::string(*key));
}

// The record goes with its row and its index entry.
void Intake::discardListed(std::string key) {
    m_changes.removeRecord(key);
    m_listener.changeEnded(key);
}

}  // namespace mc
