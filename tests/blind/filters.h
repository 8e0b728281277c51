// What the filter boxes of a list must let through, as far as a user can know it.
#pragma once

#include <map>
#include <set>
#include <string>

#include "tests/blind/actor.h"
#include "tests/blind/sight.h"

namespace blind {

// Follows the boxes of the main list. A box that is being typed into filters by its last text until
// Enter, a pause or a choice from its drop-down. Where input alone does not tell which of two
// filters applies, both are kept until the rows tell.
class Filters {
public:
    void follow(const Act& act, bool looped, const Sight& before, const Sight& after);

    // What is wrong with the rows or the boxes; empty: nothing.
    std::string complaint(const std::map<std::string, Change>& pending, const Sight& sight);

private:
    struct Filter {
        std::string text;
        bool chosen = false;  // from the drop-down: the whole cell is this text
        auto operator<=>(const Filter&) const = default;
    };
    struct Column {
        std::set<Filter> possible{{}};
        bool typing = false;
        bool dropped = false;
        std::string text;
    };
    void follow(Column& column, const Act& act, bool looped, const Box& box, bool hadFocus);

    std::map<std::string, Column> m_columns;
    std::set<bool> m_exactly{false};  // "Match Filter Exactly"
};

}  // namespace blind
