#include "details/model/field_change.h"

#include "text/decimal.h"

namespace mc {
namespace {

bool same(std::string_view value, std::string_view old, CompareAs as) {
    if (value == old) return true;
    if (as == CompareAs::text) return false;
    const auto number = readDecimal(value);
    return number && number == readDecimal(old);
}

}  // namespace

FieldChange fieldChange(std::optional<std::string_view> value, std::optional<std::string_view> old,
                        CompareAs as) {
    if (value && old) return same(*value, *old, as) ? FieldChange::none : FieldChange::changed;
    if (value) return FieldChange::added;
    return old ? FieldChange::removed : FieldChange::none;
}

}  // namespace mc
