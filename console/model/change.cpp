#include "console/model/change.h"

#include <algorithm>

namespace zek {
namespace {

constexpr ChangeCode kCodes[] = {
    {"339", "add-user", ChangeKind::user, ChangeAction::add},
    {"340", "modify-user", ChangeKind::user, ChangeAction::modify},
    {"365", "delete-user", ChangeKind::user, ChangeAction::remove},
    {"353", "add-client", ChangeKind::client, ChangeAction::add},
    {"354", "modify-client", ChangeKind::client, ChangeAction::modify},
    {"366", "delete-client", ChangeKind::client, ChangeAction::remove},
    {"360", "limits", ChangeKind::limits, ChangeAction::set},
};

constexpr ChangeCode kUnknownCode = {"", "", ChangeKind::unknown, ChangeAction::none};

constexpr Identification kIdentifications[] = {
    {field::kType, "type", &Change::type},       {field::kMaker, "maker", &Change::maker},
    {field::kBroker, "broker", &Change::broker}, {field::kBranch, "branch", &Change::branch},
    {field::kGroup, "group", &Change::group},    {field::kUser, "user", &Change::user},
    {field::kClient, "client", &Change::client},
};

// The levels of limits, from the widest to the narrowest.
constexpr Identification kLevels[] = {
    {field::kBroker, "broker", &Change::broker}, {field::kBranch, "branch", &Change::branch},
    {field::kGroup, "group", &Change::group},    {field::kUser, "user", &Change::user},
    {field::kClient, "client", &Change::client},
};

Entity levelOf(const Change& change) {
    for (const Identification& level : kLevels)
        if (!(change.*level.text).empty()) return {level.field, change.*level.text};
    return {};
}

}  // namespace

std::span<const ChangeCode> changeCodes() {
    return kCodes;
}

const ChangeCode& changeCode(std::string_view code) {
    const auto* found = std::ranges::find(kCodes, code, &ChangeCode::code);
    return found != std::end(kCodes) ? *found : kUnknownCode;
}

const char* codeOf(ChangeKind kind, ChangeAction action) {
    return std::ranges::find_if(
               kCodes,
               [&](const ChangeCode& each) { return each.kind == kind && each.action == action; })
        ->code;
}

std::span<const Identification> identifications() {
    return kIdentifications;
}

Entity entityOf(const Change& change) {
    switch (changeCode(change.code).kind) {
        case ChangeKind::user:
            return {field::kUser, change.user};
        case ChangeKind::client:
            return {field::kClient, change.client};
        case ChangeKind::limits:
            return levelOf(change);
        case ChangeKind::unknown:
            break;
    }
    return {};
}

}  // namespace zek
