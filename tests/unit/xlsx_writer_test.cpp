#include "console/excel/xlsx_writer.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <regex>
#include <stdexcept>

#include "console/excel/zip_writer.h"

namespace {

using Parts = std::map<std::string, std::string>;

// The content of one final block of fixed codes, the only kind that is written.
std::string inflated(std::string_view packed) {
    std::string out;
    std::size_t at = 0;
    const auto bits = [&](unsigned count) {
        unsigned value = 0;
        for (unsigned i = 0; i < count; ++i, ++at) {
            if (at / 8 >= packed.size()) throw std::runtime_error("compressed data ends early");
            value |= (static_cast<unsigned char>(packed[at / 8]) >> at % 8 & 1u) << i;
        }
        return value;
    };
    const auto code = [&](unsigned value, unsigned count) {
        while (count-- > 0) value = value << 1 | bits(1);
        return value;
    };
    const auto symbol = [&] {
        unsigned value = code(0, 7);
        if (value < 24) return value + 256;
        value = code(value, 1);
        if (value < 192) return value - 48;
        return value < 200 ? value + 88 : code(value, 1) - 256;
    };
    // Each code begins where the values of the one before end.
    const auto number = [&](unsigned which, unsigned first, unsigned plain, unsigned perExtra) {
        const auto extra = [&](unsigned i) { return i < plain ? 0 : (i - plain) / perExtra + 1; };
        for (unsigned i = 0; i < which; ++i) first += 1u << extra(i);
        return first + bits(extra(which));
    };
    EXPECT_EQ(bits(3), 3u);
    for (unsigned next = symbol(); next != 256; next = symbol()) {
        if (next < 256) {
            out += static_cast<char>(next);
            continue;
        }
        unsigned length = next == 285 ? 258 : number(next - 257, 3, 8, 4);
        const unsigned distance = number(code(0, 5), 1, 4, 2);
        if (distance > out.size()) throw std::runtime_error("distance before the start");
        while (length-- > 0) out += out[out.size() - distance];
    }
    EXPECT_EQ((at + 7) / 8, packed.size());
    return out;
}

unsigned checksum(std::string_view bytes) {
    unsigned crc = ~0u;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int i = 0; i < 8; ++i) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
    }
    return ~crc;
}

Parts readZip(std::string_view zip) {
    const auto number = [&](std::size_t at, std::size_t count) {
        unsigned value = 0;
        while (count-- > 0) value = value << 8 | static_cast<unsigned char>(zip.at(at + count));
        return value;
    };
    Parts entries;
    const std::size_t end = zip.size() - 22;
    EXPECT_EQ(number(end, 4), 0x06054B50u);
    std::size_t at = number(end + 16, 4);
    for (unsigned left = number(end + 10, 2); left > 0; --left) {
        EXPECT_EQ(number(at, 4), 0x02014B50u);
        const std::size_t nameSize = number(at + 28, 2), local = number(at + 42, 4);
        const std::string name(zip.substr(at + 46, nameSize));
        const auto packed = zip.substr(local + 30 + nameSize, number(at + 20, 4));
        entries[name] = inflated(packed);
        EXPECT_EQ(number(at + 24, 4), entries[name].size()) << name;
        EXPECT_EQ(number(at + 16, 4), checksum(entries[name])) << name;
        at += 46 + nameSize;
    }
    EXPECT_EQ(at, end);
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
