// The simulated authorization server: makers submit changes, checkers decide them.
//
//   1. registry().put() users and clients that exist; connections() connects receivers and
//      subscribes them.
//   2. submit() a maker's change: it gets a key, waits, and is published as "auth pending".
//   3. handle() a checker's requests; decideAs() plays another checker.
//   4. connections().deliverNext() hands out what all of these have queued, one message per call.
//
// Requests, distinguished by field 0, and what answers them (the request's name in 32767, always):
//
// clang-format off
//   om_get_auth_user_details      54247 who asks, 51803 key. Answer: 51803, the id of whom the
//   om_get_auth_account_details   change is about (unless the details carry that field themselves),
//   om_get_auth_limits_details    then the details in order, each with its occurrences.
//   om_authenticate_functionality 54294 who decides, 51803 key, 63713 code, 10303 "accepted" or
//                                 "rejected", 32766 the reason of a reject; 31003 or 54001 may name
//                                 the entity; any other field is a limit. Answer: 51803. The
//                                 outcome is published with the change's identification.
//   om_get_functionality_details  31003 who asks. Answers: one for each pending change that somebody
//                                 else made, in order of arrival, with the fields of a publication.
// clang-format on
//
// An update is a decision on limits (code 360, "accepted") that carries limit fields: it edits the
// new values of the pending change and leaves it pending, so that the next request for its details
// shows them. Accepting without limit fields decides it.
//
// A request that cannot be met changes nothing; its answer carries the text in 32766, and 51803
// when the request had a key.
//
// Everything is queued, so a receiver may send its next request from inside a callback. One thread.
#pragma once

#include <list>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "console/model/change.h"
#include "console/model/connections.h"
#include "console/model/registry.h"

namespace zek {

// How a change ended.
struct Decision {
    bool accepted = false;
    std::string by;
    std::string reason;  // of a reject

    bool operator==(const Decision&) const = default;
};

class AuthorizationServer {
public:
    // The receivers, and what waits for them.
    Connections& connections() { return m_connections; }
    const Connections& connections() const { return m_connections; }

    // Takes a request, which stays the caller's, and queues its answer. Returns the request's id.
    int handle(int connection, void* message);

    // Makers. Returns the key.
    std::string submit(Change change);
    // Another checker. Returns why it was refused, or an empty text.
    std::string decideAs(const std::string& user, const std::string& key, bool accepted,
                         const std::string& reason);

    // A look inside, for tests and for the console's own windows.
    std::vector<std::string> pendingKeys() const;  // in order of arrival
    const Change* pending(const std::string& key) const;
    std::optional<Decision> decision(const std::string& key) const;
    const std::vector<std::string>& decidedKeys() const { return m_decidedKeys; }  // in this order
    Registry& registry() { return m_registry; }
    const Registry& registry() const { return m_registry; }

private:
    struct Request {
        int connection;
        std::string name;
        Fields fields;
    };
    struct RequestEntry;
    using Pending = std::list<Change>;

    static const RequestEntry& requestEntry(const std::string& name);
    void answerDetails(const Request& request);
    void answerDecision(const Request& request);
    void answerRecovery(const Request& request);
    void answer(const Request& request, Fields fields);
    void refuse(const Request& request, const std::string& why);

    Pending::iterator findPending(const std::string& key);
    Pending::iterator findDecidable(const std::string& user, const std::string& key);
    void decide(Pending::iterator change, Decision decision);
    void publish(const Change& change, const char* status);
    Connections m_connections;
    long long m_lastKey = 1000;
    Pending m_pending;  // in order of arrival
    std::unordered_map<std::string, Pending::iterator> m_pendingByKey;
    std::unordered_map<std::string, Decision> m_decided;
    std::vector<std::string> m_decidedKeys;
    Registry m_registry;
};

}  // namespace zek
