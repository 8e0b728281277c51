// The requests for details that are unanswered. Several can be at a time, as the checker goes from
// change to change.
//
// An answer is for the request whose key it names; one without a key is for the oldest unanswered
// request of its kind.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "link/model/functionality.h"

namespace mc {

class UnansweredRequests {
public:
    // A request is about to leave, and the last one could not be sent.
    void add(std::string key, DetailKind kind) { m_requests.push_back({std::move(key), kind}); }
    void dropLast() { m_requests.pop_back(); }

    // Details of `key` are visible: earlier requests for them may have been lost on the way.
    void dropAllOf(const std::string& key) {
        std::erase_if(m_requests, [&key](const Request& each) { return key == each.key; });
    }

    bool contains(const std::optional<std::string>& key) const {
        return std::ranges::any_of(m_requests,
                                   [&key](const Request& each) { return key == each.key; });
    }

    // An answer came. Returns whether it is for the details of `key`: without a key of its own it
    // may be for any request of its kind that is still unanswered.
    bool answered(DetailKind kind, const std::optional<std::string_view>& answerKey,
                  const std::optional<std::string>& key) {
        const auto answers = [&](const Request& each) {
            return each.kind == kind && (!answerKey || each.key == *answerKey);
        };
        const auto request = std::ranges::find_if(m_requests, answers);
        const bool ours = std::ranges::all_of(
            m_requests, [&](const Request& each) { return !answers(each) || key == each.key; });
        if (request != m_requests.end()) m_requests.erase(request);
        return answerKey ? key == *answerKey : ours;
    }

private:
    struct Request {
        std::string key;
        DetailKind kind;
    };

    std::vector<Request> m_requests;  // oldest first
};

}  // namespace mc
