#include "details/model/limits_entity.h"

#include "link/model/mnemonics.h"

namespace mc {
namespace {

constexpr struct {
    int mnemonic;
    std::string_view prefix;
} kLimitsEntities[] = {
    {MNM_BROKER, "Broker - "},
    {MNM_BRANCH, "Branch - "},
    {MNM_ACCOUNT_GROUP, "Account Group - "},
    {MNM_USER, "Dealer - "},
    {MNM_ACCOUNT_ID, "Client - "},
};

}  // namespace

std::string limitsEntityName(const FieldReader& message) {
    for (const auto& entity : kLimitsEntities)
        if (const auto id = message.text(entity.mnemonic))
            return std::string(entity.prefix).append(*id);
    return {};
}

}  // namespace mc
