// A storm: any number of believable changes, the same ones for the same seed on every platform.
#pragma once

#include "console/model/scenario.h"

namespace zek {

// `count` changes of all kinds and levels by five makers, investor pairs among them (the two of a
// pair follow one another; the last change may be half of one), and the makers as users.
Scenario makeStorm(int count, unsigned seed);

// The seed of the first storm in a play script; each one after it has the next.
inline constexpr unsigned kRepeatedSeed = 1;

}  // namespace zek
