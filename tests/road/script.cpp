#include "tests/road/script.h"

#include <algorithm>
#include <random>
#include <set>

#include "console/model/scenario.h"
#include "console/model/storm.h"
#include "tests/road/model.h"

namespace road {
namespace {

constexpr int kChanges = 200;
constexpr int kStorm = 20000;
constexpr char kNoReason[] = "";

const Checker kFirst{"RISKADM1", 0, true, true, true, true};
const Checker kSecond{"RISKADM2", 0, true, true, true, true};
const Checker kOfUsers{"USERS", 0, false, true, false, false};
const Checker kOfBranch{"MUM01", 2, true, true, true, false};
const Checker kOfLimits{"LIMITS", 0, true, true, false, true};

constexpr struct {
    const char *column, *text;
} kFilters[] = {
    {"Auth Type", "rms"},
    {"Auth Type", "ADD USER~ADD CLIENT"},
    {"Auth Type", "*USER"},
    {"Maker", "*Er0*"},
    {"Maker", "maker03~MAKER05~Maker01"},
    {"Entity Name", "c~inv"},
    {"Key", ">1060"},
    {"Key", "<1150"},
    {"Branch", "*01"},
    {"Entity Name", "*5*"},
    {"Broker", "ZEKB"},
};
constexpr const char* kColumns[] = {"Entity Name", "Auth Type", "Key", "Maker", "Branch", "Broker"};
constexpr const char* kReasons[] = {"Wrong PAN", "Limit too high; ask again", kNoReason};

std::string quoted(const std::string& text) {
    return " \"" + text + "\"";
}

std::string iniOf(const Checker& checker) {
    std::string roles;
    if (checker.limits) roles += "60302,";
    if (checker.users) roles += "60303,";
    if (checker.clients) roles += "60304,";
    roles.pop_back();
    return "[" + checker.user + "]\nbroker = ZEKB\nlevel = " + std::to_string(checker.level) +
           "\nroles = " + roles + "\nmodify = " + (checker.mayModify ? "yes" : "no") + "\n";
}

// Steps go to the script and to the model alike.
class Session {
public:
    explicit Session(unsigned seed) : m_random(seed) {}

    Road play();

private:
    int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    template <class Item, std::size_t count>
    const Item& oneOf(const Item (&items)[count]) {
        return items[below(static_cast<int>(count))];
    }
    void step(const std::string& line) { m_script += line + "\n"; }

    void makeChanges();
    void logIn(const Checker& checker);
    void open();
    void reload();
    void work(int actions);
    void storm();
    void decideLatest();

    void ask();
    void submitNext();
    void decideElsewhere();
    void accept();
    void reject();
    void look();
    void editLimits();
    void update();
    void filter();
    void filterBy(const std::string& column, const std::string& text);
    void clearFilters();
    void sort() { sortBy(oneOf(kColumns)); }
    void sortBy(const std::string& column);
    void recover();

    std::vector<int> pick(int count);
    void addPartner(std::vector<int>& rows);
    void select(const std::vector<int>& rows);
    void showDetails(int key);
    void expectDetails();
    void dropEdits();
    void editSome();
    void expect(const char* how = "expect");

    std::mt19937 m_random;
    std::vector<zek::Change> m_changes;
    std::size_t m_next = 0;
    std::set<std::string> m_filtered;
    bool m_mayModify = true;
    Model m_model;
    std::string m_script;
};

// A storm's changes, with some made by the checkers themselves and some investors halved.
void Session::makeChanges() {
    constexpr const char* kMakers[] = {"RISKADM1", "RISKADM2", "MUM01"};
    for (zek::Change& change : zek::makeStorm(kChanges + kChanges / 4, m_random()).changes) {
        const bool isInvestor = change.type == zek::kInvestorClient;
        if (isInvestor && below(4) == 0) continue;
        if (!isInvestor && below(6) == 0) change.maker = oneOf(kMakers);
        m_changes.push_back(std::move(change));
    }
    m_changes.resize(kChanges);
}

Road Session::play() {
    makeChanges();
    m_model.logIn(kFirst);
    for (int early = 0; early < 12; ++early) submitNext();
    open();
    work(90);
    logIn(kSecond);
    work(50);
    for (const Checker& checker : {kOfUsers, kOfBranch}) {
        logIn(checker);
        work(15);
    }
    logIn(kOfLimits);
    storm();
    logIn(kFirst);
    reload();
    recover();
    decideLatest();
    reload();
    recover();
    reload();
    step("expect clean");

    Road road;
    for (const Checker& each : {kFirst, kSecond, kOfUsers, kOfBranch, kOfLimits})
        road.ini += iniOf(each);
    road.scenario = zek::writeScenario({{}, {}, m_changes});
    road.script = m_script;
    road.state = m_model.state();
    road.log = m_model.log();
    return road;
}

// --- The console ---------------------------------------------------------------------------------

void Session::logIn(const Checker& checker) {
    step("user " + checker.user);
    m_model.logIn(checker);
    m_mayModify = checker.mayModify;
    m_filtered.clear();
    open();
}

void Session::open() {
    step("hotkey");
    m_model.open();
    expect();
    recover();
}

void Session::reload() {
    step("menu \"Tools>Reload Plug-in\"");
    m_model.reload();
    m_filtered.clear();
    step("hotkey");
    expect();
}

void Session::storm() {
    while (m_next < m_changes.size()) ask();
    step("submit storm " + std::to_string(kStorm));
    for (const zek::Change& change : zek::makeStorm(kStorm, zek::kRepeatedSeed).changes)
        m_model.submit(change);
    expect("wait");
    decideLatest();
}

// Among very many rows, those on top of them.
void Session::decideLatest() {
    filterBy("Key", ">20900");
    sort();
    for (int round = 0; round < 5; ++round) {
        accept();
        reject();
        editLimits();
    }
    clearFilters();
}

// Something that a checker does, or that happens to him, as often as it stands here.
void Session::work(int actions) {
    using Action = void (Session::*)();
    static constexpr Action kActions[] = {
        &Session::ask,    &Session::ask,        &Session::ask,          &Session::accept,
        &Session::accept, &Session::accept,     &Session::reject,       &Session::decideElsewhere,
        &Session::look,   &Session::editLimits, &Session::update,       &Session::filter,
        &Session::sort,   &Session::recover,    &Session::clearFilters,
    };
    while (actions-- > 0) (this->*oneOf(kActions))();
    clearFilters();
}

// --- Makers, and another checker -----------------------------------------------------------------

void Session::ask() {
    for (int left = 1 + below(6); left > 0; --left) submitNext();
    expect();
}

void Session::submitNext() {
    if (m_next == m_changes.size()) return;
    step("submit next");
    m_model.submit(m_changes[m_next++]);
}

void Session::decideElsewhere() {
    std::vector<int> keys = m_model.pending();
    std::erase_if(keys, [&](int key) { return m_model.change(key).maker == kSecond.user; });
    if (keys.empty()) return;
    const int key = keys[static_cast<std::size_t>(below(static_cast<int>(keys.size())))];
    const bool accepted = below(2) == 0;
    step("decide " + std::to_string(key) + (accepted ? " accepted" : " rejected"));
    m_model.decideElsewhere(key, kSecond.user, accepted);
    expect();
}

// --- The checker ---------------------------------------------------------------------------------

std::vector<int> Session::pick(int count) {
    const std::vector<int> rows = m_model.shown();
    std::set<int> picked;
    while (count-- > 0 && !rows.empty())
        picked.insert(rows[static_cast<std::size_t>(below(static_cast<int>(rows.size())))]);
    return {picked.begin(), picked.end()};
}

// The other half of an investor among the rows, if it shows.
void Session::addPartner(std::vector<int>& rows) {
    for (const int row : std::vector(rows))
        for (const int other : m_model.shown())
            if (m_model.change(row).type == zek::kInvestorClient && other != row &&
                m_model.change(other).user == m_model.change(row).user &&
                std::ranges::count(rows, other) == 0)
                rows.push_back(other);
}

// In an order that is known, as decisions follow it.
void Session::select(const std::vector<int>& rows) {
    if (rows.size() > 1) sortBy("Key");
    std::string line = "select";
    for (const int key : rows) line += " " + std::to_string(key);
    step(line);
    m_model.select(rows);
}

void Session::accept() {
    std::vector<int> rows = pick(1 + below(4));
    if (below(3) > 0) addPartner(rows);
    if (rows.empty()) return clearFilters();
    select(rows);
    step("press \"Accept\"");
    if (const std::string warning = m_model.accept(rows); !warning.empty()) {
        step("wait message" + quoted(warning));
        step("close message");
    }
    expect();
}

void Session::reject() {
    const std::vector<int> rows = pick(1 + below(2));
    if (rows.empty()) return clearFilters();
    const std::string reason = oneOf(kReasons);
    select(rows);
    step("press \"Reject\"");
    step("wait message \"Enter Rejection Reason\"");
    step("type" + quoted(reason));
    step("press \"OK\"");
    m_model.reject(rows, reason);
    expect();
}

void Session::showDetails(int key) {
    step("double-click " + std::to_string(key));
    m_model.showDetails(key);
    expectDetails();
}

void Session::expectDetails() {
    expect();
    for (const Detail& row : m_model.details()) {
        step("expect detail" + quoted(row.field) + " \"Value\"" + quoted(row.value));
        step("expect detail" + quoted(row.field) + " \"Old Value\"" + quoted(row.oldValue));
    }
}

void Session::look() {
    const std::vector<int> rows = pick(1);
    if (rows.empty()) return clearFilters();
    showDetails(rows.front());
}

// Opened again after an update, they show what was sent.
void Session::editLimits() {
    std::vector<int> rows = m_model.shown();
    std::erase_if(rows, [&](int key) { return m_model.change(key).code != "360"; });
    if (rows.empty() || !m_mayModify) return look();
    const int key = rows[static_cast<std::size_t>(below(static_cast<int>(rows.size())))];
    showDetails(key);
    for (const Detail& row : m_model.details()) {
        if (below(2) == 0) continue;
        const std::string value = std::to_string(1 + below(90000)) + (below(2) == 0 ? ".25" : "");
        step("edit" + quoted(row.field) + quoted(value));
        m_model.edit(row.id, value);
    }
    if (below(3) == 0) return dropEdits();
    update();
    update();  // nothing is left to send
    showDetails(key);
}

void Session::dropEdits() {
    if (m_model.hasEdits()) {
        step("key Esc");
        step("wait message \"not been sent\"");
        step("press \"Yes\"");
        m_model.dropEdits();
    }
    update();  // nothing is left to send
    expectDetails();
}

void Session::update() {
    if (!m_mayModify) return;
    step("press \"Update\"");
    m_model.update();
    expect();
}

void Session::filter() {
    const auto& [column, text] = oneOf(kFilters);
    filterBy(column, text);
}

void Session::filterBy(const std::string& column, const std::string& text) {
    step("filter" + quoted(column) + quoted(text));
    m_model.filter(column, text);
    m_filtered.insert(column);
    expect();
}

void Session::clearFilters() {
    for (const std::string& column : m_filtered) {
        step("filter" + quoted(column) + " \"\"");
        m_model.filter(column, "");
    }
    m_filtered.clear();
    expect();
}

// Rows with the same text stand in any order.
void Session::sortBy(const std::string& column) {
    step("sort" + quoted(column));
    m_model.sort(column);
    const std::vector<int> rows = m_model.shown();
    for (std::size_t row = 0; row < rows.size(); row += 1 + rows.size() / 3)
        step("expect row #" + std::to_string(row + 1) + quoted(column) +
             quoted(m_model.cell(rows[row], column)));
}

void Session::recover() {
    step("press \"Recover\"");
    m_model.recover();
    expect(m_model.shown().size() > 1000 ? "wait" : "expect");
}

void Session::expect(const char* how) {
    step(std::string(how) + " rows " + std::to_string(m_model.shown().size()));
    if (const std::optional<int> lines = m_model.detailLines())
        step("wait details " + std::to_string(*lines));
}

}  // namespace

Road makeRoad(unsigned seed) {
    return Session(seed).play();
}

}  // namespace road
