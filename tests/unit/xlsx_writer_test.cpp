#include "console/excel/xlsx_writer.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <regex>
#include <sstream>

#include "console/excel/zip_writer.h"

namespace {

using Parts = std::map<std::string, std::string>;

// Unpacked by the build's own tool, which looks at checksums and sizes; empty when it fails.
Parts readZip(const std::string& zip) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / ("zip" + std::to_string(getpid()));
    fs::remove_all(folder);
    fs::create_directories(folder / "parts");
    std::ofstream(folder / "a.zip", std::ios::binary) << zip;
    const std::string unpack = "cd " + (folder / "parts").string() + " && " MC_CMAKE;
    Parts entries;
    if (std::system((unpack + " -E tar xf ../a.zip").c_str()) == 0)
        for (const auto& entry : fs::recursive_directory_iterator(folder / "parts")) {
            if (!entry.is_regular_file()) continue;
            std::stringstream text;
            text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
            entries[fs::relative(entry.path(), folder / "parts").string()] = text.str();
        }
    fs::remove_all(folder);
    return entries;
}

// The cells of a table of texts, the header first, in the order of the sheet; numbers have a "#".
std::vector<std::string> exported(const std::vector<std::vector<std::string>>& rows,
                                  const std::vector<int>& types) {
    struct Table {
        const std::vector<std::vector<std::string>>& rows;
        const std::vector<int>& types;
    } table{rows, types};
    const auto cell = [](void* list, int row, int column, const char*& text, int& type) {
        const auto& from = *static_cast<const Table*>(list);
        const auto at = static_cast<std::size_t>(column);
        text = from.rows[static_cast<std::size_t>(row)][at].c_str();
        type = row == 0 ? from.types[at] : -1;
    };
    std::string file;
    EXPECT_TRUE(writeXlsx(static_cast<int>(rows.size()), static_cast<int>(types.size()), &table,
                          cell, [&](std::string_view bytes) { return file += bytes, true; }));
    const Parts parts = readZip(file);
    EXPECT_EQ(parts.size(), 6u);
    const std::string& sheet = parts.at("xl/worksheets/sheet1.xml");
    const std::regex pattern("<c r=\"([A-Z]+[0-9]+)\"[^>]*>(?:<is><t[^>]*>|(<v>))([^<]*)<");
    std::vector<std::string> cells;
    for (std::sregex_iterator each(sheet.begin(), sheet.end(), pattern), none; each != none; ++each)
        cells.push_back((*each)[1].str() + (each->length(2) > 0 ? " #" : " ") + (*each)[3].str());
    return cells;
}

TEST(XlsxWriterTest, HoldsEveryCellAsNumberOrText) {
    using Cells = std::vector<std::string>;
    EXPECT_EQ(
        exported({{"Name", "Key", "Limit"}, {"a<&", "7", "-1.50"}, {"", "007", "NA"}}, {3, 4, 2}),
        (Cells{"A1 Name", "B1 Key", "C1 Limit", "A2 a&lt;&amp;", "B2 #7", "C2 #-1.50", "B3 007",
               "C3 NA"}));
    EXPECT_EQ(exported({{"h"}, {"\x01\x80 \xE9_x0041_"}, {"1e5"}, {"1234567890123456"}}, {2}),
              (Cells{"A1 h", "A2 \u20AC \u00E9_x005F_x0041_", "A3 1e5", "A4 1234567890123456"}));
    EXPECT_EQ(exported({Cells(28, "h")}, std::vector<int>(28, 3)).back(), "AB1 h");
}

TEST(XlsxWriterTest, EndsWhenItIsStopped) {
    int asked = 0;
    const auto cell = [](void* count, int row, int, const char*&, int& type) {
        ++*static_cast<int*>(count);
        type = row == 2 ? kStopExport : -1;
    };
    EXPECT_FALSE(writeXlsx(100, 2, &asked, cell, [](std::string_view) { return true; }));
    EXPECT_EQ(asked, 5);
}

// Contents that reach across the window, with matches of every length and distance.
TEST(ZipWriterTest, GivesBackWhatWasAdded) {
    std::mt19937 random(11);
    const auto noise = [&](std::size_t size, unsigned letters) {
        std::string made(size, '\0');
        for (char& byte : made) byte = static_cast<char>(random() % letters);
        return made;
    };
    std::string contents[] = {"",
                              "abcabcabcd",
                              std::string(200'000, 'r'),
                              noise(300'000, 2),
                              noise(131'073, 3),
                              noise(32'768, 256)};
    contents[5] += contents[5] + "e" + contents[5];  // as far back as matches go, and farther
    std::string archive;
    ZipWriter zip([&](std::string_view bytes) { return archive += bytes, true; });
    for (std::size_t i = 0; i < std::size(contents); ++i) {
        zip.begin(std::to_string(i));
        for (std::size_t at = 0; at < contents[i].size(); at += 40'000)
            zip.add(std::string_view(contents[i]).substr(at, 40'000));
        zip.end();
    }
    EXPECT_TRUE(zip.finish());
    const Parts entries = readZip(archive);
    ASSERT_EQ(entries.size(), std::size(contents));
    for (std::size_t i = 0; i < std::size(contents); ++i)
        EXPECT_TRUE(entries.at(std::to_string(i)) == contents[i]) << i;
    EXPECT_LT(archive.size(), 300'000u) << "nothing was compressed";
}

}  // namespace
