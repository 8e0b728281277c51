// What must come of a session: the fate of every change, the checker's list, the lines of the log.
//
// Written from the rules of the checker's side; it shares the data of a change with the console,
// and no code with the server or the plug-in. Everything happens at once here: what it says holds
// when the console has come to rest.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "console/model/change.h"

namespace road {

struct Checker {
    std::string user;
    int level;                    // 0: hears of every change; 2: of those of the branch `user`
    bool limits, users, clients;  // which kinds may be seen
    bool mayModify;
};

// A row of the details list.
struct Detail {
    std::string field, value, oldValue;
    int id;
};

class Model {
public:
    // Makers, and another checker.
    void submit(const zek::Change& change);
    void decideElsewhere(int key, const std::string& checker, bool accepted);

    // The console: a plug-in starts without a list, open() is the hot key. A plug-in that is loaded
    // again beside its frame has the list at once and hears of nothing.
    void logIn(const Checker& checker);
    void open();
    void reload();

    // The workbench. accept() returns what its message box says, or an empty text.
    void recover();
    void select(const std::vector<int>& rows);  // one by one, in this order
    std::string accept(const std::vector<int>& selected);
    void reject(const std::vector<int>& selected, const std::string& reason);
    void showDetails(int key);
    void edit(int field, const std::string& text);
    void update();
    bool hasEdits() const { return !m_edits.empty(); }
    void dropEdits() { m_edits.clear(); }
    void filter(const std::string& column, const std::string& text);
    void sort(const std::string& column);

    // What is seen then.
    std::vector<int> shown() const;  // keys, from the first row to the last
    std::string cell(int key, const std::string& column) const;
    const zek::Change& change(int key) const { return caseOf(key).change; }
    std::vector<int> pending() const;
    // Rows that stand in the details list; how many lines it has, where the model knows.
    std::vector<Detail> details() const;
    std::optional<int> detailLines() const;

    std::string state() const;
    const std::string& log() const { return m_log; }

private:
    enum class Fate { pending, accepted, rejected };
    struct Case {
        zek::Change change;
        Fate fate = Fate::pending;
        std::string by, reason;
    };

    Case& caseOf(int key);
    const Case& caseOf(int key) const { return const_cast<Model*>(this)->caseOf(key); }
    bool hears(const zek::Change& change) const;
    bool maySee(const zek::Change& change) const;
    bool passes(int key) const;
    std::vector<int> shownOf(const std::vector<int>& selected) const;
    void decide(int key, const std::string& checker, Fate fate, const std::string& reason);
    void sendAccept(int key);
    void clearDetails();
    void report(const std::string& text);

    std::vector<Case> m_cases;
    std::vector<int> m_decided;  // keys, in this order
    Checker m_checker;
    bool m_isOpen = false;
    bool m_isSubscribed = false;
    std::vector<int> m_listed;  // keys, as they came
    std::vector<std::pair<std::string, std::string>> m_filters;
    std::string m_sortColumn;
    bool m_isDescending = false;
    int m_shownKey = 0;                     // whose details were asked for; 0 for none
    std::optional<zek::Change> m_answered;  // what the details list was filled with
    std::map<int, std::string> m_edits;
    std::string m_log;
};

}  // namespace road
