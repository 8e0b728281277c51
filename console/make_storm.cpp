// make_storm COUNT SEED: writes a scenario of COUNT changes to the standard output.
//
//   make_storm 1000 1 > console/scenarios/storm.txt
#include <iostream>
#include <optional>

#include "console/model/parsed.h"
#include "console/model/storm.h"

int main(int argumentCount, char** arguments) {
    const auto count = argumentCount == 3 ? zek::toNumber(arguments[1]) : std::nullopt;
    const auto seed = argumentCount == 3 ? zek::toNumber(arguments[2]) : std::nullopt;
    if (!count || !seed || *count < 0) {
        std::cerr << "usage: make_storm COUNT SEED\n";
        return 2;
    }
    std::cout << "# make_storm " << *count << " " << *seed << "\n"
              << zek::writeScenario(zek::makeStorm(*count, static_cast<unsigned>(*seed)));
    return std::cout.flush() ? 0 : 1;
}
