// CTextWidths: how wide texts are, from the widths of a font's characters, which are asked once.
#pragma once

#include <windows.h>

#include <array>
#include <map>
#include <string_view>

#include "framework/window.h"

namespace mc {

inline constexpr std::string_view kDots = "...";  // what a cut text ends in

class CTextWidths {
public:
    // The list must outlive the object.
    explicit CTextWidths(const fw::CWindow& list) : m_list(list) {}

    // In pixels, in a font or in the list's (null). Costs an addition per character.
    int widthOf(std::string_view text, HFONT font = nullptr) const;

    // The same, and how wide each character is, for as many as the text has.
    int stepsOf(std::string_view text, HFONT font, INT* steps) const;

    // The list has another font, and others may be gone.
    void fontChanged() { m_widths.clear(); }

private:
    using CharWidths = std::array<INT, 256>;  // of each byte

    const CharWidths& charWidths(HFONT font) const;

    const fw::CWindow& m_list;
    mutable std::map<HFONT, CharWidths> m_widths;
};

}  // namespace mc
