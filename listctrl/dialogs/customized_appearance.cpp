#include "listctrl/dialogs/customized_appearance.h"

#include <algorithm>
#include <array>
#include <utility>

#include "framework/controls.h"
#include "framework/dialog.h"
#include "framework/platform.h"
#include "framework/point_font.h"
#include "framework/tool_tip.h"
#include "listctrl/dialogs/color_button.h"
#include "listctrl/dialogs/font_setting.h"
#include "listctrl/dialogs/keyword_list.h"
#include "listctrl/dialogs/model/appearance_edit.h"
#include "res/resource_ids.h"

// windows.h leaves the colour dialog out.
#include <commdlg.h>

namespace mc {
namespace {

constexpr COLORREF kTipColor = 0xFF0000;  // blue

// In the order of the drop-down list.
constexpr std::pair<const char*, ColorProperty> kProperties[] = {
    {"Text", ColorProperty::text},
    {"Background", ColorProperty::background},
};

// Visible for the text only; the items below move up when they are hidden.
constexpr int kKeywordItems[] = {
    IDC_KEYWORD_GROUP,         IDC_KEYWORD_COLUMN_LABEL, IDC_KEYWORD_COLUMN,
    IDC_KEYWORD_COLUMN_UNLOCK, IDC_KEYWORD_TEXT,         IDC_KEYWORD_TEXT_LABEL,
    IDC_KEYWORD_ADD,           IDC_KEYWORD_LIST_LABEL,   IDC_KEYWORD_LIST,
};
constexpr int kItemsBelow[] = {IDC_APPEARANCE_LINE, IDC_APPEARANCE_APPLY, IDC_APPEARANCE_CANCEL,
                               IDC_APPEARANCE_END};

constexpr int kCustomizableItems[] = {
    IDC_APPEARANCE_PROPERTY,   IDC_KEYWORD_COLUMN, IDC_APPEARANCE_COLOR,
    IDC_KEYWORD_COLUMN_UNLOCK, IDC_KEYWORD_TEXT,   IDC_KEYWORD_ADD,
};

constexpr std::pair<int, const char*> kTips[] = {
    {IDC_KEYWORD_COLUMN, "Choose the column for Keywords"},
    {IDC_KEYWORD_COLUMN_UNLOCK, "Click to change column for Keywords"},
    {IDC_KEYWORD_TEXT, "Enter Text to add a keyword to list"},
    {IDC_KEYWORD_ADD, "Click to add a keyword to list"},
    {IDC_APPEARANCE_FONT, "Click to choose the font"},
};

class CCustomizedAppearance final : public fw::CDialog {
public:
    CCustomizedAppearance(HWND list, const AppearanceQuestion& question)
        : m_list(list), m_question(question), m_edit(question.current, question.columns.size()) {}

    std::optional<Appearance> ask() {
        if (run(IDD_APPEARANCE, IDCANCEL) != IDC_APPEARANCE_APPLY) return std::nullopt;
        return m_edit.applied();
    }

protected:
    const fw::MessageMap& messageMap() const override;

private:
    LRESULT onInitDialog();
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);
    void onPropertyChanged();
    void onColumnChanged();
    void onKeywordFocus() { setDefaultButton(IDC_KEYWORD_ADD); }
    void onKeywordBlur() { setDefaultButton(IDC_APPEARANCE_APPLY); }
    void onColor();
    void onFont();
    void onUnlock();
    void onAdd();
    void onKeywordKey(NMLVKEYDOWN& pressed);
    void onApply() { end(IDC_APPEARANCE_APPLY); }
    void onCancel() { end(IDCANCEL); }

    void fillColumns();
    void showFont();
    void showKeywordGroup(bool shown);
    void addTips();
    fw::Combo combo(int id) const { return fw::Combo(item(id)); }
    void enable(int id, bool on) { EnableWindow(item(id), on ? TRUE : FALSE); }
    ColorProperty property() const;
    LRESULT drawFont(const DRAWITEMSTRUCT& draw) const;

    HWND m_list;
    const AppearanceQuestion& m_question;
    AppearanceEdit m_edit;
    CColorButton m_color;
    CKeywordList m_keywords;
    fw::CToolTip m_tips;
    int m_groupHeight = 0;  // in pixels
    bool m_groupShown = true;
};

const fw::MessageMap& CCustomizedAppearance::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_INITDIALOG, &CCustomizedAppearance::onInitDialog>(),
        fw::on<WM_DRAWITEM, &CCustomizedAppearance::onDrawItem>(),
        fw::observe<WM_DESTROY, &CCustomizedAppearance::m_tips, &fw::CToolTip::destroy>(),
        fw::onCommand<IDC_APPEARANCE_PROPERTY, &CCustomizedAppearance::onPropertyChanged,
                      CBN_SELCHANGE>(),
        fw::onCommand<IDC_APPEARANCE_COLOR, &CCustomizedAppearance::onColor, BN_CLICKED>(),
        fw::onCommand<IDC_APPEARANCE_FONT, &CCustomizedAppearance::onFont, BN_CLICKED>(),
        fw::onCommand<IDC_KEYWORD_COLUMN, &CCustomizedAppearance::onColumnChanged, CBN_SELCHANGE>(),
        fw::onCommand<IDC_KEYWORD_TEXT, &CCustomizedAppearance::onKeywordFocus, EN_SETFOCUS>(),
        fw::onCommand<IDC_KEYWORD_TEXT, &CCustomizedAppearance::onKeywordBlur, EN_KILLFOCUS>(),
        fw::onCommand<IDC_KEYWORD_COLUMN_UNLOCK, &CCustomizedAppearance::onUnlock>(),
        fw::onCommand<IDC_KEYWORD_ADD, &CCustomizedAppearance::onAdd>(),
        fw::onCommand<IDC_APPEARANCE_APPLY, &CCustomizedAppearance::onApply>(),
        fw::onCommand<IDC_APPEARANCE_CANCEL, &CCustomizedAppearance::onCancel>(),
        fw::onNotify<IDC_KEYWORD_LIST, LVN_KEYDOWN, &CCustomizedAppearance::onKeywordKey>(),
        fw::onNotify<IDC_KEYWORD_LIST, static_cast<UINT>(NM_CUSTOMDRAW),
                     &CCustomizedAppearance::m_keywords, &CKeywordList::onCustomDraw>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

// ---- Opening ----

LRESULT CCustomizedAppearance::onInitDialog() {
    SetWindowTextA(handle(), m_question.caption.c_str());
    for (const auto& [text, value] : kProperties) combo(IDC_APPEARANCE_PROPERTY).add(text);
    combo(IDC_APPEARANCE_PROPERTY).select(1);
    m_color.attach(item(IDC_APPEARANCE_COLOR));
    m_keywords.attach(item(IDC_KEYWORD_LIST));
    for (const int id : kCustomizableItems) enable(id, m_question.customizable);
    if (!m_question.columns.empty()) fillColumns();
    m_keywords.show(m_edit.keywords());
    m_groupHeight = fw::heightOf(fw::screenRect(item(IDC_KEYWORD_GROUP)));
    addTips();
    showFont();
    onPropertyChanged();
    centerOver(m_list);
    return TRUE;
}

// The column is locked until the button beside it is pressed.
void CCustomizedAppearance::fillColumns() {
    for (const std::string& caption : m_question.columns) combo(IDC_KEYWORD_COLUMN).add(caption);
    if (const auto column = m_edit.keywordColumn())
        combo(IDC_KEYWORD_COLUMN).select(toIndex(*column));
    enable(IDC_KEYWORD_COLUMN, false);
}

void CCustomizedAppearance::addTips() {
    m_tips.create(handle());
    m_tips.setTextColor(kTipColor);
    for (const auto& [id, text] : kTips) m_tips.add(handle(), item(id), text);
}

// ---- The property ----

ColorProperty CCustomizedAppearance::property() const {
    return kProperties[combo(IDC_APPEARANCE_PROPERTY).selected().value_or(0)].second;
}

void CCustomizedAppearance::onPropertyChanged() {
    m_color.setColor(m_edit.color(property()));
    showKeywordGroup(property() == ColorProperty::text);
}

// The dialog's height follows the group's.
void CCustomizedAppearance::showKeywordGroup(bool shown) {
    if (m_groupShown == shown) return;
    m_groupShown = shown;
    const int down = shown ? m_groupHeight : -m_groupHeight;
    setHeight(fw::heightOf(fw::screenRect(handle())) + down);
    for (const int id : kKeywordItems) ShowWindow(item(id), shown ? SW_SHOWNA : SW_HIDE);
    moveItemsDown(kItemsBelow, down);
    InvalidateRect(handle(), nullptr, TRUE);
}

void CCustomizedAppearance::onColor() {
    // The user's own, for the session.
    static std::array<COLORREF, 16> custom = [] {
        std::array<COLORREF, 16> white{};
        white.fill(RGB(255, 255, 255));
        return white;
    }();
    CHOOSECOLORA question{};
    question.lStructSize = sizeof question;
    question.rgbResult = m_color.color();
    question.lpCustColors = custom.data();
    question.Flags = CC_RGBINIT | CC_ANYCOLOR | CC_FULLOPEN;
    const auto ask = [&](HWND owner) -> INT_PTR {
        question.hwndOwner = owner;
        return ChooseColorA(&question);
    };
    if (fw::runModal(ask) == 0) return;
    m_color.setColor(question.rgbResult);
    m_edit.setColor(property(), question.rgbResult);
    InvalidateRect(item(IDC_APPEARANCE_FONT), nullptr, FALSE);
}

// ---- The font ----

void CCustomizedAppearance::onFont() {
    if (!combo(IDC_APPEARANCE_PROPERTY).selected()) return;
    CFontSettingDlg dialog(m_edit.fontFace(), m_edit.fontSize());
    if (!dialog.ask(handle())) return;
    m_edit.setFont(dialog.GetFontName(), dialog.GetFontSize());
    showFont();
}

void CCustomizedAppearance::showFont() {
    const std::string text = m_edit.fontFace() + ", " + m_edit.fontSize();
    SetWindowTextA(item(IDC_APPEARANCE_FONT), text.c_str());
    InvalidateRect(item(IDC_APPEARANCE_FONT), nullptr, FALSE);
}

LRESULT CCustomizedAppearance::onDrawItem(const DRAWITEMSTRUCT& draw) {
    if (draw.CtlID == IDC_APPEARANCE_FONT) return drawFont(draw);
    return reflectDrawItem(draw);
}

// In the chosen colours, face and size; a size beyond the sample's own is cut to that.
LRESULT CCustomizedAppearance::drawFont(const DRAWITEMSTRUCT& draw) const {
    RECT rect = draw.rcItem;
    drawColor(draw.hDC, rect, m_edit.color(ColorProperty::background), GetSysColor(COLOR_BTNTEXT));
    InflateRect(&rect, -2, -2);
    const int dpi = fw::dpiOf(handle());
    const int largest = MulDiv(fw::heightOf(rect) * 3 / 4, 72, dpi);
    const int points = fontPoints(m_edit.fontSize()).value_or(kStandardPoints);
    {
        const fw::Font font = fw::pointFont(m_edit.fontFace(), std::min(points, largest), dpi);
        const fw::SelectScope select(draw.hDC, font.get());
        SetBkMode(draw.hDC, TRANSPARENT);
        SetTextColor(draw.hDC, m_edit.color(ColorProperty::text));
        DrawTextA(draw.hDC, itemText(IDC_APPEARANCE_FONT).c_str(), -1, &rect,
                  DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
    if ((draw.itemState & (ODS_FOCUS | ODS_NOFOCUSRECT)) == ODS_FOCUS)
        DrawFocusRect(draw.hDC, &rect);
    return TRUE;
}

// ---- Keywords ----

void CCustomizedAppearance::onUnlock() {
    enable(IDC_KEYWORD_COLUMN, true);
    focusItem(IDC_KEYWORD_COLUMN);
}

void CCustomizedAppearance::onColumnChanged() {
    if (const auto selected = combo(IDC_KEYWORD_COLUMN).selected())
        m_edit.setKeywordColumn(toColumnId(*selected));
}

void CCustomizedAppearance::onAdd() {
    if (const char* refusal = m_edit.addKeyword(itemText(IDC_KEYWORD_TEXT)))
        return fw::showMessageBox(refusal);
    m_keywords.show(m_edit.keywords());
    SetWindowTextA(item(IDC_KEYWORD_TEXT), "");
    // Keywords without a column would be lost: it is time to choose one.
    if (!m_edit.keywordColumn() && !m_question.columns.empty()) enable(IDC_KEYWORD_COLUMN, true);
}

void CCustomizedAppearance::onKeywordKey(NMLVKEYDOWN& pressed) {
    if (pressed.wVKey != VK_DELETE) return;
    const std::vector<std::size_t> indexes = m_keywords.selected();
    if (indexes.empty()) return;
    m_edit.removeKeywords(indexes);
    m_keywords.show(m_edit.keywords());
    m_keywords.select(indexes.front());
}

}  // namespace

std::optional<Appearance> askAppearance(HWND list, const AppearanceQuestion& question) {
    return CCustomizedAppearance(list, question).ask();
}

}  // namespace mc
