// The column profile dialog: which columns of a list show, in which order, and its default sort.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "listctrl/dialogs/model/column_choice.h"

namespace mc {

// What the dialog does with the list while it is open.
struct ColumnProfileActions {
    // Puts a layout in force.
    std::function<void(const ColumnLayout&)> apply;

    // Stores what is in force. False when that failed, which the user has been shown.
    std::function<bool()> save;
};

// Runs the dialog over `list`. "View" applies and stays open, "Save" applies, stores and closes
// unless storing failed. `sort` is the list's present default sort; without `offersSort` the
// dialog has none to choose.
void repositionColumns(HWND list, const ColumnModel& columns, std::optional<ColumnSort> sort,
                       bool offersSort, const ColumnProfileActions& actions);

}  // namespace mc
