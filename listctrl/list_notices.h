// What a list reports to its parent, with WM_NOTIFY and its control id.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <optional>

namespace mc {

// `notice` begins a structure that is filled apart from its header. A list without a parent
// notifies its owner. The parent may end the list.
void notifyParent(HWND list, NMHDR& notice, UINT code);

// An NMITEMACTIVATE of a row, or none, at a point of the list's client area.
void notifyParent(HWND list, UINT code, POINT at = {}, std::optional<std::size_t> row = {});

}  // namespace mc
