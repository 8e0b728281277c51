#include "details/model/limits_entity.h"

#include "link/model/entity.h"
#include "link/model/mnemonics.h"

namespace mc {
namespace {

constexpr struct {
    int mnemonic;
    EntityKind kind;
} kLimitsEntities[] = {
    {MNM_BROKER, EntityKind::broker},
    {MNM_BRANCH, EntityKind::branch},
    {MNM_ACCOUNT_GROUP, EntityKind::accountGroup},
    {MNM_USER, EntityKind::user},
    {MNM_ACCOUNT_ID, EntityKind::client},
};

}  // namespace

std::string limitsEntityName(const FieldReader& message) {
    for (const auto& entity : kLimitsEntities)
        if (const auto id = message.text(entity.mnemonic))
            return std::string(limitsPrefix(entity.kind)).append(*id);
    return {};
}

}  // namespace mc
