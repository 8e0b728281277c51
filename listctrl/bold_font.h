// BoldFont: the bold face of a list's font.
#pragma once

#include <windows.h>

#include "framework/handles.h"
#include "framework/hwnd.h"

namespace mc {

class BoldFont {
public:
    // Made when first asked for; null when it cannot be made.
    HFONT of(HWND list) const {
        if (m_font) return m_font.get();
        const HFONT font = fw::fontOf(list);
        LOGFONTA bold{};
        if (GetObjectA(font, sizeof bold, &bold) == 0) return nullptr;
        bold.lfWeight = FW_BOLD;
        m_font.reset(CreateFontIndirectA(&bold));
        return m_font.get();
    }

    // The list has another font.
    void reset() { m_font.reset(); }

private:
    mutable fw::Font m_font;
};

}  // namespace mc
