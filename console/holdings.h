// What this program holds of the system: what a plug-in that came and went must not have raised.
#pragma once

#include <string>

namespace zek {

// Where the system does not count by itself (Wine), menus, GDI objects and handles are counted by
// looking at every value that may be one.
struct Holdings {
    long long windows = 0;  // children and message windows included
    long long menus = 0;
    long long gdiObjects = 0;
    long long handles = 0;  // of the kernel
};

Holdings countHoldings();

// What `after` has more than `before`, "3 more windows, ..."; empty when there is nothing.
// Handles may grow by a few: the runtime in a library that has used exceptions keeps some for the
// thread when it is unloaded.
std::string grown(const Holdings& before, const Holdings& after);

}  // namespace zek
