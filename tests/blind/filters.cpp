#include "tests/blind/filters.h"

#include <algorithm>

#include "tests/unit/reference_list.h"

namespace blind {

void Filters::follow(const Act& act, bool looped, const Sight& before, const Sight& after) {
    std::map<std::string, Column> columns;
    for (const Box& box : after.main.boxes) {
        Column column = m_columns[box.column];
        const auto was = std::ranges::find(before.main.boxes, box.column, &Box::column);
        const bool hadFocus = was != before.main.boxes.end() && was->focused;
        follow(column, act, looped, box, hadFocus || box.focused);
        columns[box.column] = column;
    }
    m_columns = std::move(columns);
    if (looped) m_exactly = {false, true};
}

void Filters::follow(Column& column, const Act& act, bool looped, const Box& box, bool hadFocus) {
    const bool changed = column.text != box.text;
    const bool closed = column.dropped && !box.dropped;
    column.text = box.text;
    column.dropped = box.dropped;
    const Filter pattern{box.text, false}, chosen{box.text, true};
    if (act.key == 'P' && changed && box.text.empty()) {  // for the other half of a pair
        column = {{pattern}, false, box.dropped, box.text};
    } else if (looped && changed &&
               !closed) {  // filters reset, or a text that the edit's menu changed
        column.possible.insert({pattern, chosen});
        column.typing = hadFocus;
    } else if (act.pause && !box.dropped) {  // nothing applies behind an open drop-down
        if (column.typing) column.possible.insert(pattern);
        if (column.typing)
            std::erase_if(column.possible, [&](auto& f) { return f.text != box.text; });
        column.typing = false;
    } else if (column.typing && !box.dropped && (act.press == "Accept" || act.press == "Reject")) {
        column.possible.insert(pattern);  // if the press came so far
    } else if (closed && !looped && (act.key == VK_RETURN || act.inDropList)) {
        if (act.inDropList && !changed) return;                      // a click beside the entries
        if (act.key == VK_ESCAPE || act.name.starts_with("drag")) {  // perhaps no choice
            column.possible.insert({pattern, chosen});
            column.typing = true;
            return;
        }
        column.possible = {chosen};
        // With nothing chosen in the list the typed text applies.
        if (act.key == VK_RETURN) column.possible.insert(pattern);
        column.typing = false;
    } else if (closed) {  // by another key, some of which take the choice, or by a dialog
        column.possible.insert({pattern, chosen});
        column.typing = true;
    } else if (act.key == VK_RETURN && hadFocus && !box.dropped) {
        std::erase_if(column.possible, [&](auto& f) { return f.text != box.text; });
        if (column.typing || column.possible.empty()) column.possible.insert(pattern);
        column.typing = false;
    } else if (act.key == VK_ESCAPE && hadFocus && box.text.empty()) {
        column.possible.insert(pattern);  // it emptied the box, or only closed the drop-down
        column.typing = true;
    } else if (changed && hadFocus && act.key == 0 &&
               act.byHand) {  // opened, or dragged to a choice
        column.possible.insert({pattern, chosen});
        column.typing = true;
    } else if (changed && hadFocus) {
        column.typing = true;
    } else if (changed) {
        column = {{pattern}, false, box.dropped, box.text};
    }
}

// Tries every combination of what is possible, and keeps those that fit.
std::string Filters::complaint(const std::map<std::string, Change>& pending, const Sight& sight) {
    for (const auto& [name, column] : m_columns)
        if (!column.typing && !column.dropped &&
            std::ranges::none_of(column.possible,
                                 [&](const Filter& each) { return each.text == column.text; }))
            return "box '" + name + "' says '" + column.text + "' but filters by '" +
                   column.possible.begin()->text + "'";
    // Too many to try: later rows will tell, as the user's next choices leave fewer.
    constexpr std::size_t kMaxGuesses = 2000;
    std::size_t count = m_exactly.size();
    for (const auto& [name, column] : m_columns) count *= column.possible.size();
    if (count > kMaxGuesses) return "";
    std::set<std::string> seen;
    for (int row = 0; row < static_cast<int>(sight.main.rows.size()); ++row)
        seen.insert(sight.main.cell(row, "Key"));

    using Guess = std::map<std::string, Filter>;
    std::vector<Guess> guesses{{}};
    for (const auto& [name, column] : m_columns) {
        std::vector<Guess> more;
        for (const Guess& guess : guesses)
            for (const Filter& filter : column.possible) {
                more.push_back(guess);
                more.back()[name] = filter;
            }
        guesses = std::move(more);
    }
    std::map<std::string, std::set<Filter>> fitting;
    std::set<bool> exactly;
    std::string wrong;
    for (const bool all : m_exactly)
        for (const Guess& guess : guesses) {
            std::set<std::string> expected;
            for (const auto& [key, change] : pending)
                if (std::ranges::all_of(guess, [&](const auto& each) {
                        const std::string cell = change.cell(each.first);
                        const Filter& filter = each.second;
                        return mc::reference::matches(cell, filter.text, all, filter.chosen);
                    }))
                    expected.insert(key);
            if (expected == seen) {
                exactly.insert(all);
                for (const auto& [name, filter] : guess) fitting[name].insert(filter);
            }
        }
    for (const auto& [name, column] : m_columns)
        wrong +=
            "\n  box " + name + " '" + column.text + "'" + (column.typing ? " being typed" : "");
    if (exactly.empty()) return std::to_string(seen.size()) + " rows are visible" + wrong;
    m_exactly = exactly;
    for (auto& [name, column] : m_columns) column.possible = fitting[name];
    return "";
}

}  // namespace blind
