// A column's filter box: what it shows, and what its column is filtered by. The two differ while a
// text is being typed or a drop-down is open.
//
// What applies changes at Enter, at the pause in typing, at Esc in a closed box and when a line of
// the open drop-down is chosen; nothing else changes it. A typed text is a pattern, a chosen line
// is one whole value until the box is typed in again. A drop-down that closes without a choice
// leaves the box as it was.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "listctrl/model/table/distinct_values.h"
#include "text/filter_pattern.h"

namespace mc {

class FilterBox {
public:
    using Line = std::size_t;  // of the drop-down, from the top

    FilterBox() = default;
    explicit FilterBox(ColumnFilter applied) : m_shown(applied), m_applied(std::move(applied)) {}

    // What the column is filtered by.
    const ColumnFilter& applied() const { return m_applied; }

    // What the edit shows while the drop-down is closed; an open one shows its selected line there.
    const ColumnFilter& shown() const { return m_shown; }

    bool isOpen() const { return m_open; }
    // The line of the value that the box shows; none for a text that was typed.
    std::optional<Line> shownLine() const;

    // ---- What the user does ----

    void typed(std::string text);

    // Opens the drop-down and gives its lines: kAllChoices, which means no filter, the values, and
    // a last line that counts those beyond the bound, if there are any, and means no filter either.
    const std::vector<std::string>& dropped(DistinctValues values);
    void closed() { m_open = false; }

    // True: the list is to be filtered. Enter applies the selected line of an open drop-down, or
    // else the text; it filters again though nothing changed. Only an open drop-down has lines to
    // choose.
    bool paused() { return apply(); }
    bool entered(std::optional<Line> line);
    bool escaped();
    bool taken(Line line);

private:
    bool apply();

    ColumnFilter m_shown;
    ColumnFilter m_applied;
    bool m_open = false;
    std::vector<std::string> m_lines;
    std::size_t m_values = 0;  // how many of the lines, from the second on, are values
};

// Heads the lines of a drop-down.
inline constexpr const char* kAllChoices = "--ALL-- ";

}  // namespace mc
