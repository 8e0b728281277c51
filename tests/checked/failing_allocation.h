// How a test makes allocations fail in a library of the checked build: the environment variable
// names where this is in the process when the library is loaded.
#pragma once

#include <cstddef>

namespace checked {

inline constexpr char kFailingAllocation[] =
    "MC_FAILING_ALLOCATION";  // an address, in decimal digits

struct FailingAllocation {
    bool watched = false;   // set by the library that found it
    std::size_t first = 0;  // which fails, counted from 1; 0: none
    std::size_t count = 0;  // of those since `first` was set
    bool forGood = false;   // all that follow fail too

    bool failsNow() {
        if (first == 0) return false;
        ++count;
        return forGood ? count >= first : count == first;
    }
};

}  // namespace checked
