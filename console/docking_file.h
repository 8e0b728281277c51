// Where panes were docked, kept in a file of the console's own from one session to the next: a
// section for each pane, by its caption, with its side and its extent in pixels at 96 dots per
// inch.
#pragma once

#include <string>

#include "framework/docking_site.h"

namespace zek {

// An entry that is missing or that cannot be read is none; a file that cannot be written keeps
// nothing. Neither is reported.
fw::DockMemory dockingFile(const std::string& path);

}  // namespace zek
