#include "link/model/functionality.h"

#include "link/model/mnemonics.h"
#include "text/text_bytes.h"

namespace mc {
namespace {

constexpr Functionality kFunctionalities[] = {
    {kAddUser, "ADD USER", FunctionalityGroup::user, DetailKind::user, MNM_USER},
    {kModifyUser, "MODIFY USER", FunctionalityGroup::user, DetailKind::user, MNM_USER},
    {kAddClient, "ADD CLIENT", FunctionalityGroup::client, DetailKind::account, MNM_ACCOUNT_ID},
    {kModifyClient, "MODIFY CLIENT", FunctionalityGroup::client, DetailKind::account,
     MNM_ACCOUNT_ID},
    {kRmsLimits, "RMS Limits", FunctionalityGroup::limits, DetailKind::limits, 0},
    {kDeleteUser, "DELETE USER", FunctionalityGroup::user, DetailKind::none, 0},
    {kDeleteClient, "DELETE Account", FunctionalityGroup::client, DetailKind::none, 0},
};

}  // namespace

const Functionality* findFunctionality(std::string_view code) {
    for (const Functionality& each : kFunctionalities)
        if (same(each.code, code)) return &each;
    return nullptr;
}

}  // namespace mc
