// One column's filter, read once and then matched against cells without allocation.
//
// A pattern is a list of alternatives separated by runs of "~"; a cell matches if any of them does.
// An alternative is read by its first character, and letters match in either case (ASCII):
//   *text*  the cell contains the text ("**" and "*": every cell)
//   *text   the cell ends with it
//   >12.5   the cell reads as a number that is greater; <12.5: that is less
//   text    the cell begins with it; so also ">" and "<" without a number behind them
// Matched exactly, an alternative is the whole cell and these signs are plain text. A value is the
// whole cell as it is, separators included. An empty filter text matches every cell, one of
// separators alone none.
#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "text/characters.h"

namespace mc {

// What a column is filtered by; an empty text is no filter.
enum class FilterKind { pattern, value };
struct ColumnFilter {
    std::string text;
    FilterKind kind = FilterKind::pattern;
    bool operator==(const ColumnFilter&) const = default;
};

class FilterPattern {
public:
    enum class Kind { equals, contains, endsWith, startsWith };
    struct Alternative {
        Kind kind;
        std::string text;  // in lower case
    };

    FilterPattern() = default;  // matches everything
    FilterPattern(std::string_view filterText, bool exact, FilterKind kind = FilterKind::pattern);

    bool matches(std::string_view cell) const;

    // What a pass over many cells asks once.
    bool matchesEverything() const { return m_everything; }
    // Those other than ">" and "<": by kind, then by text, and none that another of its kind makes
    // needless.
    const std::vector<Alternative>& alternatives() const { return m_alternatives; }
    bool asksNumbers() const { return m_above < kInfinity || m_below > -kInfinity; }

    // Whether a cell that reads as `number` matches one of the ">" and "<" alternatives.
    bool matchesNumber(double number) const { return (number > m_above) | (number < m_below); }

private:
    static constexpr double kInfinity = std::numeric_limits<double>::infinity();

    void add(std::string_view alternative, bool exact);
    void tidy();

    bool m_everything = true;
    std::vector<Alternative> m_alternatives;
    // All ">" and "<" alternatives together: above the least of the ones, below the greatest of the
    // others.
    double m_above = kInfinity;
    double m_below = -kInfinity;
};

}  // namespace mc
