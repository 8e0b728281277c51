// Mouse and keys of CCommonListCtrl, the selection that they make, and what others ask of it.
#include <algorithm>

#include "listctrl/common_list_ctrl.h"

namespace mc {
namespace {

Modifiers modifiersDown() {
    return {GetKeyState(VK_CONTROL) < 0, GetKeyState(VK_SHIFT) < 0};
}

// When the message that is being handled came.
std::uint32_t messageTime() {
    return static_cast<std::uint32_t>(GetMessageTime());
}

// A row, or -1 for none.
LRESULT answer(std::optional<std::size_t> row) {
    return row ? static_cast<LRESULT>(*row) : -1;
}

}  // namespace

// ---- Mouse and keys ----

std::optional<std::size_t> CCommonListCtrl::rowAt(POINT client) const {
    LVHITTESTINFO hit{};
    hit.pt = client;
    const auto row = SendMessageA(handle(), LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (row < 0) return std::nullopt;
    return static_cast<std::size_t>(row);
}

// `notice` begins a structure that is filled apart from its header.
void CCommonListCtrl::tellParent(NMHDR& notice, UINT code) const {
    notice = {handle(), static_cast<UINT_PTR>(GetDlgCtrlID(handle())), code};
    HWND parent = GetParent(handle());
    if (parent == nullptr) parent = GetWindow(handle(), GW_OWNER);
    SendMessageA(parent, WM_NOTIFY, notice.idFrom, reinterpret_cast<LPARAM>(&notice));
}

void CCommonListCtrl::notifyParent(UINT code, POINT at, std::optional<std::size_t> row) {
    NMITEMACTIVATE notice{};
    notice.iItem = static_cast<int>(answer(row));
    notice.ptAction = at;
    tellParent(notice.hdr, code);
}

void CCommonListCtrl::tellSelection() {
    const bool any = m_store.selectedCount() != 0;
    NMLISTVIEW notice{};
    notice.iItem = -1;
    notice.uNewState = any ? LVIS_SELECTED : 0;
    notice.uOldState = any ? 0 : LVIS_SELECTED;
    notice.uChanged = LVIF_STATE;
    tellParent(notice.hdr, LVN_ITEMCHANGED);
}

bool CCommonListCtrl::byHand(const std::function<void()>& change) {
    const std::uint64_t before = m_store.selectionRevision();
    change();
    storeChanged();
    if (m_store.selectionRevision() != before) tellSelection();
    return handle() != nullptr;
}

bool CCommonListCtrl::press(POINT client) {
    SetFocus(handle());  // an editor that loses it may ask the user
    if (handle() == nullptr) return false;
    m_find.end();
    return byHand([&] { m_rules.click(rowAt(client), modifiersDown()); });
}

bool CCommonListCtrl::claims(UINT key) const {
    const Modifiers keys = modifiersDown();
    return isListKey(key, keys.ctrl, keys.shift, offers());
}

void CCommonListCtrl::onButtonUp(POINT client) {
    notifyParent(NM_CLICK, client, rowAt(client));
}

bool CCommonListCtrl::pressTwice(POINT client) {
    if (press(client)) notifyParent(NM_DBLCLK, client, rowAt(client));
    return handle() != nullptr;
}

void CCommonListCtrl::onRightDown(POINT client) {
    SetFocus(handle());
    if (handle() != nullptr) byHand([&] { m_rules.rightClick(rowAt(client)); });
}

void CCommonListCtrl::onRightUp(POINT client) {
    if (const auto row = rowAt(client)) notifyParent(NM_RCLICK, client, row);
}

// Enter in a list belongs to the list: it must never press the dialog's default button.
LRESULT CCommonListCtrl::onGetDialogCode(const MSG* message) {
    const LRESULT code = controlDefault(WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(message)) |
                         DLGC_WANTCHARS;  // letters find rows
    return message != nullptr && message->wParam == VK_RETURN ? code | DLGC_WANTMESSAGE : code;
}

bool CCommonListCtrl::navigate(UINT key) {
    static constexpr struct {
        UINT key;
        Move move;
    } moves[] = {{VK_UP, Move::up},         {VK_DOWN, Move::down}, {VK_PRIOR, Move::pageUp},
                 {VK_NEXT, Move::pageDown}, {VK_HOME, Move::home}, {VK_END, Move::end}};
    const auto found = std::find_if(std::begin(moves), std::end(moves),
                                    [&](const auto& each) { return each.key == key; });
    if (found == std::end(moves)) return false;
    const auto page = static_cast<std::size_t>(SendMessageA(handle(), LVM_GETCOUNTPERPAGE, 0, 0));
    m_find.end();
    byHand([&] {
        if (const auto row = m_rules.move(found->move, page, modifiersDown())) bringIntoView(*row);
    });
    return true;
}

void CCommonListCtrl::bringIntoView(std::size_t row) const {
    SendMessageA(handle(), LVM_ENSUREVISIBLE, row, FALSE);
}

bool CCommonListCtrl::goTo(std::size_t row) {
    return byHand([&] {
        m_rules.goTo(row);
        bringIntoView(row);
    });
}

// The blank selects, unless letters are being typed.
bool CCommonListCtrl::selectByKey(UINT key, Modifiers keys) {
    if (key != VK_SPACE) return false;
    if (!keys.ctrl && !keys.shift && m_find.typing(messageTime())) return true;
    m_keyTaken = true;
    byHand([&] { m_rules.space(keys); });
    return true;
}

void CCommonListCtrl::onCharacter(UINT character) {
    constexpr UINT kDelete = 0x7F;
    if (m_keyTaken || character < ' ' || character == kDelete || m_store.rowCount() == 0) return;
    const wchar_t text[] = {static_cast<wchar_t>(character), L'\0'};
    const std::string letter = fw::narrow(text);
    if (letter.size() != 1) return;
    const auto row = m_find.type(letter[0], messageTime(), m_store, findColumn());
    if (row) goTo(*row);
}

void CCommonListCtrl::onFocusChanged() {
    m_find.end();
    InvalidateRect(handle(), nullptr, FALSE);
}

bool CCommonListCtrl::onKeyDown(UINT key, bool) {
    const Modifiers keys = modifiersDown();
    m_keyTaken = false;
    if (navigate(key) || selectByKey(key, keys)) return true;
    if (key == VK_APPS && keys.ctrl) {
        NMHDR asked{};
        onHeaderRightClick(asked);
        return true;
    }
    if (key == VK_RETURN || key == VK_APPS) {
        notifyParent(key == VK_RETURN ? NM_RETURN : NM_RCLICK, {}, m_store.focusedRow());
        return true;
    }
    const KeyCommands found = keyCommands(key, keys.ctrl, keys.shift, offers());
    m_keyTaken = !found.commands.empty();
    for (const unsigned each : found.commands) command(each);
    return found.consumed;
}

// ---- Selection and focus, as others ask for them ----

LRESULT CCommonListCtrl::onGetItemState(std::optional<std::size_t> row, UINT mask) {
    UINT state = 0;
    if (row && m_store.selected(*row)) state |= LVIS_SELECTED;
    if (row && m_store.focusedRow() == row) state |= LVIS_FOCUSED;
    return static_cast<LRESULT>(state & mask);
}

LRESULT CCommonListCtrl::onSetItemState(std::optional<std::size_t> row, const LVITEMA& wanted) {
    if (row && *row >= m_store.rowCount()) return FALSE;
    byHand([&] {
        const bool on = (wanted.state & LVIS_SELECTED) != 0;
        if ((wanted.stateMask & LVIS_SELECTED) != 0) {
            if (row)
                m_store.select(*row, on);
            else if (on)
                m_store.selectAll();
            else
                m_store.clearSelection();
        }
        if ((wanted.stateMask & LVIS_FOCUSED) == 0) return;
        const bool focuses = (wanted.state & LVIS_FOCUSED) != 0;
        if (focuses && row)
            m_store.setFocus(*row);
        else if (!focuses && (!row || row == m_store.focusedRow()))
            m_store.setFocus(m_store.rowCount());
    });
    return TRUE;
}

// The rows stand one below the other, so that none lies to the left or right of another.
LRESULT CCommonListCtrl::onGetNextItem(std::optional<std::size_t> start, UINT flags) {
    if ((flags & (LVNI_TOLEFT | LVNI_TORIGHT | LVNI_CUT | LVNI_DROPHILITED)) != 0) return -1;
    return answer(nextRow(m_store, start,
                          {(flags & LVNI_SELECTED) != 0, (flags & LVNI_FOCUSED) != 0,
                           (flags & (LVNI_ABOVE | LVNI_PREVIOUS)) != 0}));
}

LRESULT CCommonListCtrl::onGetNextItemIndex(LVITEMINDEX& index, UINT flags) {
    index.iItem =
        static_cast<int>(onGetNextItem(fw::rowParameter(static_cast<WPARAM>(index.iItem)), flags));
    return index.iItem >= 0 ? TRUE : FALSE;
}

LRESULT CCommonListCtrl::onGetSelectionMark() {
    return answer(m_store.anchorRow());
}

LRESULT CCommonListCtrl::onSetSelectionMark(std::optional<std::size_t> row) {
    const LRESULT before = onGetSelectionMark();
    m_store.setAnchor(row.value_or(m_store.rowCount()));
    return before;
}

// Rows have neither data nor places of their own to look for.
LRESULT CCommonListCtrl::onFindItem(std::optional<std::size_t> start, const std::string& text,
                                    UINT flags) {
    constexpr UINT kSubstring = 4, kBegins = LVFI_PARTIAL | kSubstring;  // the same search
    if ((flags & (LVFI_STRING | kBegins)) == 0 || m_store.rowCount() == 0) return -1;
    return answer(findRow(m_store, findColumn(), start ? *start + 1 : 0,
                          {text, (flags & kBegins) == 0, (flags & LVFI_WRAP) != 0}));
}

LRESULT CCommonListCtrl::onGetSelectedCount() {
    return static_cast<LRESULT>(m_store.selectedCount());
}

}  // namespace mc
