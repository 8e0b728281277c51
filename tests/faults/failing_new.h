// Operators new that fail when they are asked to: in place of the ordinary ones of the program that
// has failing_new.cpp.
#pragma once

#include <cstddef>

namespace faults {

// From now on the `first`-th allocation fails (1 is the next), and with `forGood` all that follow.
void failNew(std::size_t first, bool forGood);

// Allocations succeed again. Returns whether one failed.
bool endFailing();

// What is allocated in the life of one neither fails nor counts: it is not the plug-in's.
class NotCounted {
public:
    NotCounted();
    ~NotCounted();
    NotCounted(const NotCounted&) = delete;
    NotCounted& operator=(const NotCounted&) = delete;
};

}  // namespace faults
