// A spreadsheet file (.xlsx) with one sheet, written to a stream cell by cell.
//
// The first row is the header: bold, and it stays in view. Cells of a number's type that hold a
// plain number become numbers; a number that a sheet would change (leading zeros, more than 15
// digits) stays a text. Texts are read as Windows-1252; control characters other than tab and line
// feed are dropped, and texts are cut to the 32,767 characters that a cell holds.
#pragma once

#include "console/excel/zip_writer.h"
#include "sdk/excel.h"

inline constexpr int kMaxSheetRows = 1048576;
inline constexpr int kMaxSheetColumns = 16384;

// True when the file is complete. Asks for every cell once, row by row; stops asking when the sink
// fails or the callback says kStopExport. False, before anything is asked or written, for a sheet
// of no or too many rows or columns.
bool writeXlsx(int rows, int columns, void* list, CellCallback* cell, ByteSink sink);
