// The state that authorized changes act on: users, clients and limits.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "console/model/change.h"

namespace zek {

// Authorized changes are taken as they come: adding what exists replaces it, modifying what does
// not exist creates it, deleting what does not exist does nothing. Two makers may have asked for
// either before anyone decided, and the checker's word counts.
class Registry {
public:
    void put(User user);
    void put(Client client);
    // Carries out a change. In an addition and in a list field every occurrence is a new value; in
    // other fields the first one is. A code that is not known changes nothing.
    void apply(const Change& change);

    const User* user(const std::string& id) const;
    const Client* client(const std::string& id) const;
    std::optional<std::string> limit(const Entity& entity, int field) const;
    const std::map<std::string, User>& users() const { return m_users; }
    const std::map<std::string, Client>& clients() const { return m_clients; }

private:
    void applyToClient(const Change& change);
    void applyLimits(const Change& change);

    std::map<std::string, User> m_users;
    std::map<std::string, Client> m_clients;
    std::map<Entity, std::map<int, std::string>> m_limits;
};

}  // namespace zek
