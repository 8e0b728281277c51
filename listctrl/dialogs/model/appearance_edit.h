// What the appearance dialog edits: an Appearance under way, with the keywords as typed.
//
// Keywords are ordered longest first, a new one in front of those of its length, so that a keyword
// is tried before a shorter one that it contains.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/columns/appearance.h"

namespace mc {

// What the dialog shows and changes.
enum class ColorProperty { background, text };

class AppearanceEdit {
public:
    // `columns`: how many columns keywords can be searched in; 0: keywords are not offered, and
    // none is kept. A keyword column beyond them is none.
    AppearanceEdit(Appearance current, std::size_t columns);

    ColorValue color(ColorProperty property) const;
    void setColor(ColorProperty property, ColorValue color);

    const std::string& fontFace() const { return m_value.fontFace; }
    const std::string& fontSize() const { return m_value.fontSize; }
    void setFont(std::string face, std::string size);

    std::optional<ColumnId> keywordColumn() const { return m_value.keywordColumn; }
    void setKeywordColumn(ColumnId column) { m_value.keywordColumn = column; }

    const std::vector<Keyword>& keywords() const { return m_value.keywords; }

    // Adds a keyword in the text colour; one that differs only in case gives way to it. Returns
    // null, or why it was refused: an empty text, one that would break the stored value, or one
    // that would make it longer than what the settings give back.
    const char* addKeyword(std::string_view typed);

    // Removes the keywords at these indexes, which are ascending.
    void removeKeywords(std::span<const std::size_t> indexes);

    // What is applied and stored: keywords in lower case.
    Appearance applied() const;

private:
    Appearance m_value;
};

// The sizes that the font dialog offers, in points.
inline constexpr int kFontSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};

// The family names that can be chosen and stored, each once: none with a comma, and no faces turned
// for vertical writing ("@" in front).
std::vector<std::string> fontChoices(std::vector<std::string> families);

}  // namespace mc
