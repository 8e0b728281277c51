// A column's filter box: what it shows, and what its column is filtered by. The two differ while a
// text is being typed or a drop-down is open.
//
// What applies changes at Enter, at the pause in typing, at Esc in a closed box and when a line of
// the open drop-down is chosen; nothing else changes it. A typed text is a pattern, a chosen line
// is one whole value until the box is typed in again. A drop-down that closes without a choice
// leaves the box as it was. What is typed while it is open leaves only the lines that fit.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "listctrl/model/table/distinct_values.h"
#include "text/filter_pattern.h"

namespace mc {

class FilterBox {
public:
    using Line = std::size_t;  // of the drop-down, from the top

    // Most lines with a value, and with one that typing has left: a control takes its time for
    // each, and takes it again for each letter. More are typed for.
    static constexpr std::size_t kMaxValueLines = 10'000;
    static constexpr std::size_t kMaxFoundLines = 1'000;

    FilterBox() = default;
    explicit FilterBox(ColumnFilter applied) : m_shown(applied), m_applied(std::move(applied)) {}

    // What the column is filtered by.
    const ColumnFilter& applied() const { return m_applied; }

    // What the edit shows while the drop-down is closed; an open one shows its selected line there.
    const ColumnFilter& shown() const { return m_shown; }

    // ---- The lines of the open drop-down ----

    // kAllChoices, which means no filter, the values, and a last line that counts those beyond the
    // bound, if there are any, and means no filter either. A closed one has no lines.
    std::size_t lineCount() const;
    std::string lineText(Line line) const;
    // How many rows the choice would leave; the last line has none.
    std::optional<std::size_t> lineRows(Line line) const;

    bool isOpen() const { return m_open; }
    // Typing has left some of the values only.
    bool isNarrowed() const { return m_open && m_found.size() < m_choices.values.size(); }
    // The line of the value that the box shows; none for a text that was typed.
    std::optional<Line> shownLine() const;

    // ---- What the user does ----

    // An open drop-down is narrowed to the values that contain the text, or that it matches when it
    // holds a sign of filters. Costs a look at each value then.
    void typed(std::string text);

    // Opens the drop-down with all choices.
    void dropped(DistinctValues choices);
    void closed();

    // True: the list is to be filtered. Enter applies the selected line of an open drop-down, or
    // else the text; it filters again though nothing changed. Only an open drop-down has lines to
    // choose, and nothing that is typed applies behind one.
    bool paused() { return !m_open && apply(); }
    bool entered(std::optional<Line> line);
    bool escaped();
    bool taken(Line line);

private:
    bool apply();
    void find(const std::string& text);
    std::size_t valueLines() const { return std::min(m_found.size(), m_maxLines); }
    const DistinctValue* valueAt(Line line) const;

    ColumnFilter m_shown;
    ColumnFilter m_applied;
    bool m_open = false;
    DistinctValues m_choices;
    std::size_t m_maxLines = kMaxValueLines;
    std::vector<std::uint32_t> m_found;  // of the choices, those that the typed text leaves
};

// Heads the lines of a drop-down.
inline constexpr const char* kAllChoices = "--ALL-- ";

}  // namespace mc
