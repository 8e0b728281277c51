// The sort images that the lists share.
#pragma once

#include "framework/handles.h"

namespace mc {

// Three images of 9 x 5 pixels, in order: none, ascending, descending. Their grey is the system's
// grey text colour at the time of the call; white is transparent. Empty when they cannot be made.
fw::ImageList makeGlyphs();

}  // namespace mc
