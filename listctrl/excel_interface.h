// CExcelInterface: one export to a spreadsheet through the host's library (sdk/excel.h).
//
// The library is loaded from the host's folder for the life of the export; its own libraries
// are found there and in the system's folder. Where it is missing or lacks a function, WriteToExcel
// fails.
#pragma once

#include <windows.h>

#include "framework/platform.h"
#include "sdk/excel.h"

namespace mc {

class CExcelInterface {
public:
    // `rows` includes the header row.
    CExcelInterface(int rows, int columns)
        : m_library(fw::loadBesideProgram(kExcelLibrary)),
          m_create(find<decltype(excel_create)>(kExcelCreate)),
          m_write(find<decltype(excel_write)>(kExcelWrite)),
          m_destroy(find<decltype(excel_destroy)>(kExcelDestroy)) {
        if (m_create != nullptr && m_write != nullptr && m_destroy != nullptr)
            m_workbook = m_create(rows, columns);
    }
    ~CExcelInterface() {
        if (m_workbook != nullptr) m_destroy(m_workbook);
        if (m_library != nullptr) FreeLibrary(m_library);
    }
    CExcelInterface(const CExcelInterface&) = delete;
    CExcelInterface& operator=(const CExcelInterface&) = delete;

    // Non-zero when the file was written. `list` is handed to the callback, which must not throw.
    int WriteToExcel(void* list, CellCallback* cell) {
        return m_workbook != nullptr ? m_write(m_workbook, list, cell) : 0;
    }

private:
    template <class Function>
    Function* find(const char* name) const {
        return m_library != nullptr ? fw::exported<Function>(m_library, name) : nullptr;
    }

    HMODULE m_library;
    decltype(&excel_create) m_create;
    decltype(&excel_write) m_write;
    decltype(&excel_destroy) m_destroy;
    void* m_workbook = nullptr;
};

}  // namespace mc
