// Excel.dll: the host's spreadsheet export library, as the plug-in loads it.
//
// The plug-in loads the library by name when the user asks for an export, and looks the three
// functions up by the names below, so that it runs where the library is missing.
//
//   1. excel_create    how large the sheet is
//   2. excel_write     asks for every cell, writes the file; may be called again for another file
//   3. excel_destroy   once for each export made
//
// C linkage, as calling.h says, so that any compiler's library can be loaded;
// the class CExcelInterface is a wrapper on the plug-in's side (listctrl/excel_interface.h).
// Thread: each export is used by one thread at a time; the callback runs inside excel_write on that
// thread. No exception crosses.
#pragma once

#include "sdk/calling.h"

#if defined(_WIN32) && defined(EXCEL_BUILD)
#define EXCEL_API __declspec(dllexport)
#else
#define EXCEL_API
#endif

extern "C" {

// Asked for each cell once, row by row from the top, each row from the left; both are counted from
// 0. Row 0 is the header: `text` is the caption and `type` the column's data type, 1 to 9 (which of
// them are numbers is said at excel_write). Every other row has the type -1. `text` is single-byte
// text (Windows-1252) that lives until the next call; null is an empty cell. Must not throw.
using CellCallback = void VOSK_CALL(void* list, int row, int column, const char*& text, int& type);

// An export of `rows` rows, the header included, and `columns` columns. Null when memory is out.
// What a sheet cannot hold (beyond 1,048,576 rows or 16,384 columns, or none) fails when written.
EXCEL_API void* VOSK_CALL excel_create(int rows, int columns);

// Writes a new .xlsx file and returns non-zero; 0 when it cannot, and then leaves no file. It
// is in the folder named by the environment variable ZEK_EXPORT_DIR, or else in the user's
// documents, and is named after the local time; an existing file is never replaced.
// Cells of columns of type 1, 2, 4, 5, 7 and 9 that hold a plain number are numbers in the sheet,
// all others texts. `list` is handed to the callback.
EXCEL_API int VOSK_CALL excel_write(void* workbook, void* list, CellCallback* cell);

// `workbook` may be null.
EXCEL_API void VOSK_CALL excel_destroy(void* workbook);

}  // extern "C"

inline constexpr char kExcelLibrary[] = "Excel.dll";
inline constexpr char kExcelCreate[] = "excel_create";
inline constexpr char kExcelWrite[] = "excel_write";
inline constexpr char kExcelDestroy[] = "excel_destroy";
