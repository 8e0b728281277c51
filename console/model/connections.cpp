#include "console/model/connections.h"

#include <algorithm>

#include "console/model/owned_message.h"

namespace zek {
namespace {

bool matches(const std::vector<SubscriptionPair>& pairs, const Fields& publication) {
    return std::ranges::all_of(pairs, [&](const SubscriptionPair& pair) {
        return pair.value.empty() || textOf(publication, pair.field) == pair.value;
    });
}

}  // namespace

int Connections::connect(ReceiverCallbacks callbacks) {
    m_connections[++m_lastId].callbacks = std::move(callbacks);
    return m_lastId;
}

void Connections::disconnect(int connection) {
    m_connections.erase(connection);
}

int Connections::subscribe(int connection, std::vector<SubscriptionPair> pairs) {
    const auto found = m_connections.find(connection);
    if (found == m_connections.end()) return 0;
    found->second.subscriptions.push_back(std::move(pairs));
    return ++m_lastId;
}

bool Connections::unsubscribe(int connection) {
    const auto found = m_connections.find(connection);
    if (found == m_connections.end()) return false;
    found->second.subscriptions.clear();
    ++found->second.generation;
    return true;
}

void Connections::answer(int connection, Fields fields) {
    queue(connection, Way::answer, std::make_shared<const Fields>(std::move(fields)));
}

void Connections::publish(Fields published) {
    const auto fields = std::make_shared<const Fields>(std::move(published));
    for (const auto& [id, connection] : m_connections) {
        const bool wanted = std::ranges::any_of(
            connection.subscriptions, [&](const auto& pairs) { return matches(pairs, *fields); });
        if (wanted) queue(id, Way::publication, fields);
    }
}

void Connections::queue(int connection, Way way, std::shared_ptr<const Fields> fields) {
    const int generation = m_connections.at(connection).generation;
    m_deliveries.push_back({connection, way, generation, std::move(fields)});
    if (m_onQueued) m_onQueued();
}

bool Connections::deliverNext() {
    if (m_deliveries.empty()) return false;
    const Delivery delivery = std::move(m_deliveries.front());
    m_deliveries.pop_front();
    const auto found = m_connections.find(delivery.connection);
    if (found == m_connections.end()) return true;
    const bool isAnswer = delivery.way == Way::answer;
    if (!isAnswer && delivery.generation != found->second.generation) return true;

    // A copy: the callback may disconnect its own connection.
    const ReceiverCallbacks callbacks = found->second.callbacks;
    const auto& receive = isAnswer ? callbacks.onAnswer : callbacks.onPublished;
    if (!receive) return true;
    const OwnedMessage message(*delivery.fields);
    receive(message.handle());
    return true;
}

}  // namespace zek
