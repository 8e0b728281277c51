// What the authorization server keeps: users, clients, and the changes that makers ask for.
//
// A change carries its identification (who made it, and whom it is about), which is published, and
// its detail fields, which a checker asks for. In a detail field occurrence 0 is the new value and
// occurrence 1 the old one; a list field carries its members.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "console/model/fields.h"

namespace zek {

// The type of a user and a client that may only be authorized together.
inline constexpr char kInvestorClient[] = "INVESTOR_CLIENT";

struct User {
    std::string id, broker, branch, type;
    Fields fields;  // only values that hold now

    bool operator==(const User&) const = default;
};

struct Client {
    std::string id, owner, broker, branch, group, type;
    Fields fields;

    bool operator==(const Client&) const = default;
};

// An empty identification text is one that is not known for the change. A limits change names just
// its level: the first of broker, branch, group, user (dealer) and client that is given.
struct Change {
    std::string key;  // given by the server when the change is submitted
    std::string code, type, maker, broker, branch, group, user, client;
    Fields fields;

    bool operator==(const Change&) const = default;
};

enum class ChangeKind { user, client, limits, unknown };
enum class ChangeAction { add, modify, remove, set, none };

// One functionality code: its text, its word in scenario files, and what it means.
struct ChangeCode {
    const char* code;
    const char* word;
    ChangeKind kind;
    ChangeAction action;
};

std::span<const ChangeCode> changeCodes();
// The entry of a code; unknown codes give one of ChangeKind::unknown.
const ChangeCode& changeCode(std::string_view code);

// The code of a kind and an action that the table has.
const char* codeOf(ChangeKind kind, ChangeAction action);

// One identification text: its field id, its word in scenario files, its member.
struct Identification {
    int field;
    const char* word;
    std::string Change::*text;
};

// In the order in which they are published.
std::span<const Identification> identifications();

// What a change is about: the user of a user change, the client of a client change, the level of a
// limits change. The id is empty when the change does not tell.
struct Entity {
    int field = 0;  // field::kUser, kClient, kBroker, kBranch or kGroup
    std::string id;

    auto operator<=>(const Entity&) const = default;
};
Entity entityOf(const Change& change);

}  // namespace zek
