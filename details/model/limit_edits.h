// How limit values that the checker types in are spelled for the server.
#pragma once

#include <optional>
#include <string>

namespace mc {

// The number that `typed` begins with (0 when it begins with none), with two decimals, or with none
// for the limits that are whole numbers. None when it is too large for a number.
std::optional<std::string> spellLimit(int mnemonic, const std::string& typed);

}  // namespace mc
