// How a test makes allocations fail: in its own program (tests/faults/failing_new.h), and in a
// library of the checked build, to which the environment variable names where this is in the
// process when the library is loaded.
#pragma once

#include <cstddef>
#include <utility>

namespace checked {

inline constexpr char kFailingAllocation[] =
    "MC_FAILING_ALLOCATION";  // an address, in decimal digits

struct FailingAllocation {
    bool watched = false;   // set by the library that found it
    std::size_t first = 0;  // which fails, counted from 1; 0: none
    std::size_t count = 0;  // of those since `first` was set
    bool forGood = false;   // all that follow fail too
    bool hosts = false;     // what is allocated now is not the plug-in's: neither fails nor counts

    bool failsNow() {
        if (first == 0 || hosts) return false;
        ++count;
        return forGood ? count >= first : count == first;
    }
    void fail(std::size_t which, bool andAllBehind) {
        first = which;
        count = 0;
        forGood = andAllBehind;
    }
    // Returns whether one failed.
    bool end() { return count >= std::exchange(first, 0); }
};

}  // namespace checked
