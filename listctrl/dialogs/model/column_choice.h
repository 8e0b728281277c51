// What the column profile dialog decides: which columns show, in which order, and the default sort.
//
// The shown columns are rows from left to right; the available ones, which are hidden, are rows in
// the order of their ids. Mandatory columns stay shown, and at least one column does.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "listctrl/model/columns/column_model.h"

namespace mc {

// What a list puts in force.
struct ColumnLayout {
    std::vector<ColumnId> shown;
    bool ownWidths = false;  // every column takes its own width again
    std::optional<ColumnSort> sort;
};

using Rows = std::vector<std::size_t>;  // ascending

// Moves the items of `rows` in front of the item `before`, or behind the last one; the order among
// them stays. Gives the rows that they are then.
template <class Item>
Rows moveRows(std::vector<Item>& items, const Rows& rows, std::size_t before) {
    std::vector<Item> moved, others;
    std::size_t position = 0;  // of `before` among the others
    for (std::size_t i = 0, next = 0; i < items.size(); ++i) {
        const bool moves = next < rows.size() && rows[next] == i;
        if (moves) ++next;
        if (!moves && i < before) ++position;
        (moves ? moved : others).push_back(items[i]);
    }
    others.insert(others.begin() + static_cast<std::ptrdiff_t>(position), moved.begin(),
                  moved.end());
    items = std::move(others);
    Rows now;
    for (std::size_t i = 0; i < moved.size(); ++i) now.push_back(position + i);
    return now;
}

class ColumnChoice {
public:
    ColumnChoice(ColumnModel columns, std::optional<ColumnSort> sort);

    const std::vector<ColumnId>& shown() const { return m_layout.shown; }
    const std::vector<ColumnId>& available() const { return m_available; }
    const std::string& caption(ColumnId id) const { return m_columns.descriptor(id).caption; }
    const ColumnLayout& layout() const { return m_layout; }

    // Shows these available columns, behind the others. Gives their rows.
    Rows add(const Rows& availableRows);

    // Hides these shown columns. Gives the columns that have to stay, to be named to the user.
    std::vector<ColumnId> remove(const Rows& shownRows);

    // Moves shown columns; gives their rows afterwards.
    Rows move(const Rows& shownRows, std::size_t before);
    Rows moveUp(const Rows& shownRows);
    Rows moveDown(const Rows& shownRows);

    // All columns, in the order of their ids and at their own widths, and no default sort.
    void restoreDefault();

    // The default sort of a shown column: at most one column has one.
    std::optional<bool> ascending(ColumnId id) const;
    void setAscending(ColumnId id, std::optional<bool> ascending);

private:
    void findAvailable();

    ColumnModel m_columns;
    ColumnLayout m_layout;
    std::vector<ColumnId> m_available;
};

}  // namespace mc
