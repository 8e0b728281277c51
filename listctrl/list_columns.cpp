// The dialogs of CCommonListCtrl's columns: the column profile, adding and deleting a column.
//
// Messages come in while a dialog is open, so that the window may be gone when it returns.
#include "listctrl/common_list_ctrl.h"
#include "listctrl/dialogs/reposition_columns.h"
#include "listctrl/dialogs/user_defined_col.h"

namespace mc {

void CCommonListCtrl::offerColumns(bool defaultSort, bool userColumns) {
    m_columnOffers.reposition = true;
    m_columnOffers.defaultSort = defaultSort;
    m_columnOffers.userColumns = userColumns;
}

void CCommonListCtrl::reposition() {
    const ColumnProfileActions actions{
        [this](const ColumnLayout& layout) {
            if (handle() != nullptr) applyLayout(layout);
        },
        [this] { return handle() == nullptr || saveColumnProfile(); }};
    repositionColumns(handle(), m_columns, m_defaultSort, m_columnOffers.defaultSort, actions);
}

void CCommonListCtrl::applyLayout(const ColumnLayout& layout) {
    if (layout.ownWidths) m_columns.reset();
    m_columns.show(layout.shown);
    if (m_defaultSort && !layout.sort) endSorting();
    m_defaultSort = layout.sort;
    if (m_defaultSort)
        m_sorting = Sorting{m_defaultSort->column, m_defaultSort->ascending ? -1 : 1};
    columnsChanged();
}

// The profile is stored at once: a column stays until the user deletes it.
void CCommonListCtrl::addUserColumn() {
    const auto column = askNewColumn(handle(), m_name, m_columns);
    if (!column || handle() == nullptr || !m_columns.add(*column)) return;
    columnsChanged();
    saveColumnProfile();
}

void CCommonListCtrl::deleteUserColumn() {
    const auto column = askColumnToDelete(handle(), m_name, m_columns);
    if (!column || handle() == nullptr || !m_columns.remove(*column)) return;
    columnRemoved(*column);
    columnsChanged();
    saveColumnProfile();
}

void CCommonListCtrl::columnRemoved(ColumnId removed) {
    m_store.columnChanged(toColumnId(m_columns.size()));  // nobody has the last id any more
    moveKeywords(removed);
    if (m_sorting) {
        const auto id = idAfterRemoval(m_sorting->column, removed);
        if (id)
            m_sorting->column = *id;
        else
            endSorting();
    }
    if (m_defaultSort) {
        const auto id = idAfterRemoval(m_defaultSort->column, removed);
        m_defaultSort =
            id ? std::optional(DefaultSort{*id, m_defaultSort->ascending}) : std::nullopt;
    }
}

}  // namespace mc
