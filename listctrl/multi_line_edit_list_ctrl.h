// CMultiLineEditListCtrl: the list of change details, Field / Value / Old Value.
//
// Rows of details are not built yet: the list has its columns and stays empty.
#pragma once

#include "listctrl/filter_list_ctrl.h"

class CMultiLineEditListCtrl : public CFilterListCtrl {
public:
    using CFilterListCtrl::CFilterListCtrl;

    // Removes every item.
    void empty() {
        store().reset();
        storeChanged();
    }
};
