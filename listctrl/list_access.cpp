#include "listctrl/list_access.h"

#include <oleacc.h>

#include <utility>
#include <vector>

#include "framework/hwnd.h"
#include "framework/list_view.h"

namespace mc {

// ---- Events ----

ListSnapshot CListAccess::present() const {
    const RecordStore& store = m_content.store();
    ListSnapshot now;
    now.rows = store.rowCount();
    now.selected = store.selection().count();
    now.selection = store.selection().revision();
    now.focus = store.selection().focusedRow();
    if (!now.focus) return now;
    now.record = store.slotAt(*now.focus);
    now.focusSelected = store.selection().selected(*now.focus);
    // Only whoever listens hears that it is another one; who asks for it gets it made then.
    if (IsWinEventHookInstalled(EVENT_OBJECT_NAMECHANGE) != 0) now.name = rowName(*now.focus);
    return now;
}

void CListAccess::announce(bool moved) {
    const ListSnapshot before = std::exchange(m_heard, present());
    for (const ListEvent event : eventsBetween(before, m_heard, moved)) raise(event);
}

void CListAccess::raise(ListEvent event) const {
    const LONG row = m_heard.focus ? static_cast<LONG>(*m_heard.focus) + 1 : CHILDID_SELF;
    switch (event) {
        case ListEvent::reorder:
            return notify(EVENT_OBJECT_REORDER, CHILDID_SELF);
        case ListEvent::focus:
            return hasFocus() ? notify(EVENT_OBJECT_FOCUS, row) : void();
        case ListEvent::selection:
            return notify(EVENT_OBJECT_SELECTION, row);
        case ListEvent::selectionAdded:
            return notify(EVENT_OBJECT_SELECTIONADD, row);
        case ListEvent::selectionRemoved:
            return notify(EVENT_OBJECT_SELECTIONREMOVE, row);
        case ListEvent::selectionWithin:
            return notify(EVENT_OBJECT_SELECTIONWITHIN, CHILDID_SELF);
        case ListEvent::state:
            notify(EVENT_OBJECT_STATECHANGE, row);
            return notify(EVENT_OBJECT_NAMECHANGE, row);
    }
}

void CListAccess::notify(DWORD event, LONG child) const {
    NotifyWinEvent(event, m_list.handle(), static_cast<LONG>(OBJID_CLIENT), child);
}

// The platform raises the event of the list, and not that of its row.
void CListAccess::onFocus() {
    if (hasFocus() && m_content.store().selection().focusedRow() && m_heard.focus)
        raise(ListEvent::focus);
}

LRESULT CListAccess::onGetDispInfo(NMLVDISPINFOA& info) {
    LVITEMA& item = info.item;
    if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return 0;
    std::string_view text;
    if (item.iItem >= 0 && item.iSubItem >= 0 && item.iSubItem < m_content.shownCount())
        text =
            m_content.text(static_cast<std::size_t>(item.iItem), m_content.columnAt(item.iSubItem));
    const auto copied = text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax) - 1);
    item.pszText[copied] = '\0';
    return 0;
}

// ---- The object ----

LRESULT CListAccess::onGetObject(WPARAM wParam, LPARAM object) {
    const bool asked = static_cast<LONG>(object) == static_cast<LONG>(OBJID_CLIENT);
    const LRESULT own = asked ? m_object.answer(m_list.handle(), wParam) : 0;
    return own != 0 ? own : DefSubclassProc(m_list.handle(), WM_GETOBJECT, wParam, object);
}

std::size_t CListAccess::rowCount() const {
    return m_content.store().rowCount();
}

std::optional<std::size_t> CListAccess::focusedRow() const {
    return hasFocus() ? m_content.store().selection().focusedRow() : std::nullopt;
}

std::string CListAccess::listName() const {
    return m_name ? m_name() : fw::textOf(m_list.handle());
}

std::string CListAccess::rowName(std::size_t row) const {
    std::vector<NamedText> cells;
    for (const ColumnId column : m_content.columns().shown())
        cells.push_back({m_content.columns().descriptor(column).caption,
                         std::string(m_content.text(row, column))});
    return mc::rowName(cells, m_hooks.rowState(row).words);
}

LONG CListAccess::rowState(std::size_t row) const {
    const RecordStore& store = m_content.store();
    LONG state = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_MULTISELECTABLE;
    if (store.selection().selected(row)) state |= STATE_SYSTEM_SELECTED;
    if (hasFocus() && store.selection().focusedRow() == row) state |= STATE_SYSTEM_FOCUSED;
    if (const auto folded = m_hooks.rowState(row).folded)
        state |= *folded ? STATE_SYSTEM_COLLAPSED : STATE_SYSTEM_EXPANDED;
    RECT visible{};
    const RECT client = m_list.clientRect();
    const RECT rect = fw::ListView(m_list.handle()).rowRect(row);
    if (IntersectRect(&visible, &rect, &client) == 0) state |= STATE_SYSTEM_OFFSCREEN;
    return state;
}

RECT CListAccess::rowRect(std::size_t row) const {
    RECT rect = fw::ListView(m_list.handle()).rowRect(row);
    MapWindowPoints(m_list.handle(), nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

}  // namespace mc
