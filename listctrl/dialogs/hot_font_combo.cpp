#include "listctrl/dialogs/hot_font_combo.h"

#include <vector>

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
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExA(screen, &all, collectFamily, reinterpret_cast<LPARAM>(&families), 0);
    ReleaseDC(nullptr, screen);
    return families;
}

void frameRect(HDC dc, RECT& place, int color) {
    FrameRect(dc, &place, GetSysColorBrush(color));
    InflateRect(&place, -1, -1);
}

}  // namespace

bool CHotFontCombo::attach(HWND combo) {
    if (!subclass(combo)) return false;
    SendMessageA(combo, CB_SETITEMHEIGHT, 0, scaled(22));
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
    SendMessageA(handle(), CB_RESETCONTENT, 0, 0);
    for (const std::string& family : fontChoices(screenFamilies()))
        SendMessageA(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(family.c_str()));
    const auto found = SendMessageA(handle(), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(preferred.c_str()));
    SendMessageA(handle(), CB_SETCURSEL, static_cast<WPARAM>(found), 0);
}

LRESULT CHotFontCombo::onDrawItem(const DRAWITEMSTRUCT& draw) {
    const bool selected = (draw.itemState & ODS_SELECTED) != 0;
    RECT place = draw.rcItem;
    FillRect(draw.hDC, &place, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    char face[LF_FACESIZE]{};
    if (static_cast<int>(draw.itemID) < 0 ||
        SendMessageA(handle(), CB_GETLBTEXTLEN, draw.itemID, 0) >= LF_FACESIZE)
        return TRUE;
    SendMessageA(handle(), CB_GETLBTEXT, draw.itemID, reinterpret_cast<LPARAM>(face));
    const fw::Font font = fw::pointFont(face, kEntryPoints, scaled(USER_DEFAULT_SCREEN_DPI));
    const fw::SelectScope select(draw.hDC, font.get());
    SetBkMode(draw.hDC, TRANSPARENT);
    SetTextColor(draw.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    place.left += scaled(4);
    DrawTextA(draw.hDC, face, -1, &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    return TRUE;
}

void CHotFontCombo::onPaint() {
    controlDefault(WM_PAINT, 0, 0);
    const Frame& frame = m_hot || IsWindowEnabled(handle()) == 0 ? kLit : kFlat;
    const fw::WindowDcScope window(handle());
    RECT place = clientRect();
    frameRect(window.dc(), place, frame.outer);
    frameRect(window.dc(), place, frame.inner);
}

void CHotFontCombo::onMouseMove(POINT) {
    if (m_hot) return;
    setHot(true);
    SetTimer(handle(), kHotTimer, kHotMilliseconds, nullptr);
}

bool CHotFontCombo::onTimer(UINT_PTR id) {
    if (id != kHotTimer) return false;
    POINT cursor{};
    RECT place{};
    GetCursorPos(&cursor);
    GetWindowRect(handle(), &place);
    if (PtInRect(&place, cursor) != 0) return true;
    KillTimer(handle(), kHotTimer);
    setHot(false);
    return true;
}

void CHotFontCombo::setHot(bool hot) {
    m_hot = hot;
    InvalidateRect(handle(), nullptr, FALSE);
}

}  // namespace mc
