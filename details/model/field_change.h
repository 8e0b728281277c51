// What a change does to a field, judged on the occurrences as they were sent: what is shown may be
// rounded or decoded, and two different values may look alike.
#pragma once

#include <optional>
#include <string_view>

#include "details/model/detail_group.h"

namespace mc {

enum class CompareAs {
    text,    // byte for byte: "007" and "7" are two account numbers
    number,  // by value where both are plain decimal numbers, exactly: "1500" is "1500.00"
};

// `value` is occurrence 0, `old` occurrence 1; none: absent or unreadable.
FieldChange fieldChange(std::optional<std::string_view> value, std::optional<std::string_view> old,
                        CompareAs as = CompareAs::text);

}  // namespace mc
