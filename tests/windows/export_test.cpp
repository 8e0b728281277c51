// The console's export library, loaded by name as the plug-in loads it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "listctrl/excel_interface.h"
#include "tests/support/xlsx_reader.h"

using namespace mc;

namespace {

namespace fs = std::filesystem;

void cell(void* list, int row, int column, const char*& text, int& type) {
    static const char* cells[2][2] = {{"Key", "Name"}, {"42", "A & B"}};
    ++*static_cast<int*>(list);
    text = cells[row][column];
    type = row == 0 ? (column == 0 ? 4 : 3) : -1;
}

class Export : public testing::Test {
protected:
    void SetUp() override {
        m_folder = fs::temp_directory_path() / ("export" + std::to_string(GetTickCount()));
        fs::create_directories(m_folder);
        SetEnvironmentVariableW(L"ZEK_EXPORT_DIR", m_folder.c_str());
    }
    void TearDown() override {
        SetEnvironmentVariableW(L"ZEK_EXPORT_DIR", nullptr);
        fs::remove_all(m_folder);
    }
    std::vector<std::string> files() {
        std::vector<std::string> contents;
        for (const auto& entry : fs::directory_iterator(m_folder)) {
            EXPECT_EQ(entry.path().extension(), ".xlsx");
            std::ifstream file(entry.path(), std::ios::binary);
            contents.emplace_back(std::istreambuf_iterator<char>(file),
                                  std::istreambuf_iterator<char>());
        }
        return contents;
    }

    fs::path m_folder;
    int m_asked = 0;
};

TEST_F(Export, WritesANewFileEachTime) {
    CExcelInterface excel(2, 2);
    EXPECT_NE(excel.WriteToExcel(&m_asked, cell), 0);
    EXPECT_NE(excel.WriteToExcel(&m_asked, cell), 0);
    EXPECT_EQ(m_asked, 8);
    const auto written = files();
    ASSERT_EQ(written.size(), 2u);
    const std::map<std::string, SheetCell> cells{{"A1", {"Key", false}},
                                                 {"B1", {"Name", false}},
                                                 {"A2", {"42", true}},
                                                 {"B2", {"A & B", false}}};
    for (const std::string& file : written)
        EXPECT_EQ(readSheet(readZip(file).at("xl/worksheets/sheet1.xml")), cells);
}

TEST_F(Export, LeavesNoFileWhereItFails) {
    EXPECT_EQ(CExcelInterface(0, 2).WriteToExcel(&m_asked, cell), 0);
    EXPECT_EQ(CExcelInterface(2, 99999).WriteToExcel(&m_asked, cell), 0);
    EXPECT_EQ(CExcelInterface(2, 2).WriteToExcel(&m_asked, nullptr), 0);
    EXPECT_TRUE(fs::is_empty(m_folder));
    SetEnvironmentVariableW(L"ZEK_EXPORT_DIR", (m_folder / "missing").c_str());
    EXPECT_EQ(CExcelInterface(2, 2).WriteToExcel(&m_asked, cell), 0);
    EXPECT_EQ(m_asked, 0);
    EXPECT_EQ(GetModuleHandleA("Excel.dll"), nullptr) << "an export keeps the library loaded";
}

TEST_F(Export, WithoutTheLibraryItFails) {
    char path[MAX_PATH]{};
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const fs::path library = fs::path(path).parent_path() / "Excel.dll";
    const fs::path hidden = fs::path(path).parent_path() / "Excel.hidden";
    fs::rename(library, hidden);
    EXPECT_EQ(CExcelInterface(2, 2).WriteToExcel(&m_asked, cell), 0);
    fs::rename(hidden, library);
    EXPECT_NE(CExcelInterface(2, 2).WriteToExcel(&m_asked, cell), 0);
}

}  // namespace
