#include "listctrl/filter_list_ctrl.h"

#include <algorithm>
#include <utility>

#include "framework/hwnd.h"
#include "listctrl/list_notices.h"

namespace mc {

void CFilterListCtrl::addOffers(ListOffers& offers) const {
    offers.filters = true;
    offers.matchExactly = store().filters().matchExactly();
}

bool CFilterListCtrl::runOwnCommand(unsigned command) {
    switch (command) {
        case kResetFiltersCommand:
            resetByHand();
            return true;
        case kMatchExactlyCommand: {
            const RowFilters before = store().filters();
            store().filters().setMatchExactly(!before.matchExactly());
            pass(&before);
            return true;
        }
        default:
            return false;
    }
}

// The boxes follow the columns; a column that stays keeps its filter.
void CFilterListCtrl::headerBuilt() {
    if (m_filters.handle() == nullptr) {
        const HFONT font = fw::fontOf(handle());
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
        pass(nullptr);  // the filter of a column that went, or was hidden, ends with its box
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
    m_filters.setFont(fw::fontOf(handle()));
    layOutHeader();
}

bool CFilterListCtrl::applyFilter() {
    const RowFilters before = store().filters();
    return pass(&before);
}

void CFilterListCtrl::resetFilters() {
    m_filters.clear();
    pass(nullptr);
}

bool CFilterListCtrl::resetByHand() {
    const RowFilters before = store().filters();
    m_filters.clear();
    return pass(&before);
}

// Without the filters that were there before Esc does not end it.
bool CFilterListCtrl::pass(const RowFilters* before) {
    input().endMarquee();
    cellsMove();
    store().filters().clear();
    for (std::size_t item = 0; item < m_boxColumns.size(); ++item) {
        const ColumnFilter filter = m_filters.filter(static_cast<int>(item));
        store().filters().set(m_boxColumns[item], filter.text, filter.kind);
    }
    RecordStore::Outcome outcome{};
    const auto filtered = [&](const LongWork& work) {
        outcome = store().filter(work);
        return outcome != RecordStore::Outcome::ended;
    };
    if (before == nullptr) {
        CListWork::finish(filtered);
    } else if (!work().run("filtering", filtered)) {
        putBack(*before);
        return false;
    }
    storeChanged();
    if (const char* const text = messageOf(outcome)) services().showMessage(text);
    return true;
}

void CFilterListCtrl::putBack(const RowFilters& before) {
    store().filters() = before;
    for (std::size_t item = 0; item < m_boxColumns.size(); ++item)
        m_filters.putBack(static_cast<int>(item), before.of(m_boxColumns[item]));
}

std::optional<DistinctValues> CFilterListCtrl::filterChoices(int item, ValueOrder order) {
    std::optional<DistinctValues> choices;
    work().run("listing the values", [&](const LongWork& work) {
        choices = store().distinctValues(m_boxColumns[static_cast<std::size_t>(item)], order, work);
        return choices.has_value();
    });
    return choices;
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
std::vector<unsigned> CFilterListCtrl::boxCommands(UINT key) {
    const Modifiers keys = modifiersDown();
    std::vector<unsigned> found =
        keyCommands(key, keys.ctrl, keys.shift, commands().offers()).commands;
    std::erase_if(found, [](unsigned command) { return !isColumnCommand(command); });
    return found;
}

bool CFilterListCtrl::claimsIn(HWND control, UINT key) {
    if (control == handle()) return claims(key);
    const bool menu = key == VK_APPS && modifiersDown().ctrl;
    return boxOf(control) && (menu || !boxCommands(key).empty());
}

bool CFilterListCtrl::dialogKey(HWND focus, UINT key) {
    if (m_filters.dialogKey(focus, key)) return true;
    if (!boxOf(focus)) return false;
    if (key == VK_APPS) {
        commands().openMenu(true);
        return true;
    }
    const std::vector<unsigned> found = boxCommands(key);
    for (const unsigned each : found) commands().run(each);
    return !found.empty();
}

// The list's parts count as the list.
void CFilterListCtrl::partFocusChanged() {
    if (const auto box = boxOf(GetFocus())) input().current().goToColumn(m_boxColumns[*box]);
    notifyParent(handle(), IsChild(handle(), GetFocus()) != 0 ? NM_SETFOCUS : NM_KILLFOCUS);
}

}  // namespace mc
