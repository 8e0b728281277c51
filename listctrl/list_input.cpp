#include "listctrl/list_input.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "framework/hwnd.h"
#include "framework/list_view.h"
#include "listctrl/list_messages.h"
#include "listctrl/list_notices.h"

namespace mc {
namespace {

// When the message that is being handled came.
std::uint32_t messageTime() {
    return static_cast<std::uint32_t>(GetMessageTime());
}

}  // namespace

Modifiers modifiersDown() {
    return {fw::isDown(VK_CONTROL), fw::isDown(VK_SHIFT)};
}

// ---- The selection ----

bool CListInput::select(const std::function<void()>& change) {
    const RecordStore& store = m_content.store();
    const std::uint64_t before = store.selection().revision();
    change();
    m_update.storeChanged();
    if (store.selection().revision() != before) {
        const bool any = store.selection().count() != 0;
        NMLISTVIEW notice{};
        notice.iItem = -1;
        notice.uNewState = any ? LVIS_SELECTED : 0;
        notice.uOldState = any ? 0 : LVIS_SELECTED;
        notice.uChanged = LVIF_STATE;
        notifyParent(m_list.handle(), notice.hdr, LVN_ITEMCHANGED);
    }
    return m_list.handle() != nullptr;
}

bool CListInput::goTo(std::size_t row) {
    return select([&] {
        m_rules.goTo(row);
        fw::ListView(m_list.handle()).bringIntoView(row);
    });
}

void CListInput::selectAll() {
    select([this] { m_rules.selectAll(); });
}

// ---- The mouse ----

bool CListInput::press(POINT client) {
    SetFocus(m_list.handle());  // an editor that loses it may ask the user
    if (m_list.handle() == nullptr) return false;
    m_find.end();
    const auto cell = m_header.cellAt(client);
    const Modifiers keys = modifiersDown();
    if (cell)
        m_current.goToColumn(m_content.columnAt(cell->item));
    else
        m_marquee.press(keys.ctrl || keys.shift);
    if (!select([&] { m_rules.click(m_header.rowAt(client), keys); })) return false;
    if (!cell) m_marquee.begin(client);
    return true;
}

bool CListInput::onMouseMove(POINT client) {
    if (!m_marquee.drags(client)) return false;
    select([&] { m_marquee.moveTo(client); });
    return true;
}

bool CListInput::onTimer(UINT_PTR id) {
    const auto mouse = m_marquee.onTimer(id);
    return mouse && onMouseMove(*mouse);
}

void CListInput::onCaptureLost() {
    if (m_marquee.isLost()) select([this] { m_marquee.putBack(); });
}

void CListInput::endMarquee() {
    if (GetCapture() == m_list.handle() && m_list.handle() != nullptr) ReleaseCapture();
}

void CListInput::onButtonUp(POINT client) {
    if (m_marquee.end()) return;
    notifyParent(m_list.handle(), NM_CLICK, client, m_header.rowAt(client));
}

bool CListInput::pressTwice(POINT client) {
    if (press(client)) notifyParent(m_list.handle(), NM_DBLCLK, client, m_header.rowAt(client));
    return m_list.handle() != nullptr;
}

void CListInput::onRightDown(POINT client) {
    SetFocus(m_list.handle());
    if (m_list.handle() != nullptr) select([&] { m_rules.rightClick(m_header.rowAt(client)); });
}

void CListInput::onRightUp(POINT client) {
    if (const auto row = m_header.rowAt(client))
        notifyParent(m_list.handle(), NM_RCLICK, client, row);
}

// ---- Keys ----

// Enter in a list belongs to the list: it must never press the dialog's default button.
LRESULT CListInput::onGetDialogCode(const MSG* message) const {
    const LRESULT code = DefSubclassProc(m_list.handle(), WM_GETDLGCODE, 0,
                                         reinterpret_cast<LPARAM>(message)) |
                         DLGC_WANTCHARS;  // letters find rows
    return message != nullptr && message->wParam == VK_RETURN ? code | DLGC_WANTMESSAGE : code;
}

bool CListInput::onKeyDown(UINT key, bool) {
    const Modifiers keys = modifiersDown();
    m_keyTaken = false;
    if (navigate(key) || selectByKey(key, keys)) return true;
    if (key != VK_RETURN) return false;
    notifyParent(m_list.handle(), NM_RETURN, {}, m_content.store().selection().focusedRow());
    return true;
}

bool CListInput::navigate(UINT key) {
    static constexpr struct {
        UINT key;
        Move move;
    } moves[] = {{VK_UP, Move::up},         {VK_DOWN, Move::down}, {VK_PRIOR, Move::pageUp},
                 {VK_NEXT, Move::pageDown}, {VK_HOME, Move::home}, {VK_END, Move::end}};
    const auto found = std::find_if(std::begin(moves), std::end(moves),
                                    [&](const auto& each) { return each.key == key; });
    if (found == std::end(moves)) return false;
    const fw::ListView view(m_list.handle());
    const std::size_t page = view.rowsPerPage();
    m_find.end();
    select([&] {
        const auto row = m_rules.move(found->move, page, modifiersDown());
        if (row) view.bringIntoView(*row);
    });
    return true;
}

// The blank selects, unless letters are being typed.
bool CListInput::selectByKey(UINT key, Modifiers keys) {
    if (key != VK_SPACE) return false;
    if (!keys.ctrl && !keys.shift && m_find.typing(messageTime())) return true;
    m_keyTaken = true;
    select([&] { m_rules.space(keys); });
    return true;
}

ColumnId CListInput::findColumn() const {
    const auto& sort = m_content.order().current();
    return sort ? sort->column : m_content.columnAt(0);
}

void CListInput::onCharacter(UINT character) {
    constexpr UINT kDelete = 0x7F;
    const RecordStore& store = m_content.store();
    if (m_keyTaken || character < ' ' || character == kDelete || store.rowCount() == 0) return;
    const wchar_t text[] = {static_cast<wchar_t>(character), L'\0'};
    const std::string letter = fw::narrow(text);
    if (letter.size() != 1) return;
    const auto row = m_find.type(letter[0], messageTime(), store, findColumn());
    if (row) goTo(*row);
}

void CListInput::onFocusChanged() {
    m_find.end();
    if (GetFocus() != m_list.handle()) endMarquee();
    InvalidateRect(m_list.handle(), nullptr, FALSE);
}

}  // namespace mc
