#include "listctrl/list_colors.h"

namespace mc {

RowColors selectionColors(bool focused) {
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    if (focused || highContrast()) return {highlight, GetSysColor(COLOR_HIGHLIGHTTEXT)};
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    return {fw::tinted(GetSysColor(COLOR_WINDOW), highlight, 80, text), text};
}

COLORREF faint(COLORREF text, COLORREF ground) {
    return highContrast() ? text : readableOn(ground, mixed(text, ground, 150));
}

}  // namespace mc
