#include "text/filter_pattern.h"

#include <algorithm>

#include "text/read_number.h"

namespace mc {
namespace {

// Whether `text` in lower case is `pattern`, which is.
bool same(std::string_view text, std::string_view pattern) {
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(),
                      [](char a, char b) { return lowerCase(a) == b; });
}

bool found(std::string_view text, std::string_view pattern) {
    return std::search(text.begin(), text.end(), pattern.begin(), pattern.end(),
                       [](char a, char b) { return lowerCase(a) == b; }) != text.end() ||
           pattern.empty();
}

bool matchesOne(std::string_view cell, const FilterPattern::Alternative& alternative) {
    const std::string& text = alternative.text;
    if (text.size() > cell.size()) return false;
    switch (alternative.kind) {
        case FilterPattern::Kind::equals:
            return same(cell, text);
        case FilterPattern::Kind::contains:
            return found(cell, text);
        case FilterPattern::Kind::endsWith:
            return same(cell.substr(cell.size() - text.size()), text);
        case FilterPattern::Kind::startsWith:
            return same(cell.substr(0, text.size()), text);
    }
    return false;
}

}  // namespace

FilterPattern::FilterPattern(std::string_view filterText, bool exact, FilterKind kind)
    : m_everything(filterText.empty()) {
    if (kind == FilterKind::value) {
        m_alternatives.push_back({Kind::equals, lowered(filterText)});
        return;
    }
    while (!filterText.empty()) {
        const std::size_t end = std::min(filterText.find('~'), filterText.size());
        if (end > 0) add(filterText.substr(0, end), exact);
        filterText.remove_prefix(std::min(end + 1, filterText.size()));
    }
    tidy();
}

// Sorted, a beginning comes right before the longer ones that it covers.
void FilterPattern::tidy() {
    const auto less = [](const Alternative& a, const Alternative& b) {
        return a.kind != b.kind ? a.kind < b.kind : a.text < b.text;
    };
    const auto covers = [](const Alternative& a, const Alternative& b) {
        return a.kind == b.kind &&
               (a.text == b.text || (a.kind == Kind::startsWith && b.text.starts_with(a.text)));
    };
    std::sort(m_alternatives.begin(), m_alternatives.end(), less);
    m_alternatives.erase(std::unique(m_alternatives.begin(), m_alternatives.end(), covers),
                         m_alternatives.end());
}

void FilterPattern::add(std::string_view alternative, bool exact) {
    const char sign = exact ? '\0' : alternative.front();
    const std::string_view rest = alternative.substr(1);
    const auto bound = sign == '>' || sign == '<' ? readNumber(rest) : std::nullopt;
    if (exact) {
        m_alternatives.push_back({Kind::equals, lowered(alternative)});
    } else if (sign == '*' && alternative.ends_with('*') && !rest.empty()) {
        m_alternatives.push_back({Kind::contains, lowered(rest.substr(0, rest.size() - 1))});
    } else if (sign == '*') {
        m_alternatives.push_back({Kind::endsWith, lowered(rest)});
    } else if (bound && sign == '>') {
        m_above = std::min(m_above, *bound);
    } else if (bound) {
        m_below = std::max(m_below, *bound);
    } else {
        m_alternatives.push_back({Kind::startsWith, lowered(alternative)});
    }
}

bool FilterPattern::matches(std::string_view cell) const {
    if (m_everything) return true;
    if (asksNumbers()) {
        const std::optional<double> number = readNumber(cell);
        if (number && matchesNumber(*number)) return true;
    }
    return std::any_of(m_alternatives.begin(), m_alternatives.end(),
                       [&](const Alternative& one) { return matchesOne(cell, one); });
}

}  // namespace mc
