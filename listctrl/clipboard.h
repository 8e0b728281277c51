// Text for the clipboard.
#pragma once

#include <windows.h>

#include <string>

namespace mc {

// Makes `text` the clipboard's text, owned by `owner`. Nothing happens, and nothing is shown, when
// the clipboard cannot be opened. When memory cannot be locked, the clipboard stays open.
void copyToClipboard(HWND owner, const std::string& text);

}  // namespace mc
