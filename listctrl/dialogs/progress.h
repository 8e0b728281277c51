// Long work on this thread, seen and ended by the user.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace mc {

// Tells how many of the rows are done. Returns false when the work should stop.
using ProgressStep = std::function<bool(std::size_t done)>;

// Runs `work`, which goes through `total` rows and calls its step for each. When that takes longer
// than a moment, a dialog says how far it is, and offers Cancel. While it is open the user's input
// and painting are handled, and no other message that was posted: what the work reads stays as it
// is. False when the work was cancelled, or its window could not be made.
bool runWithProgress(const std::string& caption, std::size_t total,
                     const std::function<void(const ProgressStep&)>& work);

}  // namespace mc
