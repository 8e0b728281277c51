// The appearance of CCommonListCtrl: colours, font and keywords, asked for and stored.
#include "framework/point_font.h"
#include "listctrl/common_list_ctrl.h"
#include "listctrl/dialogs/customized_appearance.h"

namespace mc {

void CCommonListCtrl::setBackground(COLORREF color) {
    m_ownBackground = color;
    showColors();
}

COLORREF CCommonListCtrl::background() const {
    const COLORREF system = GetSysColor(COLOR_WINDOW);
    if ((!m_appearance && !m_ownBackground) || highContrast()) return system;
    return m_appearance ? m_appearance->background : m_ownBackground.value_or(system);
}

void CCommonListCtrl::showColors() {
    for (const UINT each : {LVM_SETBKCOLOR, LVM_SETTEXTBKCOLOR})
        SendMessageA(handle(), each, 0, static_cast<LPARAM>(background()));
    if (m_appearance)
        SendMessageA(handle(), LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(m_appearance->text));
    InvalidateRect(handle(), nullptr, TRUE);
}

std::string CCommonListCtrl::appearanceKey() const {
    return m_name + "-" + std::to_string(GetDlgCtrlID(handle()));
}

void CCommonListCtrl::readAppearance() {
    CSettingsStore& settings = m_services.settings();
    std::string stored;
    std::string error;
    if (settings.AccessUserSetting(SETTING_READ, kCustomizeListsSection, appearanceKey(), stored,
                                   settings.GetUserSettingPath(), error) != 0)
        m_appearance = mc::readAppearance(stored);
    showAppearance();
}

// What the dialog starts with: what the list looks like.
Appearance CCommonListCtrl::shownAppearance() const {
    if (m_appearance) return *m_appearance;
    LOGFONTA font{};
    const auto handleOfFont = reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0));
    GetObjectA(handleOfFont, sizeof font, &font);
    const int dpi = scaled(USER_DEFAULT_SCREEN_DPI);
    Appearance appearance;
    appearance.background = background();
    appearance.text = GetSysColor(COLOR_WINDOWTEXT);
    appearance.fontFace = font.lfFaceName;
    appearance.fontSize = std::to_string(MulDiv(std::abs(font.lfHeight), 72, dpi));
    return appearance;
}

// Rows, header and what is measured follow the font.
void CCommonListCtrl::showAppearance() {
    if (m_appearance) {
        const int points = fontPoints(m_appearance->fontSize).value_or(kStandardPoints);
        fw::Font font =
            fw::pointFont(m_appearance->fontFace, points, scaled(USER_DEFAULT_SCREEN_DPI));
        SendMessageA(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
        m_font = std::move(font);
    }
    m_charWidths.clear();
    measureRows();
    measureHeader();
    fontChanged();
    showColors();
}

void CCommonListCtrl::customizeAppearance() {
    AppearanceQuestion question{
        "Customize Appearance :" + m_title, {}, shownAppearance(), m_customizable};
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        question.columns.push_back(m_columns.descriptor(toColumnId(i)).caption);
    std::optional<Appearance> chosen = askAppearance(handle(), question);
    if (!chosen || handle() == nullptr) return;  // the window may go behind the dialog
    m_appearance = std::move(*chosen);
    showAppearance();
    storeAppearance();
}

void CCommonListCtrl::storeAppearance() {
    CSettingsStore& settings = m_services.settings();
    std::string stored = appearanceText(*m_appearance);
    std::string error;
    settings.AccessUserSetting(SETTING_WRITE, kCustomizeListsSection, appearanceKey(), stored,
                               settings.GetUserSettingPath(), error);
}

void CCommonListCtrl::moveKeywords(ColumnId removed) {
    if (!m_appearance || !m_appearance->keywordColumn) return;
    const auto moved = idAfterRemoval(*m_appearance->keywordColumn, removed);
    if (moved == m_appearance->keywordColumn) return;
    m_appearance->keywordColumn = moved;
    storeAppearance();
}

}  // namespace mc
