#include "link/model/functionality.h"

#include <algorithm>
#include <cstring>

#include "link/model/mnemonics.h"

namespace mc {
namespace {

constexpr Functionality kFunctionalities[kFunctionalityCount] = {
    {kAddUser, "ADD USER", FunctionalityGroup::user, DetailKind::user, MNM_USER},
    {kModifyUser, "MODIFY USER", FunctionalityGroup::user, DetailKind::user, MNM_USER},
    {kAddClient, "ADD CLIENT", FunctionalityGroup::client, DetailKind::account, MNM_ACCOUNT_ID},
    {kModifyClient, "MODIFY CLIENT", FunctionalityGroup::client, DetailKind::account,
     MNM_ACCOUNT_ID},
    {kRmsLimits, "RMS Limits", FunctionalityGroup::limits, DetailKind::limits, 0},
    {kDeleteUser, "DELETE USER", FunctionalityGroup::user, DetailKind::none, 0},
    {kDeleteClient, "DELETE Account", FunctionalityGroup::client, DetailKind::none, 0},
};

constexpr std::size_t kCodeBytes = kAddUser.size();
static_assert(std::ranges::all_of(kFunctionalities, [](const Functionality& each) {
    return each.code.size() == kCodeBytes;
}));

}  // namespace

std::span<const Functionality, kFunctionalityCount> functionalities() {
    return kFunctionalities;
}

const Functionality* findFunctionality(std::string_view code) {
    if (code.size() != kCodeBytes) return nullptr;
    for (const Functionality& each : kFunctionalities)
        if (std::memcmp(each.code.data(), code.data(), kCodeBytes) == 0) return &each;
    return nullptr;
}

}  // namespace mc
