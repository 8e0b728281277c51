#include "link/model/entity.h"

#include <algorithm>
#include <array>

#include "link/model/functionality.h"

namespace mc {
namespace {

constexpr struct {
    EntityKind kind;
    std::string_view prefix;
} kPrefixes[] = {
    {EntityKind::broker, "Broker - "},
    {EntityKind::branch, "Branch - "},
    {EntityKind::accountGroup, "Account Group - "},
    {EntityKind::user, "Dealer - "},
    {EntityKind::client, "Client - "},
};

Entity named(EntityKind kind, std::string_view id) {
    return id.empty() ? Entity{} : Entity{kind, id};
}

Entity ofLimits(std::string_view name) {
    for (const auto& each : kPrefixes)
        if (name.starts_with(each.prefix)) return named(each.kind, name.substr(each.prefix.size()));
    return {};
}

}  // namespace

std::string_view limitsPrefix(EntityKind kind) {
    const auto* found =
        std::ranges::find(kPrefixes, kind, [](const auto& each) { return each.kind; });
    return found != std::end(kPrefixes) ? found->prefix : std::string_view();
}

Entity entityOf(std::string_view functionalityCode, std::string_view entityName) {
    const Functionality* const kind = findFunctionality(functionalityCode);
    if (kind == nullptr) return {};
    switch (kind->group) {
        case FunctionalityGroup::user:
            return named(EntityKind::user, entityName);
        case FunctionalityGroup::client:
            return named(EntityKind::client, entityName);
        case FunctionalityGroup::limits:
            return ofLimits(entityName);
    }
    return {};
}

Entity linkedEntityOf(std::string_view functionalityCode, std::string_view type,
                      std::string_view linkedUser) {
    const Functionality* const kind = findFunctionality(functionalityCode);
    const bool client = kind != nullptr && kind->group == FunctionalityGroup::client;
    return client && type == kInvestorClient ? named(EntityKind::user, linkedUser) : Entity{};
}

bool sameEntity(const sMakeCheckStruct& a, const sMakeCheckStruct& b) {
    const auto entities = [](const sMakeCheckStruct& of) {
        return std::array{entityOf(of.functionalityCode, of.entityName),
                          linkedEntityOf(of.functionalityCode, of.type, of.linkedUser)};
    };
    const auto left = entities(a), right = entities(b);
    return std::ranges::any_of(left, [&](const Entity& each) {
        return each.kind != EntityKind::none && std::ranges::find(right, each) != right.end();
    });
}

}  // namespace mc
