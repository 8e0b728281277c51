#include "listctrl/filter_header.h"

#include <algorithm>

#include "listctrl/list_colors.h"
#include "listctrl/model/filter_choices.h"

namespace {

constexpr UINT kFirstBoxId = 5000;
constexpr UINT_PTR kPauseTimer = 1;
constexpr UINT kPauseMilliseconds = 400;

std::string windowText(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace

namespace fw {
template <>
struct Crack<HDM_LAYOUT> {  // (HDLAYOUT&)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(*reinterpret_cast<HDLAYOUT*>(l));
    }
};
}  // namespace fw

bool CFilterHeader::attach(HWND header, HFONT font, HIMAGELIST glyphs) {
    m_font = font;
    m_glyphs = glyphs;
    SetWindowLongPtrA(header, GWL_STYLE, GetWindowLongPtrA(header, GWL_STYLE) | WS_CLIPCHILDREN);
    return subclass(header);
}

const fw::MessageMap& CFilterHeader::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<HDM_LAYOUT, &CFilterHeader::onLayout>(),
        fw::on<WM_PAINT, &CFilterHeader::onPaint>(),
        fw::on<WM_ERASEBKGND, &CFilterHeader::onErase>(),
        fw::observe<WM_SIZE, &CFilterHeader::onSize>(),
        fw::onAnyCommand<&CFilterHeader::onBoxCommand>(),
        fw::on<WM_TIMER, &CFilterHeader::onTimer>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

LRESULT CFilterHeader::onLayout(HDLAYOUT& layout) {
    const LRESULT result = controlDefault(HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout));
    m_captionHeight = layout.pwpos->cy;
    layout.pwpos->cy += m_boxHeight;
    layout.prc->top += m_boxHeight;
    return result;
}

// ---- The boxes ----

void CFilterHeader::setBoxes(const std::vector<std::string>& texts) {
    KillTimer(handle(), kPauseTimer);
    for (const Box& box : m_boxes)
        for (const HWND window : {box.label, box.combo}) DestroyWindow(window);
    m_boxes.clear();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        // Never seen: a box's name, for screen readers, is the label before it.
        const std::string name = caption(static_cast<int>(i)).text + " filter";
        const HWND label = CreateWindowExA(0, WC_STATICA, name.c_str(), WS_CHILD, 0, 0, 0, 0,
                                           handle(), nullptr, fw::module(), nullptr);
        const HWND combo = CreateWindowExA(
            0, WC_COMBOBOXA, "",
            WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0, 0, 60, 300,
            handle(), reinterpret_cast<HMENU>(kFirstBoxId + i), fw::module(), nullptr);
        SendMessageA(combo, WM_SETFONT, reinterpret_cast<WPARAM>(m_font), FALSE);
        SetWindowTextA(combo, texts[i].c_str());
        m_boxes.push_back({label, combo, FindWindowExA(combo, nullptr, "Edit", nullptr)});
        RECT place{};
        GetWindowRect(combo, &place);
        m_boxHeight = static_cast<int>(place.bottom - place.top) + scaled(2);
    }
    layOutBoxes();
}

void CFilterHeader::layOutBoxes() {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const RECT item = itemRect(static_cast<int>(i));
        const int width = std::max(static_cast<int>(item.right - item.left) - scaled(2), 0);
        SetWindowPos(m_boxes[i].combo, nullptr, item.left, m_captionHeight, width, scaled(300),
                     SWP_NOZORDER | SWP_NOACTIVATE);
        const int least = std::max(width, scaled(160));
        SendMessageA(m_boxes[i].combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(least), 0);
    }
    InvalidateRect(handle(), nullptr, FALSE);
}

RECT CFilterHeader::itemRect(int item) const {
    RECT place{};
    SendMessageA(handle(), HDM_GETITEMRECT, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&place));
    return place;
}

std::string CFilterHeader::text(int item) const {
    const auto box = static_cast<std::size_t>(item);
    return box < m_boxes.size() ? filterOfBox(windowText(m_boxes[box].combo)) : std::string();
}

void CFilterHeader::clear() {
    for (const Box& box : m_boxes) SetWindowTextA(box.combo, "");
    InvalidateRect(handle(), nullptr, FALSE);
}

std::vector<HWND> CFilterHeader::stops() const {
    std::vector<HWND> edits;
    for (const Box& box : m_boxes) edits.push_back(box.edit);
    return edits;
}

LRESULT CFilterHeader::onBoxCommand(UINT id, UINT code) {
    const int item = static_cast<int>(id - kFirstBoxId);
    if (item < 0 || static_cast<std::size_t>(item) >= m_boxes.size()) return 0;
    if (code == CBN_SETFOCUS || code == CBN_KILLFOCUS) m_owner.boxFocusChanged();
    if (code == CBN_DROPDOWN) fillChoices(item);
    if (code == CBN_SELENDOK) takeChoice(item);
    if (code == CBN_EDITCHANGE) SetTimer(handle(), kPauseTimer, kPauseMilliseconds, nullptr);
    return 0;
}

void CFilterHeader::fillChoices(int item) {
    const HWND combo = m_boxes[static_cast<std::size_t>(item)].combo;
    const std::string typed = windowText(combo);
    const std::vector<std::string> choices = boxChoices(m_owner.filterChoices(item));
    {
        const fw::RedrawOffScope off(combo);
        SendMessageA(combo, CB_RESETCONTENT, 0, 0);
        for (const std::string& choice : choices)
            SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
    }
    if (typed.empty())
        SendMessageA(combo, CB_SETCURSEL, 0, 0);
    else
        SetWindowTextA(combo, typed.c_str());
}

void CFilterHeader::takeChoice(int item) {
    const HWND combo = m_boxes[static_cast<std::size_t>(item)].combo;
    const auto chosen = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    if (chosen < 0) return;
    const auto length = SendMessageA(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(chosen), 0);
    std::string choice(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, '\0');
    SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(chosen),
                 reinterpret_cast<LPARAM>(choice.data()));
    choice.resize(choice.size() - 1);
    SetWindowTextA(combo, choice.c_str());
    apply();
}

void CFilterHeader::onTimer() {
    apply();
}

void CFilterHeader::apply() {
    KillTimer(handle(), kPauseTimer);
    m_owner.filterChanged();
    InvalidateRect(handle(), nullptr, FALSE);
}

bool CFilterHeader::dialogKey(HWND focus, UINT key) {
    const auto box = std::find_if(m_boxes.begin(), m_boxes.end(),
                                  [focus](const Box& each) { return each.edit == focus; });
    if (box == m_boxes.end() || (key != VK_RETURN && key != VK_ESCAPE)) return false;
    // An open drop-down takes both keys itself.
    if (SendMessageA(box->combo, CB_GETDROPPEDSTATE, 0, 0) != 0) {
        if (key == VK_RETURN) takeChoice(static_cast<int>(box - m_boxes.begin()));
        SendMessageA(box->combo, CB_SHOWDROPDOWN, FALSE, 0);
        return true;
    }
    if (key == VK_ESCAPE) SetWindowTextA(box->combo, "");
    apply();
    return true;
}

// ---- Drawing ----

void CFilterHeader::onPaint() {
    const fw::PaintScope paint(handle());
    const HDC dc = paint.dc();
    RECT client = clientRect();
    FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    const fw::SelectScope select(dc, m_font);
    SetBkMode(dc, TRANSPARENT);
    const auto items = static_cast<int>(SendMessageA(handle(), HDM_GETITEMCOUNT, 0, 0));
    for (int item = 0; item < items; ++item) drawItem(dc, item);
    DrawEdge(dc, &client, BDR_SUNKENOUTER, BF_BOTTOM);
}

CFilterHeader::Caption CFilterHeader::caption(int item) const {
    char text[256]{};
    HDITEMA info{};
    info.mask = HDI_TEXT | HDI_FORMAT | HDI_IMAGE;
    info.pszText = text;
    info.cchTextMax = sizeof text;
    SendMessageA(handle(), HDM_GETITEMA, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&info));
    return {text, info.fmt, info.iImage};
}

void CFilterHeader::drawItem(HDC dc, int item) const {
    const Caption shown = caption(item);
    RECT place = itemRect(item);
    const bool filtered = !text(item).empty();
    if (filtered) {
        const COLORREF tint = mixed(GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_BTNFACE), 70);
        RECT marked{place.left, place.top, place.right - 1, place.bottom};
        SetBkColor(dc, tint);
        ExtTextOutA(dc, 0, 0, ETO_OPAQUE, &marked, nullptr, 0, nullptr);
    }
    RECT edge{place.right - 2, place.top + 2, place.right, place.bottom - 2};
    DrawEdge(dc, &edge, EDGE_ETCHED, BF_RIGHT);

    RECT words{place.left + scaled(6), place.top, place.right - scaled(6),
               place.top + m_captionHeight};
    if ((shown.format & HDF_IMAGE) != 0) {
        words.right -= scaled(13);
        ImageList_Draw(m_glyphs, shown.image, dc, words.right + scaled(3),
                       place.top + (m_captionHeight - 5) / 2, ILD_TRANSPARENT);
    }
    static constexpr UINT alignments[] = {DT_LEFT, DT_RIGHT, DT_CENTER};
    SetTextColor(dc, GetSysColor(filtered && highContrast() ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
    DrawTextA(dc, shown.text.c_str(), -1, &words,
              alignments[(shown.format & HDF_JUSTIFYMASK) % 3] | DT_SINGLELINE | DT_VCENTER |
                  DT_END_ELLIPSIS | DT_NOPREFIX);
}
