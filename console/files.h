// Files and standard output of a program without a console window. Names of files are UTF-8, so
// that the program works in any folder, whatever the system's code page.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace zek {

// A name as the platform's wide functions take it, and back.
std::filesystem::path pathOf(const std::string& name);
std::string nameOf(const std::filesystem::path& path);

bool exists(const std::string& name);

// The folder of the program, with a backslash at its end.
std::string programFolder();

// A file that an option or a profile names: as it is, or else beside the program.
std::string findFile(const std::string& name);

std::optional<std::string> readFile(const std::string& name);

// Writes the file under another name first, so that nobody sees half of it.
bool replaceFile(const std::string& name, const std::string& text);

// Write one line to the standard output or error, where the program was given one.
void printLine(const std::string& line);
void printError(const std::string& line);

}  // namespace zek
