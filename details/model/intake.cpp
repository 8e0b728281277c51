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

// Whose change it is. `composed` holds a name that is made up here.
void nameEntity(FunctionalityGroup group, bool investor, const FieldReader& message,
                ChangeTexts& texts, std::string& composed) {
    switch (group) {
        case FunctionalityGroup::user:
            texts.entityName = message.text(MNM_USER);
            break;
        case FunctionalityGroup::client:
            texts.entityName = message.text(MNM_ACCOUNT_ID);
            texts.linkedUser = investor ? message.text(MNM_USER).value_or("") : "";
            break;
        case FunctionalityGroup::limits:
            texts.entityName = composed = limitsEntityName(message);
            break;
    }
}

}  // namespace

void Intake::handle(const FieldReader& message, Origin origin) {
    const PendingChanges::Hold hold(m_changes);  // the host may end the plug-in inside a service
    PuGetFindMenuItemInRoles* const holdsMenuItem = m_host.menuItemService();
    const auto status = message.text(MNM_PUBLICATION_STATUS);
    if (!status) return;
    if (*status == "auth pending")
        takePending(message, origin, holdsMenuItem);
    else if (*status == "accepted" || *status == "rejected")
        takeDecided(message, *status);
}

void Intake::takePending(const FieldReader& message, Origin origin,
                         PuGetFindMenuItemInRoles* holdsMenuItem) {
    const auto key = message.text(MNM_AUTHORIZATION_KEY);
    if (!key) return;
    const Slot listed = m_changes.find(*key);
    ChangeTexts texts{.makerId = message.text(MNM_REQUESTING_USER),
                      .functionalityCode = message.text(MNM_FUNCTIONALITY),
                      .brokerId = message.text(MNM_BROKER),
                      .branchId = message.text(MNM_BRANCH),
                      .type = message.text(MNM_TYPE)};
    // What the message does not give is as it was.
    const auto textOf = [&](const auto& given, ChangeTable::CodedText which) {
        return given ? *given : m_changes.table().text(listed, which);
    };
    using CodedText = ChangeTable::CodedText;
    const std::string_view type = textOf(texts.type, CodedText::type);

    // A code that the workbench does not know is listed without a rights test and without a name.
    std::string composed;
    if (const auto* kind =
            findFunctionality(textOf(texts.functionalityCode, CodedText::functionality))) {
        nameEntity(kind->group, type == kInvestorClient, message, texts, composed);
        const int menuItem = menuItemFor(*kind, type);
        if (holdsMenuItem == nullptr || holdsMenuItem(menuItem) == 0) {
            if (listed != kNoSlot) discardListed(std::string(*key));
            return;
        }
    }

    // A checker never sees a change of his own. One that is listed already takes the new texts,
    // without a redraw.
    if (textOf(texts.makerId, CodedText::maker) == m_host.peerUserId()) {
        if (m_changes.rewriteRecord(listed, texts, origin)) m_listener.rewritten(std::string(*key));
        return;
    }

    if (listed != kNoSlot) {
        m_changes.refreshRecord(listed, texts, origin);
        m_listener.publishedAgain(std::string(*key));
    } else {
        m_changes.addRecord(*key, texts, origin);
    }
    m_host.beep();
}

void Intake::takeDecided(const FieldReader& message, std::string_view outcome) {
    const auto key = message.text(MNM_AUTHORIZATION_KEY);
    if (!key) return;
    m_listener.outcomeCame(std::string(*key), outcome);
    discardListed(std::string(*key));
}

// The record goes with its row and its index entry.
void Intake::discardListed(const std::string& key) {
    m_changes.removeRecord(key);
    m_listener.changeEnded(key);
}

}  // namespace mc
