// The tables of the frame's views: how pending changes, users and clients read.
#include <algorithm>
#include <cctype>

#include "console/server_view.h"

namespace zek {
namespace {

// --- Pending changes -----------------------------------------------------------------------------

template <auto member>
std::string changeText(const Change& change) {
    return change.*member;
}
// "Modify user" for "modify-user".
std::string changeWord(const Change& change) {
    std::string word = changeCode(change.code).word;
    std::ranges::replace(word, '-', ' ');
    if (!word.empty()) word.front() = static_cast<char>(std::toupper(word.front()));
    return word;
}
std::string changeEntity(const Change& change) {
    return entityOf(change).id;
}

constexpr ReportColumn kPendingColumns[] = {{"Key", 60},    {"Change", 100}, {"About", 110},
                                            {"Maker", 90},  {"Type", 120},   {"Broker", 70},
                                            {"Branch", 70}, {"Group", 80}};
constexpr std::string (*kPendingTexts[])(const Change& change) = {
    changeText<&Change::key>,
    changeWord,
    changeEntity,
    changeText<&Change::maker>,
    changeText<&Change::type>,
    changeText<&Change::broker>,
    changeText<&Change::branch>,
    changeText<&Change::group>,
};
static_assert(std::size(kPendingTexts) == std::size(kPendingColumns));

std::vector<std::string> pendingIds(const AuthorizationServer& server) {
    return server.pendingKeys();
}

std::string pendingText(const AuthorizationServer& server, const std::string& key, int column) {
    const Change* change = server.pending(key);
    return change != nullptr ? kPendingTexts[column](*change) : std::string();
}

// --- Users and clients ---------------------------------------------------------------------------

constexpr int kUserName = 30001;
constexpr int kClientName = 54002;

constexpr ReportColumn kRegistryColumns[] = {{"Id", 100},   {"Kind", 60},   {"Name", 150},
                                             {"Type", 120}, {"Broker", 70}, {"Branch", 70},
                                             {"Group", 80}, {"Owner", 90}};

// A user's texts, and below a client's, in the order of the columns.
std::string userText(const User& user, int column) {
    const std::string texts[] = {
        user.id,   "User",      textOf(user.fields, kUserName).value_or(""),
        user.type, user.broker, user.branch,
        "",        ""};
    return texts[column];
}

std::string clientText(const Client& client, int column) {
    const std::string texts[] = {
        client.id,    "Client",      textOf(client.fields, kClientName).value_or(""),
        client.type,  client.broker, client.branch,
        client.group, client.owner};
    return texts[column];
}

// Users and clients may share an id; the first character of a row's id tells them apart.
constexpr char kUserRow = 'U';
constexpr char kClientRow = 'C';

std::vector<std::string> registryIds(const AuthorizationServer& server) {
    std::vector<std::string> ids;
    for (const auto& [id, user] : server.registry().users()) ids.push_back(kUserRow + id);
    for (const auto& [id, client] : server.registry().clients()) ids.push_back(kClientRow + id);
    return ids;
}

std::string registryText(const AuthorizationServer& server, const std::string& id, int column) {
    const std::string name = id.substr(1);
    if (id.front() == kUserRow) {
        const User* user = server.registry().user(name);
        return user != nullptr ? userText(*user, column) : std::string();
    }
    const Client* client = server.registry().client(name);
    return client != nullptr ? clientText(*client, column) : std::string();
}

}  // namespace

const ServerTable& pendingTable() {
    static constexpr ServerTable table{"Pending Changes", kPendingColumns, pendingIds, pendingText};
    return table;
}

const ServerTable& registryTable() {
    static constexpr ServerTable table{"Users and Clients", kRegistryColumns, registryIds,
                                       registryText};
    return table;
}

}  // namespace zek
