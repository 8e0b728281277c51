// A value that is being typed, which a press takes before it does anything else.
#pragma once

#include <optional>

namespace mc {

struct TypedValue {
    std::optional<int> field = {};  // it would be kept as an edit of this field
    bool refused = false;           // or it cannot be kept, and the press stops there
};

}  // namespace mc
