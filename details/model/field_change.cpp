#include "details/model/field_change.h"

#include <algorithm>

namespace mc {
namespace {

// A plain decimal number without what does not change its value.
struct Decimal {
    bool negative;
    std::string_view whole, fraction;  // no leading zeros; no trailing zeros
    bool operator==(const Decimal&) const = default;
};

std::optional<Decimal> decimal(std::string_view text) {
    Decimal number{text.starts_with('-'), text, {}};
    if (text.starts_with('-') || text.starts_with('+')) number.whole.remove_prefix(1);
    const auto point = number.whole.find('.');
    if (point != std::string_view::npos) {
        number.fraction = number.whole.substr(point + 1);
        number.whole = number.whole.substr(0, point);
    }
    constexpr std::string_view digits = "0123456789";
    if (number.whole.size() + number.fraction.size() == 0 ||
        number.whole.find_first_not_of(digits) != std::string_view::npos ||
        number.fraction.find_first_not_of(digits) != std::string_view::npos)
        return std::nullopt;
    number.whole.remove_prefix(std::min(number.whole.find_first_not_of('0'), number.whole.size()));
    number.fraction = number.fraction.substr(0, number.fraction.find_last_not_of('0') + 1);
    if (number.whole.empty() && number.fraction.empty()) number.negative = false;
    return number;
}

bool same(std::string_view value, std::string_view old, CompareAs as) {
    if (value == old) return true;
    if (as == CompareAs::text) return false;
    const auto number = decimal(value);
    return number && number == decimal(old);
}

}  // namespace

FieldChange fieldChange(std::optional<std::string_view> value, std::optional<std::string_view> old,
                        CompareAs as) {
    if (value && old) return same(*value, *old, as) ? FieldChange::none : FieldChange::changed;
    if (value) return FieldChange::added;
    return old ? FieldChange::removed : FieldChange::none;
}

}  // namespace mc
