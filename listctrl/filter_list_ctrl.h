// CFilterListCtrl: a list with a filter for each column, in a row of boxes in its header.
//
// A filter that changes is announced to the parent with HDN_FILTERCHANGE and the list's control id;
// the parent then calls applyFilter().
#pragma once

#include <optional>
#include <vector>

#include "listctrl/common_list_ctrl.h"
#include "listctrl/filter_header.h"

namespace mc {

class CFilterListCtrl : public CCommonListCtrl, private FilterHeaderOwner {
public:
    // Both must outlive the list.
    CFilterListCtrl(ListServices& services, RecordStore& store)
        : CCommonListCtrl(services, store), m_services(services) {}

    // Runs a filter pass with what applies in the boxes, whatever is being typed in them. False
    // when Esc ended it: the boxes then have what applied before.
    bool applyFilter();
    // The same with what is being typed, where that waits for its pause; else nothing.
    bool applyTyped() { return !m_filters.applyTyped() || applyFilter(); }

    // Takes all filters off; Esc does not end it.
    void resetFilters();

    // The edits of the filter row, for the order of tabs.
    std::vector<HWND> filterStops() const { return m_filters.stops(); }

    // A key in a filter box. False: the key is not the filter row's.
    bool dialogKey(HWND focus, UINT key);

    // Whether a control in the list, or the list itself, uses a key (claims()).
    bool claimsIn(HWND control, UINT key);

protected:
    void addOffers(ListOffers& offers) const override;
    bool runOwnCommand(unsigned command) override;
    void headerBuilt() override;
    void columnRemoved(ColumnId removed) override;
    void fontChanged() override;
    void leaveParts() override { m_filters.closeDrops(); }
    // The focus came into a part of the list or left it: the parent is notified as if the part were
    // the list.
    void partFocusChanged() override;

    ListServices& services() const { return m_services; }

    // resetFilters(), which Esc may end; false then.
    bool resetByHand();

private:
    std::optional<DistinctValues> filterChoices(int item, ValueOrder order) override;
    bool pass(const RowFilters* before);
    void putBack(const RowFilters& before);
    void filterChanged() override;
    void layOutHeader();

    std::optional<std::size_t> boxOf(HWND edit) const;
    std::vector<unsigned> boxCommands(UINT key);

    ListServices& m_services;
    CFilterHeader m_filters{*this};
    std::vector<ColumnId> m_boxColumns;  // the columns of the boxes, from the left
};

}  // namespace mc
