#include "console/excel/xlsx_writer.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t kMaxCell = 32767;
constexpr std::size_t kMaxDigits = 15;  // that a number in a sheet keeps

#define SHEET_NAMESPACE "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
#define PACKAGE_NAMESPACE "http://schemas.openxmlformats.org/package/2006/"
#define OFFICE_RELATION "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
#define CONTENT_TYPE "application/vnd.openxmlformats-officedocument.spreadsheetml."
#define XML_HEAD "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"

struct FixedPart {
    const char* name;
    const char* content;
};
constexpr FixedPart kFixedParts[] = {
    {"[Content_Types].xml", XML_HEAD
     "<Types xmlns=\"" PACKAGE_NAMESPACE "content-types\">"
     "<Default Extension=\"rels\""
     " ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
     "<Override PartName=\"/xl/workbook.xml\" ContentType=\"" CONTENT_TYPE "sheet.main+xml\"/>"
     "<Override PartName=\"/xl/styles.xml\" ContentType=\"" CONTENT_TYPE "styles+xml\"/>"
     "<Override PartName=\"/xl/worksheets/sheet1.xml\""
     " ContentType=\"" CONTENT_TYPE "worksheet+xml\"/></Types>"},
    {"_rels/.rels", XML_HEAD "<Relationships xmlns=\"" PACKAGE_NAMESPACE "relationships\">"
                             "<Relationship Id=\"rId1\" Type=\"" OFFICE_RELATION "/officeDocument\""
                             " Target=\"xl/workbook.xml\"/></Relationships>"},
    {"xl/workbook.xml",
     XML_HEAD "<workbook xmlns=\"" SHEET_NAMESPACE "\" xmlns:r=\"" OFFICE_RELATION "\">"
              "<sheets><sheet name=\"sheet1\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>"},
    {"xl/_rels/workbook.xml.rels",
     XML_HEAD "<Relationships xmlns=\"" PACKAGE_NAMESPACE "relationships\">"
              "<Relationship Id=\"rId1\" Type=\"" OFFICE_RELATION "/worksheet\""
              " Target=\"worksheets/sheet1.xml\"/>"
              "<Relationship Id=\"rId2\" Type=\"" OFFICE_RELATION "/styles\""
              " Target=\"styles.xml\"/></Relationships>"},
    {"xl/styles.xml",
     XML_HEAD "<styleSheet xmlns=\"" SHEET_NAMESPACE "\">"
              "<fonts count=\"2\"><font><sz val=\"10\"/><name val=\"Arial\"/></font>"
              "<font><b/><sz val=\"10\"/><name val=\"Arial\"/></font></fonts>"
              "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
              "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
              "<borders count=\"1\"><border/></borders>"
              "<cellStyleXfs count=\"1\"><xf/></cellStyleXfs>"
              "<cellXfs count=\"2\"><xf xfId=\"0\"/>"
              "<xf fontId=\"1\" applyFont=\"1\" xfId=\"0\"/></cellXfs>"
              "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/>"
              "</cellStyles></styleSheet>"},
};
constexpr char kSheetName[] = "xl/worksheets/sheet1.xml";
constexpr char kSheetHead[] =
    XML_HEAD "<worksheet xmlns=\"" SHEET_NAMESPACE
             "\"><sheetViews>"
             "<sheetView workbookViewId=\"0\"><pane ySplit=\"1\" topLeftCell=\"A2\""
             " activePane=\"bottomLeft\" state=\"frozen\"/></sheetView></sheetViews>";

// Windows-1252 from 0x80 to 0x9F; 0 where it has no character.
constexpr std::array<char16_t, 32> kUpperControls{
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}
bool isHexDigit(char byte) {
    return isDigit(byte) || (byte >= 'A' && byte <= 'F') || (byte >= 'a' && byte <= 'f');
}
bool isBlank(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n';
}

// Readers take "_x0041_" for the character of that code, so its first "_" is written as one.
bool startsCodeEscape(std::string_view text) {
    return text.size() >= 7 && text[0] == '_' && text[1] == 'x' && text[6] == '_' &&
           std::all_of(text.begin() + 2, text.begin() + 6, isHexDigit);
}

void putUtf8(unsigned code, std::string& out) {
    if (code >= 0x800) {
        out += static_cast<char>(0xE0 | code >> 12);
        out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    } else {
        out += static_cast<char>(0xC0 | code >> 6);
    }
    out += static_cast<char>(0x80 | (code & 0x3F));
}

void putCharacter(char byte, std::string& out) {
    const auto code = static_cast<unsigned char>(byte);
    switch (byte) {
        case '&':
            out += "&amp;";
            return;
        case '<':
            out += "&lt;";
            return;
        case '>':
            out += "&gt;";
            return;
        default:
            break;
    }
    if (code >= 0xA0)
        putUtf8(code, out);
    else if (code >= 0x80 && kUpperControls[code - 0x80u] != 0)
        putUtf8(kUpperControls[code - 0x80u], out);
    else if ((code >= 0x20 && code < 0x7F) || byte == '\t' || byte == '\n')
        out += byte;
}

void putText(std::string_view text, std::string& out) {
    const bool keepBlanks = !text.empty() && (isBlank(text.front()) || isBlank(text.back()));
    out +=
        keepBlanks ? " t=\"inlineStr\"><is><t xml:space=\"preserve\">" : " t=\"inlineStr\"><is><t>";
    for (; !text.empty(); text.remove_prefix(1)) {
        if (startsCodeEscape(text)) out += "_x005F";
        putCharacter(text.front(), out);
    }
    out += "</t></is></c>";
}

// Digits with at most one sign and one point, of which a sheet changes none.
bool isPlainNumber(std::string_view text) {
    if (!text.empty() && text.front() == '-') text.remove_prefix(1);
    const auto point = std::min(text.find('.'), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    return !whole.empty() && std::all_of(whole.begin(), whole.end(), isDigit) &&
           std::all_of(fraction.begin(), fraction.end(), isDigit) &&
           fraction.empty() == (point == text.size()) && (whole.size() == 1 || whole[0] != '0') &&
           whole.size() + fraction.size() <= kMaxDigits;
}

bool isNumberType(int type) {
    return type == 1 || type == 2 || type == 4 || type == 5 || type == 7 || type == 9;
}

// "A", "B", ... "Z", "AA", ...
std::string columnLetters(int column) {
    std::string letters;
    for (++column; column > 0; column = (column - 1) / 26)
        letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % 26));
    return letters;
}

struct SheetColumn {
    std::string letters;
    std::string caption;
    bool isNumber;
};

class SheetWriter {
public:
    SheetWriter(ZipWriter& zip, int columns, void* list, CellCallback* cell)
        : m_zip(zip), m_list(list), m_cell(cell), m_columns(static_cast<std::size_t>(columns)) {}

    // False when it was stopped.
    bool write(int rows) {
        m_zip.begin(kSheetName);
        m_out = kSheetHead;
        readHeader();
        putWidths();
        m_out += "<sheetData>";
        for (int row = 0; row < rows && m_zip.good() && !m_stopped; ++row) putRow(row);
        m_out += "</sheetData></worksheet>";
        m_zip.add(m_out);
        m_zip.end();
        return !m_stopped;
    }

private:
    std::string_view ask(int row, std::size_t column, int& type) {
        const char* text = nullptr;
        if (!m_stopped) m_cell(m_list, row, static_cast<int>(column), text, type);
        m_stopped = m_stopped || type == kStopExport;
        return text != nullptr ? std::string_view(text).substr(0, kMaxCell) : std::string_view();
    }

    void readHeader() {
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            int type = -1;
            const std::string caption(ask(0, i, type));
            m_columns[i] = {columnLetters(static_cast<int>(i)), caption, isNumberType(type)};
        }
    }

    // As wide as the captions need, in characters.
    void putWidths() {
        m_out += "<cols>";
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            const std::string number = std::to_string(i + 1);
            const auto width = std::clamp<std::size_t>(m_columns[i].caption.size() + 3, 12, 60);
            m_out += "<col min=\"" + number + "\" max=\"" + number + "\" width=\"" +
                     std::to_string(width) + "\" customWidth=\"1\"/>";
        }
        m_out += "</cols>";
    }

    void putRow(int row) {
        const std::string number = std::to_string(row + 1);
        m_out += "<row r=\"" + number + "\">";
        for (std::size_t i = 0; i < m_columns.size(); ++i) {
            int type = -1;
            const std::string_view text = row == 0 ? m_columns[i].caption : ask(row, i, type);
            if (!text.empty()) putCell(row, m_columns[i], number, text);
        }
        m_out += "</row>";
        m_zip.add(m_out);
        m_out.clear();
    }

    void putCell(int row, const SheetColumn& column, const std::string& number,
                 std::string_view text) {
        m_out += "<c r=\"" + column.letters + number + (row == 0 ? "\" s=\"1\"" : "\"");
        if (row == 0 || !column.isNumber || !isPlainNumber(text)) return putText(text, m_out);
        m_out += "><v>";
        m_out += text;
        m_out += "</v></c>";
    }

    ZipWriter& m_zip;
    void* m_list;
    CellCallback* m_cell;
    std::vector<SheetColumn> m_columns;
    std::string m_out;
    bool m_stopped = false;
};

}  // namespace

bool writeXlsx(int rows, int columns, void* list, CellCallback* cell, ByteSink sink) {
    if (rows < 1 || rows > kMaxSheetRows || columns < 1 || columns > kMaxSheetColumns ||
        cell == nullptr)
        return false;
    ZipWriter zip(std::move(sink));
    for (const FixedPart& part : kFixedParts) {
        zip.begin(part.name);
        zip.add(part.content);
        zip.end();
    }
    const bool whole = SheetWriter(zip, columns, list, cell).write(rows);
    return zip.finish() && whole;
}
