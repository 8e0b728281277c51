// Text for the clipboard.
#pragma once

#include <windows.h>

#include <string>

namespace mc {

// Makes `text` the clipboard's text, owned by `owner`. A clipboard that cannot be opened is left
// alone, without a message; one whose memory cannot be locked is left open.
void copyToClipboard(HWND owner, const std::string& text);

}  // namespace mc
