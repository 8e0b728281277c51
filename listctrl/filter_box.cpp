#include "listctrl/filter_box.h"

#include <algorithm>
#include <utility>

#include "framework/drawing.h"
#include "framework/handles.h"
#include "framework/hwnd.h"
#include "listctrl/list_colors.h"
#include "text/count_text.h"

namespace mc {
namespace {

// Posted by a box to itself when its list has dropped or closed. wParam, lParam and result are not
// used.
constexpr UINT kSettle = WM_APP + 0x1C5B;

// Any number that the control has no timer of.
constexpr UINT_PTR kPauseTimer = 0xF117;
constexpr UINT kPauseMilliseconds = 400;

constexpr int kDropHeight = 300;

// The wheel over a closed box is the list's; an open drop-down scrolls itself.
bool wheelOverBox(fw::CWindow& box, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (fw::Combo(box.handle()).dropped()) return false;
    result = SendMessageA(GetParent(GetParent(box.handle())), WM_MOUSEWHEEL, wParam, lParam);
    return true;
}

bool wheelOverEdit(fw::CWindow& edit, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = SendMessageA(GetParent(edit.handle()), WM_MOUSEWHEEL, wParam, lParam);
    return true;
}

// Sent for each line that goes, as the box draws them; its owner has nothing to do for it.
bool lineGoes(fw::CWindow&, WPARAM, LPARAM, LRESULT& result) {
    result = TRUE;
    return true;
}

// The lines of the open drop-down. By messages to the list itself: the control's own would empty
// the edit, and with it what is being typed.
void fillDrop(HWND box, const FilterBox& shown) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(box, &parts);
    const std::size_t lines = shown.lineCount();
    {
        const fw::RedrawOffScope off(parts.hwndList);
        SendMessageA(parts.hwndList, LB_RESETCONTENT, 0, 0);
        SendMessageA(parts.hwndList, LB_INITSTORAGE, lines, static_cast<LPARAM>(lines * 16));
        for (FilterBox::Line line = 0; line < lines; ++line)
            SendMessageA(parts.hwndList, LB_ADDSTRING, 0,
                         reinterpret_cast<LPARAM>(shown.lineText(line).c_str()));
    }
    InvalidateRect(parts.hwndList, nullptr, TRUE);
}

}  // namespace

// ---- The windows ----

CFilterBox::~CFilterBox() {
    if (handle() == nullptr) return;  // the label went with it
    DestroyWindow(m_label);
    DestroyWindow(handle());
}

bool CFilterBox::create(HWND header, UINT id, const std::string& name, HFONT font,
                        const Heights& heights, ColumnFilter filter) {
    m_label = fw::makeNameLabel(header, name);
    const HWND combo = fw::makeControl(WC_COMBOBOXA, "",
                                       WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN |
                                           CBS_AUTOHSCROLL | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS,
                                       0, {60, fw::scaledFor(header, kDropHeight)}, header, id);
    if (combo == nullptr || !subclass(combo)) return false;
    if (!m_edit.subclass(FindWindowExA(combo, nullptr, WC_EDITA, nullptr))) return false;
    setFont(font, heights);
    m_box = FilterBox(std::move(filter));
    show();
    return true;
}

void CFilterBox::setFont(HFONT font, const Heights& heights) {
    const fw::Edit typed(edit());
    const auto [first, end] = typed.selection();
    fw::setFont(handle(), font);
    combo().setBoxHeight(heights.closed);
    combo().setEntryHeight(heights.line);
    typed.select(first, end);
    InvalidateRect(handle(), nullptr, TRUE);
}

void CFilterBox::closeDrop() const {
    if (combo().dropped()) combo().drop(false);
}

CFilterBox::Heights CFilterBox::heightsIn(HFONT font, HWND header) {
    const HWND plain =
        fw::makeControl(WC_COMBOBOXA, "", WS_CHILD | CBS_DROPDOWN, 0, {60, 60}, header, 0);
    fw::setFont(plain, font);
    const Heights heights{fw::Combo(plain).boxHeight(), fw::Combo(plain).entryHeight()};
    DestroyWindow(plain);
    return heights;
}

int CFilterBox::height() const {
    return fw::heightOf(fw::screenRect(handle()));
}

// A combo box that gets another size selects its text.
void CFilterBox::moveTo(int left, int top, int width) {
    const RECT now = fw::rectInParent(handle());
    const bool resized = fw::widthOf(now) != width;
    if (!resized && now.left == left && now.top == top) return;
    const fw::Edit typed(edit());
    const auto [first, end] = typed.selection();
    SetWindowPos(handle(), nullptr, left, top, width, scaled(kDropHeight),
                 SWP_NOZORDER | SWP_NOACTIVATE | (resized ? 0U : SWP_NOSIZE));
    if (!resized) return;
    typed.select(first, end);
    combo().setDropWidth(std::max(width, scaled(200)));
}

const fw::MessageMap& CFilterBox::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        {WM_MOUSEWHEEL, 0, fw::kAnyCode, wheelOverBox},
        fw::offer<WM_TIMER, &CFilterBox::onTimer>(),
        fw::on<kSettle, &CFilterBox::onSettle>(),
        fw::on<WM_DRAWITEM, &CFilterBox::onDrawItem>(),
        {WM_DELETEITEM, 0, fw::kAnyCode, lineGoes},
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

const fw::MessageMap& CFilterBox::CEdit::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        {WM_MOUSEWHEEL, 0, fw::kAnyCode, wheelOverEdit},
        fw::on<WM_GETDLGCODE, &CEdit::onGetDialogCode>(),
        fw::offer<WM_KEYDOWN, &CEdit::onKeyDown>(),
        fw::offer<WM_SYSKEYDOWN, &CEdit::onSystemKeyDown>(),
        fw::on<WM_KILLFOCUS, &CEdit::onFocusLost>(),
        fw::offer<WM_CHAR, &CEdit::onCharacter>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

// ---- Keys ----

// Enter and Esc are the box's in a dialog, too.
LRESULT CFilterBox::CEdit::onGetDialogCode(const MSG* message) {
    const LRESULT code = controlDefault(WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(message));
    const bool own = message != nullptr && message->message == WM_KEYDOWN &&
                     (message->wParam == VK_RETURN || message->wParam == VK_ESCAPE);
    return own ? code | DLGC_WANTMESSAGE : code;
}

bool CFilterBox::CEdit::onSystemKeyDown(UINT key, bool repeated) {
    if (key != VK_UP && key != VK_DOWN) return false;
    if (!repeated) m_box.toggle();
    return true;
}

// A combo box's edit shows its selection without the focus, too.
void CFilterBox::CEdit::onFocusLost() {
    controlDefault(WM_KILLFOCUS, reinterpret_cast<WPARAM>(GetFocus()), 0);
    showBeginning();
}

// The edit would beep at the characters of Enter and Esc.
bool CFilterBox::CEdit::onCharacter(UINT character) {
    return character == '\r' || character == '\n' || character == VK_ESCAPE;
}

bool CFilterBox::onKeyDown(UINT pressed, bool repeated) {
    switch (pressed) {
        case VK_RETURN:
        case VK_ESCAPE:
            return repeated || key(pressed);
        case VK_F4:
            if (!repeated) toggle();
            return true;
        case VK_UP:
        case VK_DOWN:
            if (combo().dropped()) return stepIn();
            if (pressed == VK_DOWN && !repeated) toggle();
            return true;
        case VK_PRIOR:
        case VK_NEXT:
            return !combo().dropped();
        default:
            return false;
    }
}

bool CFilterBox::key(UINT key) {
    if (key != VK_RETURN && key != VK_ESCAPE) return false;
    if (key == VK_RETURN)
        enter();
    else
        close(m_box.escaped());
    return true;
}

// By key. Closing the list applies its selected line, as Enter does, but not the text.
void CFilterBox::toggle() {
    if (!combo().dropped()) return combo().drop(true);
    const auto chosen = combo().selected();
    close(chosen && m_box.taken(*chosen));
}

// The first step into a list without a selected line goes to the first line that begins with the
// text, or the first of those that typing has left.
bool CFilterBox::stepIn() {
    if (combo().selected()) return false;
    const auto found = combo().findBeginning(m_box.shown().text);
    m_showing = true;
    const std::size_t first = m_box.isNarrowed() && m_box.lineCount() > 1 ? 1 : 0;
    combo().select(found.value_or(first));
    m_showing = false;
    return true;
}

void CFilterBox::enter() {
    const bool dropped = combo().dropped();
    const auto chosen = dropped ? combo().selected() : std::nullopt;
    // A text can also be set from outside, without a notification.
    if (std::string text = fw::textOf(edit()); !dropped && text != m_box.shown().text)
        m_box.typed(std::move(text));
    close(m_box.entered(chosen));
}

// ---- Notifications of the control ----

void CFilterBox::onNotification(UINT code) {
    switch (code) {
        case CBN_SETFOCUS:
        case CBN_KILLFOCUS:
            return m_owner.partFocusChanged();
        case CBN_DROPDOWN:
            return onDropped();
        case CBN_EDITCHANGE:
            if (m_showing) return;
            m_box.typed(fw::textOf(edit()));
            if (m_box.isOpen()) fillDrop(handle(), m_box);
            SetTimer(handle(), kPauseTimer, kPauseMilliseconds, nullptr);
            return;
        case CBN_SELENDOK:
            if (const auto chosen = combo().selected())
                m_applies = m_box.taken(*chosen) || m_applies;
            return;
        case CBN_CLOSEUP:
            m_box.closed();
            PostMessageA(handle(), kSettle, 0, 0);
            return;
        default:
            return;
    }
}

void CFilterBox::onDropped() {
    const bool byName = fw::isDown(VK_CONTROL);
    auto choices =
        m_owner.filterChoices(m_item, byName ? ValueOrder::alphabetical : ValueOrder::mostFrequent);
    if (!choices) {
        PostMessageA(handle(), CB_SHOWDROPDOWN, FALSE, 0);
        return;
    }
    m_box.dropped(std::move(*choices));
    fillDrop(handle(), m_box);
    show();
    PostMessageA(handle(), kSettle, 0, 0);
}

// The control has finished with a drop or a close.
void CFilterBox::onSettle() {
    m_showing = true;
    if (combo().dropped()) {
        combo().select(m_box.shownLine());
    } else {
        m_box.closed();
        combo().clear();
    }
    m_showing = false;
    show();
    if (!m_box.isOpen() && std::exchange(m_applies, false)) apply();
}

bool CFilterBox::onTimer(UINT_PTR id) {
    if (id != kPauseTimer) return false;
    if (m_box.isOpen()) return true;  // looked at again when it may be closed
    KillTimer(handle(), kPauseTimer);
    if (applyTyped()) m_owner.filterChanged();
    return true;
}

// ---- Drawing ----

// A line of the drop-down: the value, and at the right how many rows it would leave.
LRESULT CFilterBox::onDrawItem(const DRAWITEMSTRUCT& draw) {
    const bool selected = (draw.itemState & ODS_SELECTED) != 0;
    const COLORREF ground = GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
    const COLORREF words = GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
    fw::fill(draw.hDC, draw.rcItem, ground);
    if (static_cast<int>(draw.itemID) < 0) return TRUE;
    SetBkMode(draw.hDC, TRANSPARENT);
    RECT rest = draw.rcItem;
    InflateRect(&rest, -scaled(3), 0);
    constexpr UINT kLine = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    if (const auto rows = m_box.lineRows(draw.itemID)) {
        const std::string count = countText(*rows);
        SIZE size{};
        GetTextExtentPoint32A(draw.hDC, count.c_str(), static_cast<int>(count.size()), &size);
        SetTextColor(draw.hDC, selected ? words : faint(words, ground));
        DrawTextA(draw.hDC, count.c_str(), -1, &rest, kLine | DT_RIGHT);
        rest.right -= size.cx + scaled(8);
    }
    SetTextColor(draw.hDC, words);
    DrawTextA(draw.hDC, m_box.lineText(draw.itemID).c_str(), -1, &rest, kLine | DT_END_ELLIPSIS);
    return TRUE;
}

// ---- Results ----

void CFilterBox::close(bool filters) {
    m_box.closed();
    m_applies = filters;
    closeDrop();
    onSettle();
}

// A value is selected whole, so that typing replaces it; a typed text goes on at its end.
void CFilterBox::show() {
    const ColumnFilter& shown = m_box.shown();
    if (fw::textOf(edit()) != shown.text) {
        m_showing = true;
        SetWindowTextA(handle(), shown.text.c_str());
        m_showing = false;
    }
    if (GetFocus() != edit()) return m_edit.showBeginning();
    const std::size_t end = shown.text.size();
    fw::Edit(edit()).select(end, shown.kind == FilterKind::value ? 0 : end);
}

bool CFilterBox::applyTyped() {
    if (!m_box.paused()) return false;
    KillTimer(handle(), kPauseTimer);
    InvalidateRect(GetParent(handle()), nullptr, FALSE);
    return true;
}

void CFilterBox::putBack(ColumnFilter filter) {
    KillTimer(handle(), kPauseTimer);
    m_box = FilterBox(std::move(filter));
    close(false);
}

void CFilterBox::apply() {
    KillTimer(handle(), kPauseTimer);
    InvalidateRect(GetParent(handle()), nullptr, FALSE);
    m_owner.filterChanged();
}

}  // namespace mc
