#include "listctrl/list_colors.h"

namespace mc {

COLORREF mixed(COLORREF a, COLORREF b, int share) {
    const auto part = [share](int x, int y) { return (x * share + y * (255 - share)) / 255; };
    return RGB(part(GetRValue(a), GetRValue(b)), part(GetGValue(a), GetGValue(b)),
               part(GetBValue(a), GetBValue(b)));
}

bool highContrast() {
    HIGHCONTRASTA setting{};
    setting.cbSize = sizeof setting;
    return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) != 0 &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

RowColors selectionColors(bool focused) {
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    if (focused || highContrast()) return {highlight, GetSysColor(COLOR_HIGHLIGHTTEXT)};
    return {mixed(highlight, GetSysColor(COLOR_WINDOW), 80), GetSysColor(COLOR_WINDOWTEXT)};
}

}  // namespace mc
