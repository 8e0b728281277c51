// A long session made up from a seed: who exists, what the makers ask for, what the checkers do,
// and what must come of it (model.h).
#pragma once

#include <string>

namespace road {

struct Road {
    std::string ini, scenario, script;  // what the console is given
    std::string state, log;             // what it must end with
};

Road makeRoad(unsigned seed);

}  // namespace road
