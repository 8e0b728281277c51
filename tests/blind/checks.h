// What must hold after every action of a blind hand.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/blind/actor.h"
#include "tests/blind/filters.h"
#include "tests/blind/server.h"
#include "tests/blind/sight.h"

namespace blind {

// One action and what came of it.
struct Story {
    Act act;
    Sight before, after;
    std::vector<Fields> sent;
    bool looped = false;  // a menu, box or dialog was open
    bool saidYes = false;
    bool excepted = false;
    bool sends = true;  // the host could send
    Server::News news;
};

class Checks {
public:
    // `only`: names of checks, separated by commas; empty: all.
    Checks(const Server& server, const std::string& only) : m_server(server), m_only(only) {}

    // To be called before the action.
    void before(const Sight& sight) { m_accepts = m_server.acceptsOf(sight.selectedKeys()); }

    // Complaints, each beginning with the check's name.
    std::vector<std::string> after(const Story& story);

private:
    using Check = std::string (Checks::*)(const Story&);
    std::string requests(const Story& story);
    std::string decisions(const Story& story);
    std::string line(const Story& story);
    std::string updates(const Story& story);
    std::string opened(const Story& story);
    std::string owner(const Story& story);
    std::string edits(const Story& story);
    std::string filters(const Story& story);
    std::string editor(const Story& story);
    std::string rows(const Story& story);
    std::string windows(const Story& story);
    Texts editsOf(const Sight& sight) const;

    const Server& m_server;
    const std::string m_only;
    std::vector<std::string> m_accepts;  // what Accept had to send before the action
    Filters m_filters;
    std::string m_editedField;
    HWND m_editor = nullptr;
    int m_nextRow = 0;
};

}  // namespace blind
