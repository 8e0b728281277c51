// Reads back what the export library writes: zip archives and sheets, strictly. Anything that a
// reader could stumble over throws std::runtime_error.
#pragma once

#include <map>
#include <string>
#include <string_view>

// Every entry's content by name. Checks both headers of each entry, sizes and checksums, and that
// nothing stands between the entries. Knows the one method and block form that is written.
std::map<std::string, std::string> readZip(std::string_view archive);

// Throws unless the document is well-formed markup in UTF-8.
void checkMarkup(std::string_view document);

// The cells of a sheet that hold anything, by their names ("A1").
struct SheetCell {
    std::string text;
    bool isNumber;
    bool operator==(const SheetCell&) const = default;
};
std::map<std::string, SheetCell> readSheet(std::string_view document);
