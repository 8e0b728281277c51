// The receivers that are connected to the server, what they subscribed to, and what waits for them.
//
// Everything is queued, so a receiver may send its next request from inside a callback. One thread.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "console/model/change.h"

namespace zek {

// One receiver's ends. The message belongs to the server and lives until the call returns.
struct ReceiverCallbacks {
    std::function<void(void* message)> onAnswer;     // an answer to a request of this connection
    std::function<void(void* message)> onPublished;  // a publication that it subscribed to
};

// A publication must carry `value` in `field`; an empty value is a wildcard: the field may hold
// anything, or be absent.
struct SubscriptionPair {
    int field;
    std::string value;
};

class Connections {
public:
    // `onQueued` is called once for each delivery that is queued, for as many deliverNext() calls.
    void setQueuedNotice(std::function<void()> onQueued) { m_onQueued = std::move(onQueued); }

    // Ids are greater than 0, and 0 tells of an unknown connection.
    int connect(ReceiverCallbacks callbacks);
    // Its deliveries that still wait are dropped when their turn comes.
    void disconnect(int connection);
    int subscribe(int connection, std::vector<SubscriptionPair> pairs);
    // Ends every subscription of the connection, publications that still wait included. False for
    // an unknown connection.
    bool unsubscribe(int connection);

    bool contains(int connection) const { return m_connections.contains(connection); }
    int nextId() { return ++m_lastId; }  // of a request

    // Queues an answer for a connection, and a publication for those that subscribed to it.
    void answer(int connection, Fields fields);
    void publish(Fields fields);

    std::size_t pendingDeliveries() const { return m_deliveries.size(); }
    // False when nothing waited. What a callback throws goes through; the delivery is then done.
    bool deliverNext();

private:
    struct Connection {
        ReceiverCallbacks callbacks;
        std::vector<std::vector<SubscriptionPair>> subscriptions;
        int generation = 0;  // grows when it unsubscribes; older publications are dropped
    };
    enum class Way { answer, publication };
    struct Delivery {
        int connection;
        Way way;
        int generation;
        std::shared_ptr<const Fields> fields;
    };
    void queue(int connection, Way way, std::shared_ptr<const Fields> fields);

    std::function<void()> m_onQueued;
    std::map<int, Connection> m_connections;
    int m_lastId = 0;  // of connections, subscriptions and requests
    std::deque<Delivery> m_deliveries;
};

}  // namespace zek
