// Reading the console's text files: results with a clear error, and lines with their numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/characters.h"
#include "text/read_number.h"

namespace zek {

// What a parser yields. With an error, the value is not to be used.
template <class Value>
struct Parsed {
    Value value;
    std::string error;  // "file:line: what is wrong"; empty when all is well

    bool ok() const { return error.empty(); }
};

// Hands out the lines of a text, without their ends (LF or CR LF) and the blanks around them.
class LineReader {
public:
    LineReader(std::string_view text, std::string_view file);

    // The next line that is neither empty nor a comment (its first character is '#').
    std::optional<std::string_view> next();
    int line() const { return m_line; }
    // "file:line: what", for the line handed out last.
    std::string error(std::string_view what) const;

private:
    std::string_view m_rest;
    std::string m_file;
    int m_line = 0;
};

// Without the blanks and tabs around it.
inline std::string_view trimmed(std::string_view text) {
    return mc::trimmed(text, " \t");
}

// "name = value" taken apart at the first '='; nullopt without one.
struct Assignment {
    std::string_view name, value;
};
std::optional<Assignment> splitAssignment(std::string_view line);

// The whole text as a decimal number.
inline std::optional<int> toNumber(std::string_view text) {
    return mc::wholeInteger<int>(text);
}

// Text from a file as an error message may show it: short, and printable.
std::string quoted(std::string_view text);

}  // namespace zek
