#include "listctrl/filter_box.h"

#include <algorithm>

#include "framework/handles.h"

namespace mc {
namespace {

// Posted by a box to itself when its list has dropped or closed. wParam, lParam and result are not
// used.
constexpr UINT kSettle = WM_APP + 0x1C5B;

// Any number that the control has no timer of.
constexpr UINT_PTR kPauseTimer = 0xF117;
constexpr UINT kPauseMilliseconds = 400;

constexpr int kDropHeight = 300;

std::string windowText(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

// The wheel over a closed box is the list's; an open drop-down scrolls itself.
bool wheelOverBox(fw::CWindow& box, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (SendMessageA(box.handle(), CB_GETDROPPEDSTATE, 0, 0) != 0) return false;
    result = SendMessageA(GetParent(GetParent(box.handle())), WM_MOUSEWHEEL, wParam, lParam);
    return true;
}

bool wheelOverEdit(fw::CWindow& edit, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = SendMessageA(GetParent(edit.handle()), WM_MOUSEWHEEL, wParam, lParam);
    return true;
}

}  // namespace

// ---- The windows ----

CFilterBox::~CFilterBox() {
    if (handle() == nullptr) return;  // the label went with it
    DestroyWindow(m_label);
    DestroyWindow(handle());
}

bool CFilterBox::create(HWND header, UINT id, const std::string& name, HFONT font,
                        ColumnFilter filter) {
    // Never seen: a box's name, for screen readers, is the label before it.
    m_label = CreateWindowExA(0, WC_STATICA, name.c_str(), WS_CHILD, 0, 0, 0, 0, header, nullptr,
                              fw::module(), nullptr);
    const HWND combo = CreateWindowExA(
        0, WC_COMBOBOXA, "", WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0,
        0, 60, fw::scaledFor(header, kDropHeight), header, reinterpret_cast<HMENU>(UINT_PTR{id}),
        fw::module(), nullptr);
    if (combo == nullptr || !subclass(combo)) return false;
    if (!m_edit.subclass(FindWindowExA(combo, nullptr, WC_EDITA, nullptr))) return false;
    SendMessageA(combo, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    m_box = FilterBox(std::move(filter));
    show();
    return true;
}

int CFilterBox::height() const {
    RECT rect{};
    GetWindowRect(handle(), &rect);
    return static_cast<int>(rect.bottom - rect.top);
}

// A combo box that gets another size selects its text.
void CFilterBox::moveTo(int left, int top, int width) {
    RECT now{};
    GetWindowRect(handle(), &now);
    MapWindowPoints(HWND_DESKTOP, GetParent(handle()), reinterpret_cast<POINT*>(&now), 2);
    const bool resized = now.right - now.left != width;
    if (!resized && now.left == left && now.top == top) return;
    DWORD first = 0, last = 0;
    SendMessageA(edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    SetWindowPos(handle(), nullptr, left, top, width, scaled(kDropHeight),
                 SWP_NOZORDER | SWP_NOACTIVATE | (resized ? 0U : SWP_NOSIZE));
    if (!resized) return;
    SendMessageA(edit(), EM_SETSEL, first, static_cast<LPARAM>(last));
    SendMessageA(handle(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::max(width, scaled(160))),
                 0);
}

const fw::MessageMap& CFilterBox::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        {WM_MOUSEWHEEL, 0, fw::kAnyCode, wheelOverBox},
        fw::offer<WM_TIMER, &CFilterBox::onTimer>(),
        fw::on<kSettle, &CFilterBox::onSettle>(),
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
        fw::observe<WM_KEYUP, &CEdit::onKeyUp>(),
        fw::observe<WM_SETFOCUS, &CEdit::onFocus>(),
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

// A key that went down in another window has no effect here.
void CFilterBox::CEdit::onFocus() {
    m_box.m_held = isDown(VK_ESCAPE) ? VK_ESCAPE : isDown(VK_RETURN) ? VK_RETURN : 0;
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
            if (dropped()) return stepIn();
            if (pressed == VK_DOWN && !repeated) toggle();
            return true;
        case VK_PRIOR:
        case VK_NEXT:
            return !dropped();
        default:
            return false;
    }
}

bool CFilterBox::key(UINT key) {
    if (key != VK_RETURN && key != VK_ESCAPE) return false;
    if (std::exchange(m_held, key) == key) return true;
    if (key == VK_RETURN)
        enter();
    else
        close(m_box.escaped());
    return true;
}

// By key. Closing the list applies its selected line, as Enter does, but not the text.
void CFilterBox::toggle() {
    if (!dropped()) {
        SendMessageA(handle(), CB_SHOWDROPDOWN, TRUE, 0);
        return;
    }
    const auto chosen = line();
    close(chosen && m_box.taken(*chosen));
}

// The first step into a list without a selected line goes to the first line that begins with the
// text.
bool CFilterBox::stepIn() {
    if (line()) return false;
    const std::string& text = m_box.shown().text;
    const auto found = SendMessageA(handle(), CB_FINDSTRING, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(text.c_str()));
    m_showing = true;
    SendMessageA(handle(), CB_SETCURSEL, static_cast<WPARAM>(std::max<LRESULT>(found, 0)), 0);
    m_showing = false;
    return true;
}

void CFilterBox::enter() {
    const auto chosen = dropped() ? line() : std::nullopt;
    // A text can also be set from outside, without a notification.
    if (std::string text = windowText(edit()); !dropped() && text != m_box.shown().text)
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
            m_box.typed(windowText(edit()));
            SetTimer(handle(), kPauseTimer, kPauseMilliseconds, nullptr);
            return;
        case CBN_SELENDOK:
            if (const auto chosen = line()) m_applies = m_box.taken(*chosen) || m_applies;
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
    const auto& lines = m_box.dropped(m_owner.filterChoices(m_item));
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(handle(), &parts);
    const fw::RedrawOffScope off(parts.hwndList);
    m_showing = true;
    SendMessageA(handle(), CB_RESETCONTENT, 0, 0);
    SendMessageA(handle(), CB_INITSTORAGE, lines.size(), static_cast<LPARAM>(lines.size() * 16));
    for (const std::string& line : lines)
        SendMessageA(handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    m_showing = false;
    show();
    PostMessageA(handle(), kSettle, 0, 0);
}

// The control has finished with a drop or a close.
void CFilterBox::onSettle() {
    m_showing = true;
    if (dropped()) {
        const auto own = m_box.shownLine();
        SendMessageA(handle(), CB_SETCURSEL, own ? *own : static_cast<WPARAM>(-1), 0);
    } else {
        m_box.closed();
        SendMessageA(handle(), CB_RESETCONTENT, 0, 0);
    }
    m_showing = false;
    show();
    if (!m_box.isOpen() && std::exchange(m_applies, false)) apply();
}

bool CFilterBox::onTimer(UINT_PTR id) {
    if (id != kPauseTimer) return false;
    KillTimer(handle(), kPauseTimer);
    if (m_box.paused()) apply();
    return true;
}

// ---- Results ----

std::optional<FilterBox::Line> CFilterBox::line() const {
    const auto chosen = SendMessageA(handle(), CB_GETCURSEL, 0, 0);
    return chosen >= 0 ? std::optional(static_cast<FilterBox::Line>(chosen)) : std::nullopt;
}

void CFilterBox::close(bool filters) {
    m_box.closed();
    m_applies = filters;
    if (dropped()) SendMessageA(handle(), CB_SHOWDROPDOWN, FALSE, 0);
    onSettle();
}

// A value is selected whole, so that typing replaces it; a typed text goes on at its end.
void CFilterBox::show() {
    const ColumnFilter& shown = m_box.shown();
    if (windowText(edit()) != shown.text) {
        m_showing = true;
        SetWindowTextA(handle(), shown.text.c_str());
        m_showing = false;
    }
    if (GetFocus() != edit()) return m_edit.showBeginning();
    const auto end = static_cast<WPARAM>(shown.text.size());
    const bool whole = shown.kind == FilterKind::value;
    SendMessageA(edit(), EM_SETSEL, end, whole ? 0 : static_cast<LPARAM>(end));
}

void CFilterBox::clear() {
    KillTimer(handle(), kPauseTimer);
    m_box = FilterBox();
    close(false);
}

void CFilterBox::apply() {
    KillTimer(handle(), kPauseTimer);
    InvalidateRect(GetParent(handle()), nullptr, FALSE);
    m_owner.filterChanged();
}

}  // namespace mc
