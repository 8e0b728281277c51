// Whom or what a change is about, so that two changes about the same can be known as such.
#pragma once

#include <string_view>

#include "link/model/pending_record.h"

namespace mc {

enum class EntityKind { none, broker, branch, accountGroup, user, client };

// What the name of a limits change begins with, before the id: "Client - " for a client.
std::string_view limitsPrefix(EntityKind kind);

struct Entity {
    EntityKind kind = EntityKind::none;
    std::string_view id;  // part of the texts that it was read from
    bool operator==(const Entity&) const = default;
};

// What a change is about: a user, a client, or what the name of a limits change says; a dealer is a
// user. None for a kind that the workbench does not know, and for an empty name.
Entity entityOf(std::string_view functionalityCode, std::string_view entityName);

// The user of an investor, whom a change of the investor's client is about as well; else none.
Entity linkedEntityOf(std::string_view functionalityCode, std::string_view type,
                      std::string_view linkedUser);

// Whether two changes are about the same: of an investor, the user and the client are.
bool sameEntity(const sMakeCheckStruct& a, const sMakeCheckStruct& b);

}  // namespace mc
