// Limits as amounts: what a change does to one, in words, and what looks like a slip of the hand.
//
// Everything is worked out on the texts as they were sent, digit by digit, so that no number is
// too long or too fine.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "details/model/detail_group.h"
#include "text/decimal.h"

namespace mc {

// What looks like a slip in going from `old` to `now`: "ten times the old value", "the sign
// changed", "two digits of the old value swapped", "from nothing" and the like. Empty: nothing
// does.
std::string slipBetween(const Decimal& old, const Decimal& now,
                        std::string_view whose = "the old value");

// "12 lakh 50 thousand", "1 crore 5 and 50 paise", "minus 3 lakh".
std::string inLakhAndCrore(const Decimal& amount);

// With commas as in 12,34,567.5.
std::string grouped(const Decimal& amount);

// The row's value and its old value where the row is an amount and both can be read as one.
struct AmountChange {
    Decimal now, old;
};
std::optional<AmountChange> amountChange(const sMCListStruct& row);

// What looks like a slip in a row: between its values, or between what the maker asked for and an
// edit. Empty: nothing does, or it is no amount.
std::string slipOf(const sMCListStruct& row);

// A line about one row, or about all of them.
struct AboutLine {
    std::string text;   // empty: there is nothing to say
    bool slip = false;  // it names one
};

// About one row: its slip first, then old and new value, difference and per cent, the words, the
// exact text behind a rounded value, and what an update sends for an edited one. Of a row that is
// no amount: what cannot be seen in its texts.
AboutLine lineAbout(const sMCListStruct& row);

// About rows together: the slips among them.
class SlipsOf {
public:
    void add(const sMCListStruct& row);
    AboutLine line() const;

private:
    std::string m_named;
    std::size_t m_count = 0;
};

}  // namespace mc
