// The rejection dialog: asks the checker for the reason of a reject.
#pragma once

#include <string>

namespace mc {

// Runs the dialog over the active window. Returns the text typed when OK closed it, and empty text
// otherwise. Messages come in while it is open.
std::string askRejectionReason();

}  // namespace mc
