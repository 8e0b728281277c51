// CPendingList: the main list, a filter list whose rows show the states of their changes.
#pragma once

#include "listctrl/filter_list_ctrl.h"
#include "workbench/change_looks.h"

namespace mc {

class CPendingList final : public CFilterListCtrl {
public:
    // Both must outlive the list.
    CPendingList(ListServices& services, PendingChanges& changes)
        : CFilterListCtrl(services, changes.rows()), m_changes(changes), m_looks(*this, changes) {
        painter().setLooks(m_looks);
    }

protected:
    bool runOwnCommand(unsigned command) override {
        if (command != kResetFiltersCommand) return CFilterListCtrl::runOwnCommand(command);
        QuickFilter& quick = m_changes.quickFilter();
        const QuickFilter::Choice before = quick.choice();
        quick.choose(QuickFilter::Kind::off);
        if (!resetByHand()) quick.putBack(before);
        return true;
    }
    RowState rowState(std::size_t row) const override { return {m_looks.tip(row, 0)}; }
    void fontChanged() override {
        m_looks.fontChanged();
        CFilterListCtrl::fontChanged();
    }

private:
    PendingChanges& m_changes;
    ChangeLooks m_looks;
};

}  // namespace mc
