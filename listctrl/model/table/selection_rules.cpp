#include "listctrl/model/table/selection_rules.h"

#include <algorithm>

namespace mc {
namespace {

// Where a key leads. `page` is how many rows it goes on by, `last` the last row there is.
std::size_t rowAfter(Move move, std::optional<std::size_t> focused, std::size_t page,
                     std::size_t last) {
    const std::size_t from = focused.value_or(0);
    switch (move) {
        case Move::up:
            return from - std::min<std::size_t>(from, 1);
        case Move::down:
            return focused ? std::min(from + 1, last) : from;
        case Move::pageUp:
            return from - std::min(from, page);
        case Move::pageDown:
            return std::min(from + page, last);
        case Move::home:
            return 0;
        case Move::end:
            return last;
    }
    return from;
}

}  // namespace

void SelectionRules::selectOnly(std::size_t row) {
    if (m_selection.count() != 1 || !m_selection.selected(row)) m_selection.clear();
    m_selection.select(row, true);
    m_selection.setAnchor(row);
}

// From the anchor or else from `from`, which is the anchor from then on.
void SelectionRules::extend(std::size_t from, std::size_t to, bool keepOthers) {
    if (const auto anchor = m_selection.anchorRow())
        from = *anchor;
    else
        m_selection.setAnchor(from);
    if (!keepOthers) m_selection.clear();
    for (std::size_t row = std::min(from, to); row <= std::max(from, to); ++row)
        m_selection.select(row, true);
}

void SelectionRules::toggle(std::size_t row) {
    m_selection.select(row, !m_selection.selected(row));
    m_selection.setAnchor(row);
}

void SelectionRules::goTo(std::size_t row) {
    selectOnly(row);
    m_selection.setFocus(row);
}

void SelectionRules::selectAll() {
    m_selection.selectAll();
    if (!m_selection.focusedRow()) m_selection.setFocus(0);
}

void SelectionRules::click(std::optional<std::size_t> row, Modifiers keys) {
    if (!row || *row >= m_rows.count()) {
        if (!keys.ctrl && !keys.shift) m_selection.clear();
        return;
    }
    if (keys.shift)
        extend(m_selection.focusedRow().value_or(*row), *row, keys.ctrl);
    else if (keys.ctrl)
        toggle(*row);
    else
        selectOnly(*row);
    m_selection.setFocus(*row);
}

void SelectionRules::rightClick(std::optional<std::size_t> row) {
    if (!row || *row >= m_rows.count()) return;
    if (!m_selection.selected(*row)) selectOnly(*row);
    m_selection.setFocus(*row);
}

std::optional<std::size_t> SelectionRules::move(Move move, std::size_t pageRows, Modifiers keys) {
    if (m_rows.count() == 0) return std::nullopt;
    const auto focused = m_selection.focusedRow();
    const std::size_t page = std::max<std::size_t>(pageRows, 2) - 1;
    const std::size_t to = rowAfter(move, focused, page, m_rows.count() - 1);
    if (keys.shift)
        extend(focused.value_or(0), to, keys.ctrl);
    else if (!keys.ctrl)
        selectOnly(to);
    m_selection.setFocus(to);
    return to;
}

void SelectionRules::space(Modifiers keys) {
    const auto row = m_selection.focusedRow();
    if (!row) return;
    if (keys.shift) return extend(*row, *row, keys.ctrl);
    if (keys.ctrl) return toggle(*row);
    m_selection.select(*row, true);
    m_selection.setAnchor(*row);
}

// ---- What others ask ----

namespace {

std::optional<std::size_t> nextSelected(const RecordStore& store, std::optional<std::size_t> start,
                                        bool above) {
    const auto& rows = store.selection().rows();
    if (above) {
        const auto found = std::lower_bound(rows.begin(), rows.end(), *start);
        return found != rows.begin() ? std::optional(*(found - 1)) : std::nullopt;
    }
    const auto found = start ? std::upper_bound(rows.begin(), rows.end(), *start) : rows.begin();
    return found != rows.end() ? std::optional(*found) : std::nullopt;
}

}  // namespace

std::optional<std::size_t> nextRow(const RecordStore& store, std::optional<std::size_t> start,
                                   NextRow wanted) {
    if (wanted.above && !start) return std::nullopt;
    if (start && *start >= store.rowCount()) return std::nullopt;
    if (wanted.focused) {
        const auto row = store.selection().focusedRow();
        if (!row || (wanted.selected && !store.selection().selected(*row))) return std::nullopt;
        const bool there = wanted.above ? *row < *start : !start || *row > *start;
        return there ? row : std::nullopt;
    }
    if (wanted.selected) return nextSelected(store, start, wanted.above);
    if (wanted.above) return *start > 0 ? std::optional(*start - 1) : std::nullopt;
    const std::size_t next = start ? *start + 1 : 0;
    return next < store.rowCount() ? std::optional(next) : std::nullopt;
}

}  // namespace mc
