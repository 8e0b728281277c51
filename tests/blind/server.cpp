#include "tests/blind/server.h"

#include <algorithm>
#include <utility>

namespace blind {
namespace {

constexpr struct {
    const char *code, *name, *request;
    int weight;
} kKinds[] = {
    {"339", "ADD USER", "om_get_auth_user_details", 20},
    {"340", "MODIFY USER", "om_get_auth_user_details", 10},
    {"353", "ADD CLIENT", "om_get_auth_account_details", 20},
    {"354", "MODIFY CLIENT", "om_get_auth_account_details", 10},
    {"360", "RMS Limits", "om_get_auth_limits_details", 30},
    {"365", "DELETE USER", "", 5},
    {"366", "DELETE Account", "", 5},
};

const auto& kindOf(const std::string& code) {
    return *std::ranges::find(kKinds, code,
                              [](const auto& kind) { return std::string(kind.code); });
}

bool ofUser(const std::string& code) {
    return code == "339" || code == "340" || code == "365";
}

}  // namespace

const std::vector<Limit> kLimits{
    {64031, "Cash Margin", Limit::amount},     {64164, "Finance Limit", Limit::amount},
    {64211, "Buy Sec Limit", Limit::count},    {64210, "Sell Sec Limit", Limit::count},
    {54019, "MToM Loss Limit", Limit::amount}, {64037, "GroupWise Validation", Limit::choice},
};

std::string Change::kind() const {
    return kindOf(code).name;
}

std::string Change::detailRequest() const {
    return kindOf(code).request;
}

std::string Change::cell(const std::string& caption) const {
    const Texts cells{{"Entity Name", entity}, {"Auth Type", kind()}, {"Key", key},
                      {"Maker", maker},        {"Branch", branch},    {"Broker", broker}};
    const auto found = cells.find(caption);
    return found != cells.end() ? found->second : "";
}

std::string Server::publish(const Change& change) {
    Fields more{{54247, change.maker}, {64053, change.branch}, {64056, change.broker}};
    if (change.isInvestor()) more.emplace_back(54036, change.type);
    if (ofUser(change.code)) more.emplace_back(31003, change.entity);
    if (change.code == "360") {
        more.erase(more.begin() + 1, more.end());  // else they name the entity
        more.emplace_back(54001, change.entity.substr(sizeof "Client - " - 1));
    } else if (!ofUser(change.code)) {
        more.emplace_back(54001, change.entity);
        if (change.isInvestor()) more.emplace_back(31003, change.linked);
    }
    m_pending[change.key] = change;
    m_news.published.insert(change.key);
    m_plugin.publish(::pending(change.key, change.code, more));
    return "publish " + change.key + " " + change.kind() + " " + change.entity;
}

std::string Server::publishNew() {
    if (m_pending.size() >= 30) return publishOutcome();
    const auto& kind = m_dice.weighted(kKinds);
    const std::string number = std::to_string(m_dice.below(4));
    Change change{.key = std::to_string(++m_lastKey), .code = kind.code};
    change.maker = "MAKER" + std::to_string(m_dice.below(12));
    if ((change.code == "339" || change.code == "353") && m_dice.chance(70))
        change.type = "INVESTOR_CLIENT";
    if (change.code == "360") {
        change.entity = "Client - C" + std::to_string(m_dice.below(9));
        return publish(change);
    }
    change.entity = (ofUser(change.code) ? "USR" : "CL") + number;
    if (change.isInvestor() && change.code == "353") change.linked = "USR" + number;
    change.branch = m_dice.chance(50) ? "a~b" : "<none>";
    change.broker = "BRK" + std::to_string(m_dice.below(12));
    return publish(change);
}

std::string Server::publishAgain() {
    if (m_pending.empty()) return publishNew();
    Change change = m_dice.oneOf(m_pending).second;
    change.maker = "MAKER" + std::to_string(m_dice.below(12));
    return publish(change);
}

std::string Server::publishOutcome() {
    if (m_pending.empty()) return publishNew();
    const std::string key = m_dice.oneOf(m_pending).first;
    const char* status = m_dice.chance(50) ? "accepted" : "rejected";
    m_pending.erase(key);
    m_news.ended.insert(key);
    m_plugin.publish(outcome(key, status));
    return std::string(status) + " " + key;
}

Texts limitsIn(const Fields& request) {
    Texts values;
    for (const Limit& limit : kLimits) {
        const std::string value = sentField(request, limit.field);
        if (value == "<absent>") continue;
        values[limit.caption] = limit.is != Limit::choice ? value : (value == "yes" ? "E" : "D");
    }
    return values;
}

// What an update sent is no edit any more.
void Server::noteRequest(const Fields& request, const std::string& tag) {
    const std::string name = sentField(request, 0);
    const auto answer = m_answers.find(tag);
    if (answer != m_answers.end())
        for (const auto& [caption, value] : limitsIn(request))
            answer->second.values[caption] = answer->second.sent[caption] = value;
    if (!name.starts_with("om_get_auth_")) return;
    m_unanswered.push_back({name, sentField(request, 51803)});
    m_all.push_back(m_unanswered.back());
}

// What a request of this name is answered with. Values are below zero or end in .25, which nobody
// types, so that an edited value differs from every received one.
Fields Server::fieldsOf(const Request& request, const std::string& key) {
    const std::string tag = "K" + key + "/" + std::to_string(m_answers.size());
    Answer& made = m_answers[tag];
    made.key = key;
    const std::string who = "W" + key;
    if (request.name == "om_get_auth_user_details")
        return {{31003, who}, {30001, tag}, {30001, "old"}, {54220, "P"}, {54220, "Q"}};
    if (request.name == "om_get_auth_account_details")
        return {{54001, who}, {54002, tag}, {54002, "old"}, {50110, "a@b"}, {64954, "x"}};
    Fields fields{{54001, who}, {13034, tag}};
    for (const Limit& limit : kLimits) {
        if (m_dice.chance(15)) continue;
        const std::string number = std::to_string(m_dice.below(9) + 1);
        const bool yes = m_dice.chance(50);
        const std::string sent = limit.is == Limit::amount  ? number + "000.25"
                                 : limit.is == Limit::count ? "-" + number
                                                            : (yes ? "yes" : "no");
        fields.emplace_back(limit.field, sent);
        if (m_dice.chance(70)) fields.emplace_back(limit.field, sent);
        made.values[limit.caption] = limit.is == Limit::choice ? (yes ? "E" : "D") : sent;
    }
    return fields;
}

// Mostly the request that waits longest, sometimes another or one that was answered before; now and
// then with an error, of another kind, or without the key. Without a key a second answer, or one of
// another kind, would be the right one of another request.
std::string Server::answerSomething() {
    if (m_all.empty()) return publishNew();
    const bool asked = !m_unanswered.empty() && m_dice.chance(85);
    auto& from = asked ? m_unanswered : m_all;
    const auto at = from.begin() +
                    (asked && m_dice.chance(75) ? 0 : m_dice.below(static_cast<int>(from.size())));
    Request request = *at;
    const std::string key = request.key;
    if (asked) m_unanswered.erase(at);
    std::string said = "answer " + key;
    const bool withKey = !asked || m_dice.chance(85);
    if (withKey && m_dice.chance(6)) {
        request.name = kKinds[m_dice.below(5)].request;
        said += " by " + request.name;
    }
    Fields fields{{32767, request.name}};
    if (withKey)
        fields.emplace_back(51803, key);
    else
        said += " without key";
    if (m_dice.chance(8)) {
        fields.emplace_back(32766, "no such change");
        said += " with an error";
    } else {
        const Fields more = fieldsOf(request, key);
        fields.insert(fields.end(), more.begin(), more.end());
    }
    m_news.answered.insert(key);
    answer(fields);
    return said;
}

const Server::Answer* Server::answerOf(const std::string& tag) const {
    const auto found = m_answers.find(tag);
    return found != m_answers.end() ? &found->second : nullptr;
}

std::vector<std::string> Server::acceptsOf(const std::vector<std::string>& selected) const {
    std::vector<std::string> sent;
    std::vector<const Change*> users, clients;
    for (const std::string& key : selected) {
        const auto found = m_pending.find(key);
        if (found == m_pending.end()) continue;
        const Change& change = found->second;
        const bool user = change.code == "339", client = change.code == "353";
        if (change.isInvestor() && (user || client))
            (user ? users : clients).push_back(&change);
        else
            sent.push_back(key);
    }
    for (auto client = clients.rbegin(); client != clients.rend(); ++client) {
        for (auto user = users.end(); user != users.begin();) {
            if ((*--user)->entity != (*client)->linked) continue;
            sent.insert(sent.end(), {(*user)->key, (*client)->key});
            user = users.erase(user);
        }
    }
    return sent;
}

}  // namespace blind
