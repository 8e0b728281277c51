// Report lists over rows that somebody else keeps, and the font that the console's windows share.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <initializer_list>
#include <span>
#include <string>

#include "framework/handles.h"

namespace zek {

struct ReportColumn {
    const char* title;
    int width;  // at 96 dots per inch
};

// A virtual report list that fills `parent` when its owner moves it there. It asks for its texts
// with LVN_GETDISPINFOA; fillText() answers.
HWND createReportList(HWND parent, UINT id, std::span<const ReportColumn> columns);
void fillText(NMLVDISPINFOA& asked, const std::string& text);

// The number of rows; the list does not scroll.
void setRowCount(HWND list, std::size_t count);

// The font of messages on the window's monitor.
fw::Font messageFont(HWND window);

// Gives controls the font of messages for the dots per inch that `window` has now; `font` keeps it.
void followFont(HWND window, fw::Font& font, std::initializer_list<HWND> controls);

// The columns' widths were made at `before` dots per inch.
void followColumns(HWND list, int before);

}  // namespace zek
