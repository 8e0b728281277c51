#include "listctrl/dialogs/hot_font_combo.h"

#include <vector>

#include "framework/controls.h"
#include "framework/hwnd.h"
#include "framework/platform.h"
#include "framework/point_font.h"
#include "listctrl/dialogs/model/appearance_edit.h"

namespace mc {
namespace {

constexpr int kEntryPoints = 11;
constexpr UINT_PTR kHotTimer = 1;
constexpr UINT kHotMilliseconds = 100;

// Two rectangles from outside in, as system colours; the inner one covers the platform's frame.
struct Frame {
    int outer;
    int inner;
};
constexpr Frame kFlat{COLOR_3DSHADOW, COLOR_WINDOW};
constexpr Frame kLit{COLOR_HIGHLIGHT, COLOR_3DHILIGHT};

int CALLBACK collectFamily(const LOGFONTA* font, const TEXTMETRICA*, DWORD, LPARAM families) {
    reinterpret_cast<std::vector<std::string>*>(families)->emplace_back(font->lfFaceName);
    return 1;
}

std::vector<std::string> screenFamilies() {
    std::vector<std::string> families;
    LOGFONTA all{};  // every face of character set 0
    const fw::DcScope screen(nullptr);
    EnumFontFamiliesExA(screen.dc(), &all, collectFamily, reinterpret_cast<LPARAM>(&families), 0);
    return families;
}

void frameRect(HDC dc, RECT& rect, int color) {
    FrameRect(dc, &rect, GetSysColorBrush(color));
    InflateRect(&rect, -1, -1);
}

}  // namespace

bool CHotFontCombo::attach(HWND combo) {
    if (!subclass(combo)) return false;
    fw::Combo(combo).setEntryHeight(scaled(22));
    return true;
}

const fw::MessageMap& CHotFontCombo::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_DRAWITEM, &CHotFontCombo::onDrawItem>(),
        fw::on<WM_PAINT, &CHotFontCombo::onPaint>(),
        fw::observe<WM_MOUSEMOVE, &CHotFontCombo::onMouseMove>(),
        fw::offer<WM_TIMER, &CHotFontCombo::onTimer>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

void CHotFontCombo::fill(const std::string& preferred) {
    const fw::RedrawOffScope off(handle());
    const fw::Combo combo(handle());
    combo.clear();
    for (const std::string& family : fontChoices(screenFamilies())) combo.add(family);
    combo.select(combo.find(preferred));
}

LRESULT CHotFontCombo::onDrawItem(const DRAWITEMSTRUCT& draw) {
    const bool selected = (draw.itemState & ODS_SELECTED) != 0;
    RECT rect = draw.rcItem;
    FillRect(draw.hDC, &rect, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    const std::string face = fw::Combo(handle()).text(draw.itemID);
    if (face.empty()) return TRUE;  // the box with nothing selected
    const fw::Font font = fw::pointFont(face, kEntryPoints, fw::dpiOf(handle()));
    const fw::SelectScope select(draw.hDC, font.get());
    SetBkMode(draw.hDC, TRANSPARENT);
    SetTextColor(draw.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    rect.left += scaled(4);
    DrawTextA(draw.hDC, face.c_str(), -1, &rect,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    return TRUE;
}

void CHotFontCombo::onPaint() {
    controlDefault(WM_PAINT, 0, 0);
    const Frame& frame = m_hot || IsWindowEnabled(handle()) == 0 ? kLit : kFlat;
    const fw::WindowDcScope window(handle());
    RECT rect = clientRect();
    frameRect(window.dc(), rect, frame.outer);
    frameRect(window.dc(), rect, frame.inner);
}

void CHotFontCombo::onMouseMove(POINT) {
    if (m_hot) return;
    setHot(true);
    SetTimer(handle(), kHotTimer, kHotMilliseconds, nullptr);
}

bool CHotFontCombo::onTimer(UINT_PTR id) {
    if (id != kHotTimer) return false;
    const RECT rect = fw::screenRect(handle());
    if (PtInRect(&rect, fw::mousePoint()) != 0) return true;
    KillTimer(handle(), kHotTimer);
    setHot(false);
    return true;
}

void CHotFontCombo::setHot(bool hot) {
    m_hot = hot;
    InvalidateRect(handle(), nullptr, FALSE);
}

}  // namespace mc
