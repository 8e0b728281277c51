#include "listctrl/filter_list_ctrl.h"

#include <algorithm>
#include <utility>

#include "framework/handles.h"
#include "listctrl/list_notices.h"

namespace mc {

void CFilterListCtrl::addOffers(ListOffers& offers) const {
    offers.filters = true;
    offers.matchExactly = store().filters().matchExactly();
}

bool CFilterListCtrl::runOwnCommand(unsigned command) {
    switch (command) {
        case kResetFiltersCommand:
            resetFilters();
            return true;
        case kMatchExactlyCommand:
            store().filters().setMatchExactly(!store().filters().matchExactly());
            applyFilter();
            return true;
        default:
            return false;
    }
}

// The boxes follow the columns; a column that stays keeps its filter.
void CFilterListCtrl::headerBuilt() {
    if (m_filters.handle() == nullptr) {
        const auto font = reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0));
        m_filters.attach(header().control().handle(), font, services().glyphs());
    }
    const std::vector<ColumnId>& shown = content().columns().shown();
    if (m_boxColumns == shown) return m_filters.layOutBoxes();
    const bool first = m_boxColumns.empty();
    m_boxColumns = shown;
    std::vector<ColumnFilter> filters;
    for (const ColumnId column : m_boxColumns) filters.push_back(store().filters().of(column));
    m_filters.setBoxes(filters);
    layOutHeader();
    if (!first)
        applyFilter();  // the filter of a column that went, or was hidden, ends with its box
}

// The control asks the header for its height when its own size changes.
void CFilterListCtrl::layOutHeader() {
    const RECT client = clientRect();
    SendMessageA(handle(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
    m_filters.layOutBoxes();
}

void CFilterListCtrl::columnRemoved(ColumnId removed) {
    CCommonListCtrl::columnRemoved(removed);
    std::vector<ColumnId> columns;
    std::vector<ColumnFilter> filters;
    for (const ColumnId column : store().filters().columns()) {
        const auto id = idAfterRemoval(column, removed);
        if (!id) continue;
        columns.push_back(*id);
        filters.push_back(store().filters().of(column));
    }
    store().filters().setAll(std::move(columns), std::move(filters));
}

void CFilterListCtrl::fontChanged() {
    CCommonListCtrl::fontChanged();
    if (m_filters.handle() == nullptr) return;
    m_filters.setFont(reinterpret_cast<HFONT>(SendMessageA(handle(), WM_GETFONT, 0, 0)));
    layOutHeader();
}

void CFilterListCtrl::applyFilter() {
    cellsMove();
    const fw::WaitCursorScope wait;
    store().filters().clear();
    for (std::size_t item = 0; item < m_boxColumns.size(); ++item) {
        const ColumnFilter filter = m_filters.filter(static_cast<int>(item));
        store().filters().set(m_boxColumns[item], filter.text, filter.kind);
    }
    const RecordStore::Outcome outcome = store().filter();
    storeChanged();
    if (const char* const text = messageOf(outcome)) services().showMessage(text);
}

void CFilterListCtrl::resetFilters() {
    m_filters.clear();
    applyFilter();
}

DistinctValues CFilterListCtrl::filterChoices(int item, ValueOrder order) {
    const fw::WaitCursorScope wait;
    return store().distinctValues(m_boxColumns[static_cast<std::size_t>(item)], order);
}

void CFilterListCtrl::filterChanged() {
    NMHDR notice{};
    notifyParent(handle(), notice, HDN_FILTERCHANGE);
}

// ---- Keys ----

std::optional<std::size_t> CFilterListCtrl::boxOf(HWND edit) const {
    const std::vector<HWND> boxes = m_filters.stops();
    const auto found = std::ranges::find(boxes, edit);
    const auto box = static_cast<std::size_t>(found - boxes.begin());
    return edit != nullptr && box < m_boxColumns.size() ? std::optional(box) : std::nullopt;
}

// The keys that are about a column work in its box, which is its caption's.
std::vector<unsigned> CFilterListCtrl::boxCommands(UINT key) const {
    const Modifiers keys = modifiersDown();
    std::vector<unsigned> commands = keyCommands(key, keys.ctrl, keys.shift, offers()).commands;
    std::erase_if(commands, [](unsigned command) { return !isColumnCommand(command); });
    return commands;
}

bool CFilterListCtrl::claimsIn(HWND control, UINT key) const {
    if (control == handle()) return claims(key);
    const bool menu = key == VK_APPS && modifiersDown().ctrl;
    return boxOf(control) && (menu || !boxCommands(key).empty());
}

bool CFilterListCtrl::dialogKey(HWND focus, UINT key) {
    if (m_filters.dialogKey(focus, key)) return true;
    if (!boxOf(focus)) return false;
    if (key == VK_APPS) {
        openMenu(true);
        return true;
    }
    const std::vector<unsigned> commands = boxCommands(key);
    for (const unsigned each : commands) command(each);
    return !commands.empty();
}

// The list's parts count as the list.
void CFilterListCtrl::partFocusChanged() {
    if (const auto box = boxOf(GetFocus())) input().goToColumn(m_boxColumns[*box]);
    notifyParent(handle(), IsChild(handle(), GetFocus()) != 0 ? NM_SETFOCUS : NM_KILLFOCUS);
}

}  // namespace mc
