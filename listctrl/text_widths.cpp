#include "listctrl/text_widths.h"

#include <numeric>

#include "framework/handles.h"
#include "framework/hwnd.h"

namespace mc {

int CTextWidths::widthOf(std::string_view text, HFONT font) const {
    const CharWidths& widths = charWidths(font);
    return std::accumulate(text.begin(), text.end(), 0, [&](int width, char c) {
        return width + widths[static_cast<unsigned char>(c)];
    });
}

int CTextWidths::stepsOf(std::string_view text, HFONT font, INT* steps) const {
    const CharWidths& widths = charWidths(font);
    return std::accumulate(text.begin(), text.end(), 0, [&](int width, char c) {
        *steps = widths[static_cast<unsigned char>(c)];
        return width + *steps++;
    });
}

const CTextWidths::CharWidths& CTextWidths::charWidths(HFONT font) const {
    const auto [at, fresh] = m_widths.try_emplace(font);
    if (!fresh) return at->second;
    const HWND list = m_list.handle();
    if (font == nullptr) font = fw::fontOf(list);
    const fw::DcScope scope(list);
    const fw::SelectScope select(scope.dc(), font);
    GetCharWidth32A(scope.dc(), 0, 255, at->second.data());
    return at->second;
}

}  // namespace mc
