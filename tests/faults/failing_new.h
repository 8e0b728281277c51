// Operators new that fail when they are asked to: in place of the ordinary ones of the program that
// has failing_new.cpp.
#pragma once

#include "tests/checked/failing_allocation.h"

namespace faults {

extern checked::FailingAllocation allocations;

}  // namespace faults
