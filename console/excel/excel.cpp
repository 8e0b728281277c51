// The exports of sdk/excel.h: the sheet goes into a new file named after the time.
#include <windows.h>

#include <shlobj.h>

#include <cstdio>
#include <new>
#include <string>

#include "console/excel/xlsx_writer.h"
#include "sdk/excel.h"

namespace {

constexpr wchar_t kFolderVariable[] = L"ZEK_EXPORT_DIR";
constexpr int kMaxOfOneSecond = 100;

struct Workbook {
    int rows;
    int columns;
};

// Empty where there is neither a variable nor a documents folder.
std::wstring exportFolder() {
    wchar_t path[MAX_PATH]{};
    const DWORD length = GetEnvironmentVariableW(kFolderVariable, path, MAX_PATH);
    if (length > 0 && length < MAX_PATH) return path;
    if (length > 0 || SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, 0, path) != S_OK)
        return {};
    return path;
}

// "\Export 2024-06-11 09-05-00"
std::wstring nameOfNow() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    wchar_t name[64];
    std::swprintf(name, std::size(name), L"\\Export %04d-%02d-%02d %02d-%02d-%02d", now.wYear,
                  now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond);
    return name;
}

// A file that is being written; unless it was completed, it is deleted.
class NewFile {
public:
    NewFile() = default;
    ~NewFile() { close(false); }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // A name that is taken gets a number behind it.
    bool create() {
        const std::wstring folder = exportFolder();
        if (folder.empty()) return false;
        const std::wstring name = folder + nameOfNow();
        bool taken = true;
        for (int i = 1; taken && i <= kMaxOfOneSecond; ++i) {
            m_path = name + (i > 1 ? L" (" + std::to_wstring(i) + L")" : L"") + L".xlsx";
            m_file = CreateFileW(m_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
            taken = m_file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_EXISTS;
        }
        return m_file != INVALID_HANDLE_VALUE;
    }

    bool write(std::string_view bytes) {
        DWORD written = 0;
        return WriteFile(m_file, bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                         nullptr) != FALSE &&
               written == bytes.size();
    }

    void close(bool complete) {
        if (m_file == INVALID_HANDLE_VALUE) return;
        CloseHandle(m_file);
        m_file = INVALID_HANDLE_VALUE;
        if (!complete) DeleteFileW(m_path.c_str());
    }

private:
    std::wstring m_path;
    HANDLE m_file = INVALID_HANDLE_VALUE;
};

}  // namespace

void* excel_create(int rows, int columns) {
    return new (std::nothrow) Workbook{rows, columns};
}

int excel_write(void* workbook, void* list, CellCallback* cell) {
    try {
        const auto* sheet = static_cast<const Workbook*>(workbook);
        NewFile file;
        if (sheet == nullptr || !file.create()) return 0;
        const bool complete = writeXlsx(sheet->rows, sheet->columns, list, cell,
                                        [&](std::string_view bytes) { return file.write(bytes); });
        file.close(complete);
        return complete ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

void excel_destroy(void* workbook) {
    delete static_cast<Workbook*>(workbook);
}
