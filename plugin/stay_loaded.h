// Keeping this library loaded while calls into it are under way.
#pragma once

#include <memory>

namespace mc {

// A host may free the library as soon as ExitVoskPlugin has returned, though a call of it is still
// under way behind a message box. What this returns keeps the library loaded; destroyed within the
// last call, it lets it go once the user-interface thread has left that call and asks for messages
// again. Null when the library cannot be kept.
std::shared_ptr<const void> stayLoaded();

}  // namespace mc
