// A desktop without a screen for the tests.
//
// Wine on an X server answers each injected move of the mouse with pointer and keyboard events of
// the X server's own, some time later; they move the pointer back, or let go of Ctrl and Shift.
// Without a screen nothing comes between a hand's input and the windows.
#pragma once

#include <optional>

// Under Wine, unless MC_ON_SCREEN is set: runs this program again on such a desktop, and returns
// its exit code. Nothing when the program is to go on as it is.
std::optional<int> runWithoutScreen();
