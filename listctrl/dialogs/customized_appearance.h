// The appearance dialog: colours, font and keywords of one list.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "listctrl/model/columns/appearance.h"

namespace mc {

// What the dialog is asked with.
struct AppearanceQuestion {
    std::string caption;               // of the dialog
    std::vector<std::string> columns;  // captions by column id; none: keywords are not offered
    Appearance current;
    bool customizable = true;  // otherwise colours and keywords cannot be changed
};

// Runs the dialog over the list's window. Returns what "Apply Settings" closed it with, for the
// caller to apply and to store; nothing when it was cancelled.
std::optional<Appearance> askAppearance(HWND list, const AppearanceQuestion& question);

}  // namespace mc
