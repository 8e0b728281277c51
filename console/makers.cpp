#include "console/makers.h"

#include <utility>

namespace zek {

void Makers::load(Scenario scenario) {
    for (const User& user : scenario.users) m_exchange.server().registry().put(user);
    for (const Client& client : scenario.clients) m_exchange.server().registry().put(client);
    m_scenario = std::move(scenario);
    m_next = 0;
    m_exchange.touch();
}

std::string Makers::submit(const Change& change) {
    m_exchange.touch();
    return m_exchange.server().submit(change);
}

int Makers::submitNext() {
    if (m_next == m_scenario.changes.size()) {
        m_log.add(LogTab::server, "The scenario has no more changes");
        return 0;
    }
    const Change& change = m_scenario.changes[m_next++];
    const std::string key = submit(change);
    m_log.add(LogTab::server, change.maker + " asks for " + key + ": " +
                                  changeCode(change.code).word + " " + entityOf(change).id);
    return 1;
}

int Makers::submitAll() {
    int count = 0;
    while (m_next < m_scenario.changes.size()) count += submitNext();
    return count;
}

int Makers::submitStorm(int count) {
    const Scenario storm = makeStorm(count, m_seed++);
    for (const User& maker : storm.users) m_exchange.server().registry().put(maker);
    for (const Change& change : storm.changes) submit(change);
    m_log.add(LogTab::server, "The makers ask for " + std::to_string(count) + " changes");
    return count;
}

bool Makers::decide(const std::string& key, bool accepted) {
    const std::string refused =
        m_exchange.server().decideAs(kOtherChecker, key, accepted, "Decided elsewhere");
    m_exchange.touch();
    const std::string done = std::string(accepted ? "accepts " : "rejects ") + key;
    m_log.add(LogTab::server, refused.empty() ? kOtherChecker + (" " + done)
                                              : kOtherChecker + (" cannot decide: " + refused));
    return refused.empty();
}

bool Makers::decideOldest(bool accepted) {
    const std::vector<std::string> keys = m_exchange.server().pendingKeys();
    if (!keys.empty()) return decide(keys.front(), accepted);
    m_log.add(LogTab::server, "Nothing is pending");
    return false;
}

}  // namespace zek
