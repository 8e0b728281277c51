#include "console/excel/xlsx_writer.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/xlsx_reader.h"

namespace {

// A table to export; counts how often each cell is asked for.
struct Table {
    std::vector<std::vector<std::string>> rows;  // the header first
    std::vector<int> types;
    int asked = 0;
};

void cellOf(void* list, int row, int column, const char*& text, int& type) {
    auto& table = *static_cast<Table*>(list);
    ++table.asked;
    const auto at = static_cast<std::size_t>(column);
    const std::string& cell = table.rows[static_cast<std::size_t>(row)][at];
    text = cell == "(null)" ? nullptr : cell.c_str();
    type = row == 0 ? table.types[at] : -1;
}

std::map<std::string, std::string> exported(Table& table) {
    std::string file;
    EXPECT_TRUE(writeXlsx(static_cast<int>(table.rows.size()), static_cast<int>(table.types.size()),
                          &table, cellOf,
                          [&](std::string_view bytes) { return file += bytes, true; }));
    return readZip(file);
}

SheetCell text(const char* content) {
    return {content, false};
}
SheetCell number(const char* content) {
    return {content, true};
}

TEST(XlsxWriterTest, HoldsEveryPartAndEveryCell) {
    Table table{{{"Name", "Key", "Limit"}, {"a", "7", "-1.50"}, {"", "(null)", "NA"}}, {3, 4, 2}};
    const auto parts = exported(table);
    std::vector<std::string> names;
    for (const auto& [name, content] : parts) {
        names.push_back(name);
        EXPECT_NO_THROW(checkMarkup(content)) << name;
    }
    EXPECT_EQ(names, (std::vector<std::string>{"[Content_Types].xml", "_rels/.rels",
                                               "xl/_rels/workbook.xml.rels", "xl/styles.xml",
                                               "xl/workbook.xml", "xl/worksheets/sheet1.xml"}));
    EXPECT_EQ(readSheet(parts.at("xl/worksheets/sheet1.xml")),
              (std::map<std::string, SheetCell>{{"A1", text("Name")},
                                                {"B1", text("Key")},
                                                {"C1", text("Limit")},
                                                {"A2", text("a")},
                                                {"B2", number("7")},
                                                {"C2", number("-1.50")},
                                                {"C3", text("NA")}}));
    EXPECT_EQ(table.asked, 9);
}

TEST(XlsxWriterTest, NumbersAreThoseThatASheetLeavesAsTheyAre) {
    Table table{{{}}, {}};
    for (int type = -1; type <= 10; ++type) {
        table.rows[0].push_back("5");
        table.types.push_back(type);
    }
    table.rows.push_back(table.rows[0]);
    auto cells = readSheet(exported(table).at("xl/worksheets/sheet1.xml"));
    for (int type = -1; type <= 10; ++type) {
        const bool isNumber = std::string("124579").find(std::to_string(type)) != std::string::npos;
        const std::string column(1, static_cast<char>('B' + type));
        EXPECT_EQ(cells[column + "2"], (SheetCell{"5", isNumber})) << type;
        EXPECT_EQ(cells[column + "1"], text("5")) << type;
    }
    const struct {
        const char* content;
        bool isNumber;
    } cases[] = {
        {"0", true},
        {"-0.5", true},
        {"123456789012345", true},
        {"12345678.1234567", true},
        {"1234567890123456", false},
        {"007", false},
        {"-", false},
        {".5", false},
        {"5.", false},
        {"1.2.3", false},
        {"1,000", false},
        {" 5", false},
        {"+5", false},
        {"1e5", false},
        {"--5", false},
        {"nan", false},
        {"5-", false},
        {"=1+1", false},
    };
    for (const auto& each : cases) {
        Table one{{{"h"}, {each.content}}, {2}};
        cells = readSheet(exported(one).at("xl/worksheets/sheet1.xml"));
        EXPECT_EQ(cells["A2"], (SheetCell{each.content, each.isNumber})) << each.content;
    }
}

TEST(XlsxWriterTest, AnyTextBecomesMarkupInUtf8) {
    const std::string longest(32767, 'x');
    const struct {
        std::string content;
        std::string read;
    } cases[] = {
        {"<a b=\"1\">&amp;]]>", "<a b=\"1\">&amp;]]>"},
        {"\x01 tab\tline\nreturn\r\x1F\x7F", " tab\tline\nreturn"},
        {"\x80 \x9F \xA0 \xE9 \xFF", "\u20AC \u0178 \u00A0 \u00E9 \u00FF"},
        {"a\x81\x8D\x8F\x90\x9D", "a"},
        {"_x0041_ _x41_ _x00g1_ _xABcd_", "_x005F_x0041_ _x41_ _x00g1_ _x005F_xABcd_"},
        {longest + "y", longest},
    };
    for (const auto& each : cases) {
        Table table{{{each.content}, {each.content}}, {3}};
        const std::string sheet = exported(table).at("xl/worksheets/sheet1.xml");
        auto cells = readSheet(sheet);
        EXPECT_EQ(cells["A1"].text, each.read);
        EXPECT_EQ(cells["A2"].text, each.read);
    }
    Table blanks{{{"h"}, {" a"}, {"a "}, {"a b"}}, {3}};
    const std::string sheet = exported(blanks).at("xl/worksheets/sheet1.xml");
    EXPECT_NE(sheet.find("<t xml:space=\"preserve\"> a</t>"), sheet.npos);
    EXPECT_NE(sheet.find("<t xml:space=\"preserve\">a </t>"), sheet.npos);
    EXPECT_NE(sheet.find("<t>a b</t>"), sheet.npos);
}

// Contents that reach across the window, with matches of every length and distance.
TEST(ZipWriterTest, GivesBackWhatWasAdded) {
    std::mt19937 random(11);
    const auto noise = [&](std::size_t size, unsigned letters) {
        std::string made(size, '\0');
        for (char& byte : made) byte = static_cast<char>(random() % letters);
        return made;
    };
    std::string contents[] = {
        "",
        "a",
        "abcabcabcd",
        std::string(200'000, 'r'),
        noise(300'000, 256),
        noise(300'000, 2),
        noise(131'072, 4),
        noise(131'073, 3),
        noise(32'768, 256),
    };
    contents[8] += contents[8] + "e" + contents[8];  // as far back as matches go, and farther
    std::string archive;
    ZipWriter zip([&](std::string_view bytes) { return archive += bytes, true; });
    for (std::size_t i = 0; i < std::size(contents); ++i) {
        zip.begin(std::to_string(i));
        for (std::size_t at = 0; at < contents[i].size();) {
            const std::size_t part = 1 + random() % 70'000;
            zip.add(std::string_view(contents[i]).substr(at, part));
            at += part;
        }
        zip.end();
    }
    EXPECT_TRUE(zip.finish());
    const auto entries = readZip(archive);
    ASSERT_EQ(entries.size(), std::size(contents));
    for (std::size_t i = 0; i < std::size(contents); ++i)
        EXPECT_TRUE(entries.at(std::to_string(i)) == contents[i]) << i;
    EXPECT_LT(archive.size(), 800'000u) << "nothing was compressed";
}

}  // namespace
