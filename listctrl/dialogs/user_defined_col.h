// The dialogs in which the user adds a computed column to a list and deletes one again.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "listctrl/model/columns/column_model.h"

namespace mc {

// Both run modally, centred over `list`, with its name in their caption; messages come in
// meanwhile. Both show "Error while adding user defined cols" instead of a dialog when the columns
// are none that expressions can name. Nothing: the user gave up.

// The column that the user made, which `columns` takes (ColumnModel::add).
std::optional<UserDefinedColumn> askNewColumn(HWND list, const std::string& listName,
                                              const ColumnModel& columns);

// The user-defined column that the user chose.
std::optional<ColumnId> askColumnToDelete(HWND list, const std::string& listName,
                                          const ColumnModel& columns);

}  // namespace mc
