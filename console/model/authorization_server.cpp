#include "console/model/authorization_server.h"

#include <algorithm>

#include "console/model/owned_message.h"

namespace zek {
namespace {

constexpr char kPendingStatus[] = "auth pending";
constexpr char kAccepted[] = "accepted";
constexpr char kRejected[] = "rejected";

// Why a request cannot be met. It is thrown before anything has changed.
struct Refusal {
    std::string why;
};

std::string required(const Fields& request, int id) {
    std::optional<std::string> text = textOf(request, id);
    if (!text) throw Refusal{"Field " + std::to_string(id) + " is missing"};
    return *std::move(text);
}

Fields publicationOf(const Change& change, const char* status) {
    Fields fields = {makeField(field::kStatus, status), makeField(field::kKey, change.key)};
    if (!change.code.empty()) fields.push_back(makeField(field::kCode, change.code));
    for (const Identification& known : identifications())
        if (!(change.*known.text).empty())
            fields.push_back(makeField(known.field, change.*known.text));
    return fields;
}

Fields detailsOf(const Change& change) {
    Fields fields = {makeField(field::kKey, change.key)};
    const Entity entity = entityOf(change);
    if (!entity.id.empty() && findField(change.fields, entity.field) == nullptr)
        fields.push_back(makeField(entity.field, entity.id));
    fields.insert(fields.end(), change.fields.begin(), change.fields.end());
    return fields;
}

// Which kind of change each request for details is for.
constexpr struct {
    const char* request;
    ChangeKind kind;
} kDetailRequests[] = {
    {"om_get_auth_user_details", ChangeKind::user},
    {"om_get_auth_account_details", ChangeKind::client},
    {"om_get_auth_limits_details", ChangeKind::limits},
};

bool asksFor(const std::string& request, const Change& change) {
    return std::ranges::any_of(kDetailRequests, [&](const auto& entry) {
        return entry.request == request && entry.kind == changeCode(change.code).kind;
    });
}

constexpr int kDecisionFields[] = {field::kRequest, field::kSourceUser, field::kKey,
                                   field::kCode,    field::kDecision,   field::kError,
                                   field::kUser,    field::kClient};

Fields limitFieldsOf(const Fields& request) {
    Fields limits;
    for (const Field& sent : request)
        if (std::ranges::find(kDecisionFields, sent.id) == std::end(kDecisionFields))
            limits.push_back(makeField(sent.id, required(request, sent.id)));
    return limits;
}

// What the request says of the change must be true of it.
void checkDescription(const Fields& request, const Change& change) {
    if (required(request, field::kCode) != change.code)
        throw Refusal{"Change " + change.key + " has another functionality code"};
    const std::optional<std::string> user = textOf(request, field::kUser);
    const std::optional<std::string> client = textOf(request, field::kClient);
    if (user.value_or(change.user) != change.user ||
        client.value_or(change.client) != change.client)
        throw Refusal{"Change " + change.key + " is about another entity"};
}

Decision decisionIn(const Fields& request) {
    const std::string word = required(request, field::kDecision);
    if (word != kAccepted && word != kRejected) throw Refusal{"No such decision: " + word};
    if (word == kAccepted) return {true, required(request, field::kSourceUser), {}};
    return {false, required(request, field::kSourceUser), required(request, field::kError)};
}

void checkUpdate(const Change& change, const Decision& decision) {
    if (changeCode(change.code).kind != ChangeKind::limits || !decision.accepted)
        throw Refusal{"Only a limits change that is accepted can be updated"};
}

void editNewValues(Change& change, const Fields& limits) {
    for (const Field& limit : limits) {
        Field* field = findField(change.fields, limit.id);
        if (field == nullptr) field = &change.fields.emplace_back(Field{limit.id, {{}}});
        field->occurrences.front() = limit.occurrences.front();
    }
}

}  // namespace

struct AuthorizationServer::RequestEntry {
    const char* name;
    void (AuthorizationServer::*answer)(const Request& request);
};

const AuthorizationServer::RequestEntry& AuthorizationServer::requestEntry(
    const std::string& name) {
    static constexpr RequestEntry kRequests[] = {
        {"om_get_auth_user_details", &AuthorizationServer::answerDetails},
        {"om_get_auth_account_details", &AuthorizationServer::answerDetails},
        {"om_get_auth_limits_details", &AuthorizationServer::answerDetails},
        {"om_authenticate_functionality", &AuthorizationServer::answerDecision},
        {"om_get_functionality_details", &AuthorizationServer::answerRecovery},
    };
    const auto* found = std::ranges::find(kRequests, name, &RequestEntry::name);
    if (found == std::end(kRequests)) throw Refusal{"Unknown request: " + name};
    return *found;
}

int AuthorizationServer::handle(int connection, void* message) {
    if (!m_connections.contains(connection)) return 0;
    Request request{connection, {}, readFields(message)};
    request.name = textOf(request.fields, field::kRequest).value_or("");
    try {
        (this->*requestEntry(request.name).answer)(request);
    } catch (const Refusal& refusal) {
        refuse(request, refusal.why);
    }
    return m_connections.nextId();
}

void AuthorizationServer::answerDetails(const Request& request) {
    required(request.fields, field::kMaker);
    const auto change = findPending(required(request.fields, field::kKey));
    if (!asksFor(request.name, *change))
        throw Refusal{"Change " + change->key + " has another functionality code"};
    answer(request, detailsOf(*change));
}

void AuthorizationServer::answerDecision(const Request& request) {
    Decision decision = decisionIn(request.fields);
    const auto change = findDecidable(decision.by, required(request.fields, field::kKey));
    checkDescription(request.fields, *change);
    const Fields limits = limitFieldsOf(request.fields);
    if (!limits.empty()) checkUpdate(*change, decision);

    answer(request, {makeField(field::kKey, change->key)});
    if (limits.empty())
        decide(change, std::move(decision));
    else
        editNewValues(*change, limits);
}

void AuthorizationServer::answerRecovery(const Request& request) {
    const std::string asker = required(request.fields, field::kUser);
    for (const Change& change : m_pending)
        if (change.maker != asker) answer(request, publicationOf(change, kPendingStatus));
}

void AuthorizationServer::answer(const Request& request, Fields fields) {
    fields.insert(fields.begin(), makeField(field::kAnswerTo, request.name));
    m_connections.answer(request.connection, std::move(fields));
}

void AuthorizationServer::refuse(const Request& request, const std::string& why) {
    Fields fields = {makeField(field::kError, why)};
    if (const auto key = textOf(request.fields, field::kKey))
        fields.push_back(makeField(field::kKey, *key));
    answer(request, std::move(fields));
}

std::string AuthorizationServer::submit(Change change) {
    change.key = std::to_string(++m_lastKey);
    std::erase_if(change.fields, [](const Field& field) { return field.occurrences.empty(); });
    m_pending.push_back(std::move(change));
    m_pendingByKey.emplace(m_pending.back().key, std::prev(m_pending.end()));
    publish(m_pending.back(), kPendingStatus);
    return m_pending.back().key;
}

std::string AuthorizationServer::decideAs(const std::string& user, const std::string& key,
                                          bool accepted, const std::string& reason) {
    try {
        decide(findDecidable(user, key), {accepted, user, reason});
        return {};
    } catch (const Refusal& refusal) {
        return refusal.why;
    }
}

AuthorizationServer::Pending::iterator AuthorizationServer::findPending(const std::string& key) {
    const auto found = m_pendingByKey.find(key);
    if (found != m_pendingByKey.end()) return found->second;
    if (m_decided.contains(key)) throw Refusal{"Change " + key + " is decided already"};
    throw Refusal{"There is no change " + key};
}

AuthorizationServer::Pending::iterator AuthorizationServer::findDecidable(const std::string& user,
                                                                          const std::string& key) {
    const auto change = findPending(key);
    if (change->maker == user) throw Refusal{"Change " + key + " is " + user + "'s own"};
    return change;
}

void AuthorizationServer::decide(Pending::iterator pending, Decision decision) {
    const Change change = std::move(*pending);
    m_pendingByKey.erase(change.key);
    m_pending.erase(pending);
    if (decision.accepted) m_registry.apply(change);
    publish(change, decision.accepted ? kAccepted : kRejected);
    m_decided.emplace(change.key, std::move(decision));
    m_decidedKeys.push_back(change.key);
}

void AuthorizationServer::publish(const Change& change, const char* status) {
    m_connections.publish(publicationOf(change, status));
}

std::vector<std::string> AuthorizationServer::pendingKeys() const {
    std::vector<std::string> keys;
    keys.reserve(m_pending.size());
    for (const Change& change : m_pending) keys.push_back(change.key);
    return keys;
}

const Change* AuthorizationServer::pending(const std::string& key) const {
    const auto found = m_pendingByKey.find(key);
    return found != m_pendingByKey.end() ? &*found->second : nullptr;
}

std::optional<Decision> AuthorizationServer::decision(const std::string& key) const {
    const auto found = m_decided.find(key);
    if (found == m_decided.end()) return std::nullopt;
    return found->second;
}

}  // namespace zek
