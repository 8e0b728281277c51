// What the Field column calls a message field.
#pragma once

#include <string_view>

namespace mc {

// The caption of a mnemonic id; empty for one that has none.
std::string_view captionOf(int mnemonic);

}  // namespace mc
