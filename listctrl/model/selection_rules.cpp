#include "listctrl/model/selection_rules.h"

#include <algorithm>

void SelectionRules::selectOnly(std::size_t row) {
    m_store.clearSelection();
    m_store.select(row, true);
    m_anchor = m_store.slotAt(row);
}

void SelectionRules::selectRange(std::size_t from, std::size_t to) {
    m_store.clearSelection();
    for (std::size_t row = std::min(from, to); row <= std::max(from, to); ++row)
        m_store.select(row, true);
}

void SelectionRules::toggle(std::size_t row) {
    m_store.select(row, !m_store.selected(row));
    m_anchor = m_store.slotAt(row);
}

std::size_t SelectionRules::anchorRow(std::size_t otherwise) const {
    return m_store.rowOf(m_anchor).value_or(otherwise);
}

void SelectionRules::click(std::optional<std::size_t> row, Modifiers keys) {
    if (!row || *row >= m_store.rowCount()) {
        if (!keys.ctrl && !keys.shift) m_store.clearSelection();
        return;
    }
    if (keys.shift)
        selectRange(anchorRow(m_store.focusedRow().value_or(*row)), *row);
    else if (keys.ctrl)
        toggle(*row);
    else
        selectOnly(*row);
    m_store.setFocus(*row);
}

void SelectionRules::rightClick(std::optional<std::size_t> row) {
    if (!row || *row >= m_store.rowCount()) return;
    if (!m_store.selected(*row)) selectOnly(*row);
    m_store.setFocus(*row);
}

std::optional<std::size_t> SelectionRules::move(Move move, std::size_t pageRows, Modifiers keys) {
    if (m_store.rowCount() == 0) return std::nullopt;
    const std::size_t last = m_store.rowCount() - 1;
    const auto focused = m_store.focusedRow();
    const std::size_t from = focused.value_or(0);
    const std::size_t page = std::max<std::size_t>(pageRows, 2) - 1;
    std::size_t to = from;
    switch (move) {
        case Move::up:
            to = from - std::min<std::size_t>(from, 1);
            break;
        case Move::down:
            to = focused ? std::min(from + 1, last) : from;
            break;
        case Move::pageUp:
            to = from - std::min(from, page);
            break;
        case Move::pageDown:
            to = std::min(from + page, last);
            break;
        case Move::home:
            to = 0;
            break;
        case Move::end:
            to = last;
            break;
    }
    if (keys.shift)
        selectRange(anchorRow(from), to);
    else if (!keys.ctrl)
        selectOnly(to);
    m_store.setFocus(to);
    return to;
}

void SelectionRules::space(Modifiers keys) {
    const auto row = m_store.focusedRow();
    if (!row) return;
    if (keys.ctrl)
        toggle(*row);
    else
        m_store.select(*row, true);
}
