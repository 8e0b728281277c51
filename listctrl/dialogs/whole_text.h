// A window that shows a text whole, to be read, selected and copied.
#pragma once

#include <windows.h>

#include <span>
#include <string>

#include "listctrl/model/whole_text.h"

namespace mc {

// Returns when it is closed. `mayCopy`: the host lets what lists show be copied. Over `window`,
// which may be gone afterwards.
void showWholeText(std::span<const NamedText> texts, bool mayCopy, HWND window);

// The same for a text of the program's own, which can always be copied.
void showText(const char* caption, std::string text, HWND window);

}  // namespace mc
