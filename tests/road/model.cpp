#include "tests/road/model.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>

namespace road {
namespace {

constexpr int kFirstKey = 1001;
constexpr char kBroker[] = "ZEKB";

using Group = bool Checker::*;

constexpr struct Code {
    const char* code;
    const char* authType;
    const char* details;  // what is reported when its details are asked for; null: they are not
    Group right;
} kCodes[] = {
    {"339", "ADD USER", "Request for getting entities details sent ", &Checker::users},
    {"340", "MODIFY USER", "Request for getting entities details sent ", &Checker::users},
    {"365", "DELETE USER", nullptr, &Checker::users},
    {"353", "ADD CLIENT", "Request for getting account details sent ", &Checker::clients},
    {"354", "MODIFY CLIENT", "Request for getting account details sent ", &Checker::clients},
    {"366", "DELETE Account", nullptr, &Checker::clients},
    {"360", "RMS Limits", "Request for getting entities details sent ", &Checker::limits},
};

const Code& codeOf(const zek::Change& change) {
    return *std::ranges::find(kCodes, change.code, [](const Code& each) { return each.code; });
}

bool isInvestor(const zek::Change& change) {
    return change.type == "INVESTOR_CLIENT";
}

// --- Cells ---------------------------------------------------------------------------------------

std::string nameOf(const zek::Change& change) {
    const auto& [code, authType, details, right] = codeOf(change);
    if (right == &Checker::users) return change.user;
    if (right == &Checker::clients) return change.client;
    if (!change.broker.empty()) return "Broker - " + change.broker;
    if (!change.branch.empty()) return "Branch - " + change.branch;
    if (!change.group.empty()) return "Account Group - " + change.group;
    return change.user.empty() ? "Client - " + change.client : "Dealer - " + change.user;
}

std::string lower(std::string text) {
    for (char& letter : text)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return text;
}

bool matchesOne(const std::string& text, const std::string& pattern) {
    const double limit = std::atof(pattern.c_str() + 1);
    if (pattern.front() == '>') return std::atof(text.c_str()) > limit;
    if (pattern.front() == '<') return std::atof(text.c_str()) < limit;
    if (pattern.front() != '*') return text.starts_with(pattern);
    if (pattern.back() != '*') return text.ends_with(pattern.substr(1));
    return text.find(pattern.substr(1, pattern.size() - 2)) != std::string::npos;
}

bool matches(const std::string& text, std::string pattern) {
    for (std::size_t end = 0; end != std::string::npos; pattern.erase(0, end + 1)) {
        end = pattern.find('~');
        if (matchesOne(lower(text), lower(pattern.substr(0, end)))) return true;
        if (end == std::string::npos) return false;
    }
    return false;
}

// --- Details -------------------------------------------------------------------------------------

// The fields of the storm's changes that stand in one row each. Amounts are shown by way of single
// precision; an edited one leaves with two decimals, a count with none.
enum class Kind { text, amount, count };
constexpr struct {
    int id;
    const char* caption;
    Kind kind;
} kFields[] = {
    {30001, "DealerName", Kind::text},
    {50110, "Email Add", Kind::text},
    {10046, "Address", Kind::text},
    {63227, "Max Scrip Count", Kind::text},
    {64916, "Pan No", Kind::text},
    {43438, "2FA Enable", Kind::text},
    {54002, "Client Name", Kind::text},
    {50111, "Mobile No", Kind::text},
    {64840, "NSE UCC", Kind::text},
    {64911, "Bank Name 1", Kind::text},
    {64953, "Acct NO1", Kind::text},
    {64031, "Cash Margin", Kind::amount},
    {64164, "Finance Limit", Kind::amount},
    {64033, "Exposure Limit", Kind::amount},
    {64035, "Turnover Limit", Kind::amount},
    {64177, "Buy Exp Limit", Kind::amount},
    {64178, "Sell Exp Limit", Kind::amount},
    {54019, "MToM Loss Limit", Kind::amount},
    {64211, "Buy Sec Limit", Kind::count},
    {64210, "Sell Sec Limit", Kind::count},
    {41236, "Order quantity limit", Kind::count},
    {41336, "Premium Net Limit", Kind::text},
    {64420, "Buy Exposure limit for FO and Com", Kind::text},
    {64421, "Sell Exposure limit for FO and Com", Kind::text},
    {41282, "Dane Limit", Kind::text},
};

std::string decimal(double number, int places) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", places, number);
    return text;
}

std::string shownAs(Kind kind, const std::string& text) {
    return kind == Kind::amount ? decimal(std::strtof(text.c_str(), nullptr), 2) : text;
}

std::string occurrence(const zek::Field& field, std::size_t place) {
    return place < field.occurrences.size() ? field.occurrences[place].value_or("") : "";
}

}  // namespace

Model::Case& Model::caseOf(int key) {
    return m_cases[static_cast<std::size_t>(key - kFirstKey)];
}

// --- Who sees what -------------------------------------------------------------------------------

bool Model::hears(const zek::Change& change) const {
    const bool isOfBranch = change.broker == kBroker && change.branch == m_checker.user;
    return m_isSubscribed && (m_checker.level == 0 || isOfBranch);
}

bool Model::maySee(const zek::Change& change) const {
    const Group right = isInvestor(change) && codeOf(change).right == &Checker::users
                            ? &Checker::clients
                            : codeOf(change).right;
    return change.maker != m_checker.user && m_checker.*right;
}

void Model::submit(const zek::Change& change) {
    m_cases.push_back({change, Fate::pending, {}, {}});
    if (hears(change) && maySee(change))
        m_listed.push_back(kFirstKey + static_cast<int>(m_cases.size()) - 1);
}

void Model::decideElsewhere(int key, const std::string& checker, bool accepted) {
    decide(key, checker, accepted ? Fate::accepted : Fate::rejected, "Decided elsewhere");
}

// The server's part of a decision: each change is decided once, and never by its maker.
void Model::decide(int key, const std::string& checker, Fate fate, const std::string& reason) {
    Case& decided = caseOf(key);
    if (decided.fate != Fate::pending || decided.change.maker == checker) return;
    decided = {decided.change, fate, checker, reason};
    m_decided.push_back(key);
    if (!hears(decided.change)) return;
    std::erase(m_listed, key);
    if (m_shownKey == key) clearDetails();
}

// --- The console ---------------------------------------------------------------------------------

void Model::logIn(const Checker& checker) {
    reload();
    m_isOpen = false;
    m_checker = checker;
}

void Model::open() {
    if (!m_isOpen) m_isSubscribed = true;
    m_isOpen = true;
}

void Model::reload() {
    m_isOpen = true;
    m_isSubscribed = false;
    m_listed.clear();
    m_filters.clear();
    m_sortColumn.clear();
    clearDetails();
}

// --- The workbench -------------------------------------------------------------------------------

void Model::report(const std::string& text) {
    m_log += "Maker Checker Zek Message : " + text + "\n";
}

void Model::clearDetails() {
    m_shownKey = 0;
    m_answered.reset();
    m_edits.clear();
}

void Model::recover() {
    clearDetails();
    report("Request sent to Recovery");
    for (const int key : pending())
        if (maySee(change(key)) && std::ranges::find(m_listed, key) == m_listed.end())
            m_listed.push_back(key);
}

// Details go when another change is selected.
void Model::select(const std::vector<int>& rows) {
    if (rows.front() != m_shownKey) clearDetails();
}

std::vector<int> Model::shownOf(const std::vector<int>& selected) const {
    std::vector<int> rows = shown();
    std::erase_if(rows, [&](int key) { return std::ranges::count(selected, key) == 0; });
    return rows;
}

void Model::sendAccept(int key) {
    report("Request sent to Accept Authentication");
    decide(key, m_checker.user, Fate::accepted, {});
}

// An investor's new user and new client leave together, the user first.
std::string Model::accept(const std::vector<int>& selected) {
    std::vector<int> users;
    std::vector<int> clients;
    for (const int key : shownOf(selected)) {
        const zek::Change& asked = change(key);
        if (isInvestor(asked) && asked.code == "339")
            users.push_back(key);
        else if (isInvestor(asked) && asked.code == "353")
            clients.push_back(key);
        else
            sendAccept(key);
    }
    for (const int client : std::vector(clients.rbegin(), clients.rend()))
        for (const int user : std::vector(users.rbegin(), users.rend()))
            if (change(user).user == change(client).user) {
                sendAccept(user);
                sendAccept(client);
                std::erase(users, user);
                std::erase(clients, client);
            }
    const std::vector<int>& alone = users.empty() ? clients : users;
    if (alone.empty()) return {};
    std::string warning = "Autenticate User and Account for";
    for (const int key : std::vector(alone.rbegin(), alone.rend()))
        warning += "  " + nameOf(change(key));
    report(warning + "For Investor client Autenticate User and Client Together");
    return warning;
}

void Model::reject(const std::vector<int>& selected, const std::string& reason) {
    if (reason.empty()) return;
    for (const int key : shownOf(selected)) {
        report("Request sent to Reject Authentication");
        decide(key, m_checker.user, Fate::rejected, reason);
    }
}

void Model::showDetails(int key) {
    clearDetails();
    const Case& asked = caseOf(key);
    const char* const request = codeOf(asked.change).details;
    if (request == nullptr) return;
    report(request);
    m_shownKey = key;
    if (asked.fate == Fate::pending) m_answered = asked.change;
}

void Model::edit(int field, const std::string& text) {
    const auto* known = std::ranges::find(kFields, field, [](const auto& each) { return each.id; });
    m_edits[field] = decimal(std::atof(text.c_str()), known->kind == Kind::count ? 0 : 2);
}

void Model::update() {
    if (m_edits.empty()) return;
    report("Request sent to Update RMS Limits Authentication");
    Case& updated = caseOf(m_shownKey);
    for (zek::Field& field : updated.change.fields)
        if (const auto edited = m_edits.find(field.id);
            edited != m_edits.end() && updated.fate == Fate::pending)
            field.occurrences.front() = edited->second;
    m_edits.clear();
}

void Model::filter(const std::string& column, const std::string& text) {
    std::erase_if(m_filters, [&](const auto& each) { return each.first == column; });
    if (!text.empty()) m_filters.emplace_back(column, text);
}

void Model::sort(const std::string& column) {
    m_isDescending = m_sortColumn == column && !m_isDescending;
    m_sortColumn = column;
}

// --- What is seen --------------------------------------------------------------------------------

std::string Model::cell(int key, const std::string& column) const {
    const zek::Change& asked = change(key);
    if (column == "Key") return std::to_string(key);
    if (column == "Entity Name") return nameOf(asked);
    if (column == "Auth Type") return codeOf(asked).authType;
    if (column == "Maker") return asked.maker;
    return column == "Branch" ? asked.branch : asked.broker;
}

bool Model::passes(int key) const {
    return std::ranges::all_of(
        m_filters, [&](const auto& each) { return matches(cell(key, each.first), each.second); });
}

std::vector<int> Model::shown() const {
    std::vector<int> rows;
    for (const int key : m_listed)
        if (passes(key)) rows.push_back(key);
    if (m_sortColumn.empty()) return rows;
    std::ranges::stable_sort(rows, [&](int left, int right) {
        if (m_isDescending) std::swap(left, right);
        if (m_sortColumn == "Key") return left < right;
        return cell(left, m_sortColumn) < cell(right, m_sortColumn);
    });
    return rows;
}

std::vector<int> Model::pending() const {
    std::vector<int> keys;
    for (int key = kFirstKey; const Case& each : m_cases) {
        if (each.fate == Fate::pending) keys.push_back(key);
        ++key;
    }
    return keys;
}

std::vector<Detail> Model::details() const {
    std::vector<Detail> rows;
    if (!m_answered) return rows;
    for (const zek::Field& field : m_answered->fields)
        for (const auto& known : kFields)
            if (known.id == field.id)
                rows.push_back({known.caption, shownAs(known.kind, occurrence(field, 0)),
                                occurrence(field, 1), field.id});
    return rows;
}

// Limits stand in one group, below its heading and the row that names their level.
std::optional<int> Model::detailLines() const {
    if (!m_answered) return 0;
    if (m_answered->code != "360") return std::nullopt;
    return 2 + static_cast<int>(m_answered->fields.size());
}

std::string Model::state() const {
    std::string text;
    for (const int key : m_decided) {
        const Case& each = caseOf(key);
        text += std::to_string(key) + (each.fate == Fate::accepted ? " accepted" : " rejected") +
                " by " + each.by + (each.reason.empty() ? "" : ": " + each.reason) + "\n";
    }
    for (const int key : pending()) {
        std::map<int, std::string> values;
        for (const zek::Field& field : change(key).fields) values[field.id] = occurrence(field, 0);
        text += std::to_string(key) + " pending";
        for (const auto& [id, value] : values) text += " " + std::to_string(id) + "=" + value;
        text += "\n";
    }
    return text;
}

}  // namespace road
