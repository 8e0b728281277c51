// The console's export library, loaded by name as the plug-in loads it.
#include "listctrl/excel_interface.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

using namespace mc;

namespace {

namespace fs = std::filesystem;

void cell(void* asked, int row, int column, const char*& text, int& type) {
    static const char* cells[2][2] = {{"Key", "Name"}, {"42", "A & B"}};
    ++*static_cast<int*>(asked);
    text = cells[row][column];
    type = row == 0 ? (column == 0 ? 4 : 3) : -1;
}

TEST(Export, WritesANewFileEachTimeOrNone) {
    const fs::path folder = fs::temp_directory_path() / ("export" + std::to_string(GetTickCount()));
    fs::create_directories(folder);
    SetEnvironmentVariableW(L"ZEK_EXPORT_DIR", folder.c_str());
    int asked = 0;
    EXPECT_EQ(CExcelInterface(0, 2).WriteToExcel(&asked, cell), 0);
    EXPECT_EQ(CExcelInterface(2, 2).WriteToExcel(&asked, nullptr), 0);
    EXPECT_TRUE(fs::is_empty(folder));
    for (int i = 0; i < 2; ++i) EXPECT_NE(CExcelInterface(2, 2).WriteToExcel(&asked, cell), 0);
    EXPECT_EQ(asked, 8);
    int files = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        std::string start(2, '\0');
        std::ifstream(entry.path(), std::ios::binary).read(start.data(), 2);
        EXPECT_EQ(entry.path().extension(), ".xlsx");
        EXPECT_EQ(start, "PK");
        ++files;
    }
    EXPECT_EQ(files, 2);
    EXPECT_EQ(GetModuleHandleA("Excel.dll"), nullptr) << "an export keeps the library loaded";

    char path[MAX_PATH]{};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const fs::path library = fs::path(path).parent_path() / "Excel.dll";
    const fs::path hidden = fs::path(path).parent_path() / "Excel.hidden";
    fs::rename(library, hidden);
    EXPECT_EQ(CExcelInterface(2, 2).WriteToExcel(&asked, cell), 0);
    fs::rename(hidden, library);
    SetEnvironmentVariableW(L"ZEK_EXPORT_DIR", nullptr);
    fs::remove_all(folder);
}

}  // namespace
