#include "console/model/registry.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zek {
namespace {

constexpr int kListFields[] = {10109, 44201, 64815};  // order types, attributes, actions

bool isList(int id) {
    return std::ranges::find(kListFields, id) != std::end(kListFields);
}

void replaceIfKnown(std::string& text, const std::string& with) {
    if (!with.empty()) text = with;
}

// Without what is not a new value.
Field newValues(Field field, ChangeAction action) {
    const bool allAreNew = action == ChangeAction::add || isList(field.id);
    if (!allAreNew && field.occurrences.size() > 1) field.occurrences.resize(1);
    return field;
}

void merge(Fields& into, const Change& change) {
    for (const Field& field : change.fields) {
        Field now = newValues(field, changeCode(change.code).action);
        if (Field* known = findField(into, field.id))
            *known = std::move(now);
        else
            into.push_back(std::move(now));
    }
}

template <class Entry>
const Entry* lookUp(const std::map<std::string, Entry>& entries, const std::string& id) {
    const auto found = entries.find(id);
    return found != entries.end() ? &found->second : nullptr;
}

// Does to users or clients what they have in common; the entry that the change acted on, a new one
// for an addition, or null when it removed it.
template <class Entry>
Entry* applyTo(std::map<std::string, Entry>& entries, const std::string& id, const Change& change) {
    const ChangeAction action = changeCode(change.code).action;
    if (action == ChangeAction::remove) {
        entries.erase(id);
        return nullptr;
    }
    Entry& entry = entries[id];
    if (action == ChangeAction::add) entry = {};
    entry.id = id;
    replaceIfKnown(entry.broker, change.broker);
    replaceIfKnown(entry.branch, change.branch);
    replaceIfKnown(entry.type, change.type);
    merge(entry.fields, change);
    return &entry;
}

}  // namespace

void Registry::put(User user) {
    m_users.insert_or_assign(user.id, user);
}

void Registry::put(Client client) {
    m_clients.insert_or_assign(client.id, client);
}

void Registry::apply(const Change& change) {
    switch (changeCode(change.code).kind) {
        case ChangeKind::user:
            applyTo(m_users, change.user, change);
            return;
        case ChangeKind::client:
            return applyToClient(change);
        case ChangeKind::limits:
            return applyLimits(change);
        case ChangeKind::unknown:
            return;
    }
}

void Registry::applyToClient(const Change& change) {
    Client* const client = applyTo(m_clients, change.client, change);
    if (client == nullptr) return;
    replaceIfKnown(client->owner, change.user);
    replaceIfKnown(client->group, change.group);
}

void Registry::applyLimits(const Change& change) {
    auto& limits = m_limits[entityOf(change)];
    for (const Field& field : change.fields)
        if (const auto text = textOf(change.fields, field.id)) limits[field.id] = *text;
}

const User* Registry::user(const std::string& id) const {
    return lookUp(m_users, id);
}

const Client* Registry::client(const std::string& id) const {
    return lookUp(m_clients, id);
}

std::optional<std::string> Registry::limit(const Entity& entity, int field) const {
    const auto limits = m_limits.find(entity);
    if (limits == m_limits.end()) return std::nullopt;
    const auto found = limits->second.find(field);
    if (found == limits->second.end()) return std::nullopt;
    return found->second;
}

}  // namespace zek
