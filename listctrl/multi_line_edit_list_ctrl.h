// CMultiLineEditListCtrl: the list of change details, Field / Value / Old Value.
//
// Rows of details are not built yet: the list has its columns and stays empty.
#pragma once

#include "listctrl/common_list_ctrl.h"

class CMultiLineEditListCtrl : public CCommonListCtrl {
public:
    // Removes every item.
    void empty() { rowsReset(); }

protected:
    std::size_t rowCount() const override { return 0; }
    std::string_view cellText(std::size_t, int) const override { return {}; }
};
