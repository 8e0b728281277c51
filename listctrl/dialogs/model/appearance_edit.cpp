#include "listctrl/dialogs/model/appearance_edit.h"

#include <algorithm>

#include "settings/model/settings_store.h"
#include "text/filter_pattern.h"

namespace mc {
namespace {

constexpr std::size_t kLongestFace = 31;  // bytes of a face that a font can be made of
constexpr ColumnId kLastColumn{9999};

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), lowerCase);
    return lower;
}

bool breaksTheStoredValue(char c) {
    return c == ',' || static_cast<unsigned char>(c) < ' ';
}

// Whatever column, colours and font are chosen later.
bool staysReadable(Appearance appearance) {
    appearance.background = appearance.text = 0xFFFFFF;
    appearance.fontFace.resize(std::max(appearance.fontFace.size(), kLongestFace), ' ');
    appearance.fontSize.resize(std::max(appearance.fontSize.size(), std::size_t{2}), ' ');
    appearance.keywordColumn = kLastColumn;
    return appearanceText(appearance).size() <= kMaxValue;
}

}  // namespace

AppearanceEdit::AppearanceEdit(Appearance current, std::size_t columns)
    : m_value(std::move(current)) {
    if (m_value.keywordColumn && toIndex(*m_value.keywordColumn) >= columns)
        m_value.keywordColumn.reset();
    if (columns == 0) m_value.keywords.clear();
}

ColorValue AppearanceEdit::color(ColorProperty property) const {
    return property == ColorProperty::text ? m_value.text : m_value.background;
}

void AppearanceEdit::setColor(ColorProperty property, ColorValue color) {
    (property == ColorProperty::text ? m_value.text : m_value.background) = color;
}

void AppearanceEdit::setFont(std::string face, std::string size) {
    m_value.fontFace = std::move(face);
    m_value.fontSize = std::move(size);
}

const char* AppearanceEdit::addKeyword(std::string_view typed) {
    if (typed.find_first_not_of(' ') == typed.npos)
        return "Enter text to add a new keyword to list";
    if (std::ranges::any_of(typed, breaksTheStoredValue))
        return "A keyword cannot contain commas or control characters";
    Appearance changed = m_value;
    std::erase_if(changed.keywords, [lower = lowered(typed)](const Keyword& keyword) {
        return lowered(keyword.text) == lower;
    });
    const auto place = std::ranges::find_if(changed.keywords, [&](const Keyword& keyword) {
        return keyword.text.size() <= typed.size();
    });
    changed.keywords.insert(place, {std::string(typed), m_value.text});
    if (!staysReadable(changed)) return "There is no room for this keyword";
    m_value = std::move(changed);
    return nullptr;
}

void AppearanceEdit::removeKeywords(std::span<const std::size_t> places) {
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        m_value.keywords.erase(m_value.keywords.begin() + static_cast<std::ptrdiff_t>(*place));
}

Appearance AppearanceEdit::applied() const {
    Appearance appearance = m_value;
    for (Keyword& keyword : appearance.keywords) keyword.text = lowered(keyword.text);
    return appearance;
}

std::vector<std::string> fontChoices(std::vector<std::string> families) {
    std::erase_if(families, [](const std::string& family) {
        return family.empty() || family.front() == '@' || family.find(',') != family.npos;
    });
    std::ranges::sort(families);
    families.erase(std::unique(families.begin(), families.end()), families.end());
    return families;
}

}  // namespace mc
