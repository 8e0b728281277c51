#include "listctrl/list_appearance.h"

#include <cstdlib>
#include <utility>

#include "framework/hwnd.h"
#include "framework/list_view.h"
#include "framework/platform.h"
#include "framework/point_font.h"
#include "listctrl/dialogs/customized_appearance.h"

namespace mc {

// ---- Colours ----

void CListAppearance::setBackground(COLORREF color) {
    m_background = color;
    showColors();
}

RowColors CListAppearance::colors() const {
    RowColors colors{GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT)};
    if (highContrast()) return colors;
    if (m_chosen) return {m_chosen->background, m_chosen->text};
    colors.background = m_background.value_or(colors.background);
    return colors;
}

std::optional<ColumnId> CListAppearance::keywordColumn() const {
    return m_chosen ? m_chosen->keywordColumn : std::nullopt;
}

RowColors CListAppearance::colorsOf(std::string_view keywordCell) const {
    RowColors found = colors();
    if (!m_chosen || highContrast()) return found;
    if (const Keyword* keyword = keywordIn(*m_chosen, keywordCell))
        found.text = readableOn(found.background, keyword->color);
    return found;
}

void CListAppearance::showColors() {
    const fw::ListView view(m_list.handle());
    view.setBackground(colors().background);
    if (m_chosen) view.setTextColor(m_chosen->text);
    InvalidateRect(m_list.handle(), nullptr, TRUE);
}

// ---- The chosen appearance ----

std::string CListAppearance::key() const {
    return m_name + "-" + std::to_string(GetDlgCtrlID(m_list.handle()));
}

void CListAppearance::read(std::string name, std::string title) {
    m_name = std::move(name);
    m_title = std::move(title);
    CSettingsStore& settings = m_services.settings();
    std::string stored;
    std::string error;
    if (settings.AccessUserSetting(SETTING_READ, kCustomizeListsSection, key(), stored,
                                   settings.GetUserSettingPath(), error) != 0)
        m_chosen = readAppearance(stored);
    show();
}

void CListAppearance::store() const {
    CSettingsStore& settings = m_services.settings();
    std::string stored = appearanceText(*m_chosen);
    std::string error;
    settings.AccessUserSetting(SETTING_WRITE, kCustomizeListsSection, key(), stored,
                               settings.GetUserSettingPath(), error);
}

// What the dialog starts with: what the list looks like.
Appearance CListAppearance::shown() const {
    if (m_chosen) return *m_chosen;
    LOGFONTA font{};
    GetObjectA(fw::fontOf(m_list.handle()), sizeof font, &font);
    const int dpi = fw::dpiOf(m_list.handle());
    Appearance appearance;
    appearance.background = colors().background;
    appearance.text = GetSysColor(COLOR_WINDOWTEXT);
    appearance.fontFace = font.lfFaceName;
    appearance.fontSize = std::to_string(MulDiv(std::abs(font.lfHeight), 72, dpi));
    return appearance;
}

// Until the user chooses, as the pane's.
fw::Font CListAppearance::makeFont() const {
    if (m_chosen) {
        const int points = fontPoints(m_chosen->fontSize).value_or(kStandardPoints);
        return fw::pointFont(m_chosen->fontFace, points, fw::dpiOf(m_list.handle()));
    }
    const HFONT panes = fw::fontOf(GetAncestor(GetParent(m_list.handle()), GA_PARENT));
    LOGFONTA font{};
    return fw::Font(GetObjectA(panes, sizeof font, &font) != 0 ? CreateFontIndirectA(&font)
                                                               : nullptr);
}

// The font before goes when nothing has it any more.
void CListAppearance::show() {
    const fw::Font before = std::exchange(m_font, makeFont());
    fw::setFont(m_list.handle(), m_font.get());
    measureRows();
    m_hooks.fontChanged();
    showColors();
}

// The control asks for the height of its rows when it is made, and again whenever it hears that its
// size changed.
void CListAppearance::measureRows() const {
    const RECT rect = fw::screenRect(m_list.handle());
    WINDOWPOS same{};
    same.hwnd = m_list.handle();
    same.cx = fw::widthOf(rect);
    same.cy = fw::heightOf(rect);
    same.flags = SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE;
    SendMessageA(m_list.handle(), WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&same));
}

void CListAppearance::customize(const ColumnModel& columns) {
    AppearanceQuestion question{"Customize Appearance :" + m_title, {}, shown(), m_customizable};
    for (std::size_t i = 0; i < columns.size(); ++i)
        question.columns.push_back(columns.descriptor(toColumnId(i)).caption);
    std::optional<Appearance> chosen = askAppearance(m_list.handle(), question);
    if (!chosen || m_list.handle() == nullptr) return;  // the window may go behind the dialog
    m_chosen = std::move(chosen);
    show();
    store();
}

void CListAppearance::columnRemoved(ColumnId removed) {
    if (!keywordColumn()) return;
    const auto moved = idAfterRemoval(*m_chosen->keywordColumn, removed);
    if (moved == m_chosen->keywordColumn) return;
    m_chosen->keywordColumn = moved;
    store();
}

}  // namespace mc
