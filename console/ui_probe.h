// Finding this thread's windows and reading what they show, for the play driver.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "console/model/play_script.h"
#include "framework/hwnd.h"

namespace zek::ui {

inline constexpr int kMainListId = 4000;
inline constexpr int kDetailsListId = 4001;

std::string classOf(HWND window);
using fw::textOf;

// The first visible descendant of `root` that `wanted` takes, or null.
HWND findDescendant(HWND root, const std::function<bool(HWND)>& wanted);

// The workbench's pane, docked or floating, shown or not; null when there is none.
HWND findPane();
// The pane's lists, while they are shown.
HWND mainList();
HWND detailsList();

// The open message box or dialog, if any: the one that takes input.
HWND openDialog();
// What it says: its static texts.
std::string dialogText(HWND dialog);
// The open popup menu, if any.
HWND openMenu();
// The index of the menu's item with the text; -1 when there is none.
int itemNamed(HMENU menu, const std::string& name);

// The enabled button with the text, without ampersands: in the open dialog, else in the pane.
HWND findButton(const std::string& text);

// The items of a drop-down list, a list box or a list view (its first cells), in order; none for
// any other control.
std::vector<std::string> itemsOf(HWND control);
// What a control shows: its text, or the items of a list box or list view, with ", " between them.
std::string shownText(HWND control);

int rowCount(HWND list);
std::string cellText(HWND list, int row, int column);
// The column with the title; -1 when there is none.
int columnNamed(HWND list, const std::string& title);
// The edit of a column's filter box, in the list's header; null when there is none.
HWND filterEdit(HWND list, int column);
// The first row with this text in the column; -1 when there is none.
int findText(HWND list, int column, const std::string& text);
// The row that is meant; -1 when there is none.
int findRow(HWND list, const PlayRow& row);

}  // namespace zek::ui
