#include "listctrl/model/filter_box.h"

#include <algorithm>
#include <utility>

namespace mc {

// ---- Lines ----

std::size_t FilterBox::lineCount() const {
    return m_open ? 1 + valueLines() + (m_found.size() > valueLines() ? 1 : 0) : 0;
}

const DistinctValue* FilterBox::valueAt(Line line) const {
    return line >= 1 && line <= valueLines() ? &m_choices.values[m_found[line - 1]] : nullptr;
}

std::string FilterBox::lineText(Line line) const {
    if (line == 0) return kAllChoices;
    if (const DistinctValue* const value = valueAt(line)) return value->text;
    return "--AND " + std::to_string(m_found.size() - valueLines()) + " MORE-- ";
}

std::optional<std::size_t> FilterBox::lineRows(Line line) const {
    if (line == 0) return m_choices.rows;
    const DistinctValue* const value = valueAt(line);
    return value != nullptr ? std::optional(value->rows) : std::nullopt;
}

std::optional<FilterBox::Line> FilterBox::shownLine() const {
    if (m_shown.text.empty()) return 0;
    if (m_shown.kind != FilterKind::value) return {};
    for (Line line = 1; line <= valueLines(); ++line)
        if (valueAt(line)->text == m_shown.text) return line;
    return {};
}

void FilterBox::find(const std::string& text) {
    const bool signs = text.find_first_of("*~<>") != text.npos;
    const FilterPattern pattern(signs ? text : '*' + text + '*', false);
    m_maxLines = text.empty() ? kMaxValueLines : kMaxFoundLines;
    m_found.clear();
    for (std::uint32_t i = 0; i < m_choices.values.size(); ++i)
        if (pattern.matches(m_choices.values[i].text)) m_found.push_back(i);
}

// ---- What the user does ----

void FilterBox::typed(std::string text) {
    m_shown = {std::move(text), FilterKind::pattern};
    if (m_open) find(m_shown.text);
}

void FilterBox::dropped(DistinctValues choices) {
    m_open = true;
    m_choices = std::move(choices);
    find("");
}

void FilterBox::closed() {
    m_open = false;
    m_choices = {};
    m_found = {};
}

bool FilterBox::entered(std::optional<Line> line) {
    if (m_open && line)
        taken(*line);
    else
        apply();
    m_open = false;
    return true;
}

bool FilterBox::escaped() {
    if (std::exchange(m_open, false)) return false;
    m_shown = {};
    return apply();
}

bool FilterBox::taken(Line line) {
    if (!std::exchange(m_open, false)) return false;
    const DistinctValue* const value = valueAt(line);
    m_shown = value != nullptr ? ColumnFilter{value->text, FilterKind::value} : ColumnFilter{};
    return apply();
}

bool FilterBox::apply() {
    if (m_applied == m_shown) return false;
    m_applied = m_shown;
    return true;
}

}  // namespace mc
