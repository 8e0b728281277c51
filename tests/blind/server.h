// The server, as a blind hand plays it: what is pending, what was asked for, and answers of every
// quality. What a checker has to see and what a press has to send is worked out here from what was
// published, without the plug-in.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/blind/dice.h"
#include "tests/windows/test_host.h"

namespace blind {

struct Change {
    std::string key, code, type{}, entity{}, linked{}, maker{}, branch{}, broker{};

    bool isInvestor() const { return type == "INVESTOR_CLIENT"; }
    std::string kind() const;                            // what the list calls its code
    std::string detailRequest() const;                   // empty: its kind has no details
    std::string cell(const std::string& caption) const;  // in the main list
};

using Texts = std::map<std::string, std::string>;  // caption, value

class Server {
public:
    Server(LoadedPlugin& plugin, Dice& dice) : m_plugin(plugin), m_dice(dice) {}

    const std::map<std::string, Change>& pending() const { return m_pending; }

    // Each returns what it did.
    std::string publishNew();
    std::string publishAgain();
    std::string publishOutcome();
    std::string answerSomething();

    bool owesAnswer() const { return !m_unanswered.empty(); }
    // A request left, while details with this tag were visible.
    void noteRequest(const Fields& request, const std::string& tag);

    // What was published or answered since the last call.
    struct News {
        std::set<std::string> published, ended, answered;
        bool any() const { return !published.empty() || !ended.empty() || !answered.empty(); }
    };
    News takeNews() { return std::exchange(m_news, {}); }

    // The values that an answer showed, by the tag in it; null: no tag of an answer.
    struct Answer {
        std::string key;
        Texts values;
        Texts sent;  // those that updates put instead of the answer's own
    };
    const Answer* answerOf(const std::string& tag) const;

    // The keys whose accept leaves, in this order, when these are selected (in order of rows).
    std::vector<std::string> acceptsOf(const std::vector<std::string>& selected) const;

private:
    struct Request {
        std::string name, key;
    };
    std::string publish(const Change& change);
    Fields fieldsOf(const Request& request, const std::string& key);

    LoadedPlugin& m_plugin;
    Dice& m_dice;
    std::map<std::string, Change> m_pending;
    std::vector<Request> m_unanswered, m_all;
    std::map<std::string, Answer> m_answers;
    News m_news;
    int m_lastKey = 100;
};

// A limit's field, its caption, and whether its value is a count, an amount or a choice.
struct Limit {
    int field;
    const char* caption;
    enum { amount, count, choice } is;
};
extern const std::vector<Limit> kLimits;

// The values of limits that a request carries, as the list shows them.
Texts limitsIn(const Fields& request);

}  // namespace blind
