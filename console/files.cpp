#include "console/files.h"

#include <windows.h>

#include <fstream>
#include <iterator>

namespace zek {
namespace {

bool exists(const std::string& name) {
    return GetFileAttributesA(name.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void writeTo(DWORD stream, const std::string& line) {
    const std::string text = line + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(stream), text.data(), static_cast<DWORD>(text.size()), &written,
              nullptr);
}

}  // namespace

std::string programFolder() {
    char path[MAX_PATH] = "";
    const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string name(path, length);
    return name.substr(0, name.find_last_of('\\') + 1);
}

std::string findFile(const std::string& name) {
    return name.empty() || exists(name) ? name : programFolder() + name;
}

std::optional<std::string> readFile(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool replaceFile(const std::string& name, const std::string& text) {
    const std::string temporary = name + ".tmp";
    {
        std::ofstream file(temporary, std::ios::binary);
        if (!(file << text << std::flush)) return false;
    }
    return MoveFileExA(temporary.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
}

void printLine(const std::string& line) {
    writeTo(STD_OUTPUT_HANDLE, line);
}

void printError(const std::string& line) {
    writeTo(STD_ERROR_HANDLE, line);
}

}  // namespace zek
