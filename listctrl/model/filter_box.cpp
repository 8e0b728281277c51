#include "listctrl/model/filter_box.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace mc {

std::optional<FilterBox::Line> FilterBox::shownLine() const {
    if (m_shown.text.empty()) return 0;
    if (m_shown.kind != FilterKind::value) return {};
    const auto first = m_lines.begin() + (m_lines.empty() ? 0 : 1);
    const auto last = first + static_cast<std::ptrdiff_t>(m_values);
    const auto found = std::find(first, last, m_shown.text);
    return found != last ? std::optional(static_cast<Line>(found - m_lines.begin())) : std::nullopt;
}

void FilterBox::typed(std::string text) {
    m_shown = {std::move(text), FilterKind::pattern};
}

const std::vector<std::string>& FilterBox::dropped(DistinctValues values) {
    m_open = true;
    m_values = values.values.size();
    m_lines.assign(1, kAllChoices);
    std::move(values.values.begin(), values.values.end(), std::back_inserter(m_lines));
    if (values.beyond > 0) m_lines.push_back("--AND " + std::to_string(values.beyond) + " MORE-- ");
    return m_lines;
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
    m_shown = {};
    if (line >= 1 && line <= m_values) m_shown = {m_lines[line], FilterKind::value};
    return apply();
}

bool FilterBox::apply() {
    if (m_applied == m_shown) return false;
    m_applied = m_shown;
    return true;
}

}  // namespace mc
