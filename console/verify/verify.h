// The parts of verify.exe, which main.cpp explains.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace verify {

// The report is UTF-8; names of files are wide, what programs write is in the system's code page.
std::string utf8(const std::wstring& text);
std::wstring wide(const std::string& text);

// What the screen shows where the visible windows of a process are, and nothing else of it: a PNG
// in base 64. Empty when there is no such window or the picture fails.
std::string pictureOf(DWORD process);

// What the computer is, as far as windows and texts depend on it: a caption and a value each.
using Facts = std::vector<std::pair<std::string, std::string>>;
Facts systemFacts();

// The version in the resources of a file: "1.0.0.0"; "none" without one.
std::string versionOf(const std::wstring& file);

struct Result {
    std::wstring name;
    bool passed = false;
    std::string why;  // it did not pass
    ULONGLONG milliseconds = 0;
    std::string output;
    std::vector<std::pair<std::string, std::string>> pictures;  // a name and a PNG in base 64 each
};

// The report as a page that needs no other file.
std::string page(const Facts& facts, const std::vector<Result>& results);

}  // namespace verify
