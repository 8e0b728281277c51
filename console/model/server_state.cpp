#include "console/model/server_state.h"

#include <algorithm>

namespace zek {
namespace {

std::string lineOf(const std::string& key, const Decision& decision) {
    const std::string line =
        key + (decision.accepted ? " accepted by " : " rejected by ") + decision.by;
    return decision.reason.empty() ? line : line + ": " + decision.reason;
}

std::string lineOf(Change change) {
    std::ranges::sort(change.fields, {}, &Field::id);
    std::string line = change.key + " pending";
    for (const Field& field : change.fields)
        line += " " + std::to_string(field.id) + "=" + field.occurrences.front().value_or("?");
    return line;
}

}  // namespace

std::string stateOf(const AuthorizationServer& server) {
    std::string text;
    for (const std::string& key : server.decidedKeys())
        text += lineOf(key, *server.decision(key)) + "\n";
    for (const std::string& key : server.pendingKeys()) text += lineOf(*server.pending(key)) + "\n";
    return text;
}

}  // namespace zek
