#include "console/files.h"

#include <windows.h>

#include <fstream>
#include <iterator>

namespace zek {
namespace {

void writeTo(DWORD stream, const std::string& line) {
    const std::string text = line + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(stream), text.data(), static_cast<DWORD>(text.size()), &written,
              nullptr);
}

}  // namespace

std::filesystem::path pathOf(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}

std::string nameOf(const std::filesystem::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

bool exists(const std::string& name) {
    return GetFileAttributesW(pathOf(name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string programFolder() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return nameOf(std::filesystem::path(path).remove_filename());
}

std::string findFile(const std::string& name) {
    return name.empty() || exists(name) ? name : programFolder() + name;
}

std::optional<std::string> readFile(const std::string& name) {
    std::ifstream file(pathOf(name), std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool replaceFile(const std::string& name, const std::string& text) {
    const std::string temporary = name + ".tmp";
    {
        std::ofstream file(pathOf(temporary), std::ios::binary);
        if (!(file << text << std::flush)) return false;
    }
    return MoveFileExW(pathOf(temporary).c_str(), pathOf(name).c_str(),
                       MOVEFILE_REPLACE_EXISTING) != 0;
}

void printLine(const std::string& line) {
    writeTo(STD_OUTPUT_HANDLE, line);
}

void printError(const std::string& line) {
    writeTo(STD_ERROR_HANDLE, line);
}

}  // namespace zek
