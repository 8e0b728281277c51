#include "listctrl/clipboard.h"

#include <cstring>

namespace mc {

void copyToClipboard(HWND owner, const std::string& text) {
    if (OpenClipboard(owner) == 0) return;
    EmptyClipboard();
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, text.size() + 1);
    void* const memory = block != nullptr ? GlobalLock(block) : nullptr;
    if (memory == nullptr) return;
    std::memcpy(memory, text.c_str(), text.size() + 1);
    GlobalUnlock(block);
    if (SetClipboardData(CF_TEXT, block) == nullptr) GlobalFree(block);
    CloseClipboard();
}

}  // namespace mc
