#include "console/docking_file.h"

#include <algorithm>

#include "console/files.h"
#include "sdk/docking.h"

namespace zek {
namespace {

constexpr struct {
    const wchar_t* name;
    unsigned side;
} kSides[] = {
    {L"left", kDockLeft}, {L"top", kDockTop}, {L"right", kDockRight}, {L"bottom", kDockBottom}};

// The platform looks for a file without a folder among its own.
std::wstring wholePath(const std::string& name) {
    std::error_code failed;
    const std::filesystem::path path = pathOf(name);
    const std::filesystem::path whole = std::filesystem::absolute(path, failed);
    return failed ? path : whole;
}

std::optional<fw::DockPosition> readPosition(const std::wstring& pane, const std::wstring& path) {
    wchar_t side[16] = L"";
    GetPrivateProfileStringW(pane.c_str(), L"side", L"", side, std::size(side), path.c_str());
    const auto* const known = std::ranges::find_if(
        kSides, [&](const auto& each) { return side == std::wstring(each.name); });
    if (known == std::end(kSides)) return std::nullopt;
    const auto extent =
        static_cast<int>(GetPrivateProfileIntW(pane.c_str(), L"extent", 0, path.c_str()));
    return fw::DockPosition{known->side, std::max(extent, 0)};
}

void writePosition(const std::wstring& pane, fw::DockPosition position, const std::wstring& path) {
    const auto* const known =
        std::ranges::find_if(kSides, [&](const auto& each) { return position.side == each.side; });
    if (known == std::end(kSides)) return;
    WritePrivateProfileStringW(pane.c_str(), L"side", known->name, path.c_str());
    WritePrivateProfileStringW(pane.c_str(), L"extent", std::to_wstring(position.extent).c_str(),
                               path.c_str());
}

}  // namespace

fw::DockMemory dockingFile(const std::string& path) {
    const std::wstring file = wholePath(path);
    return {[file](const std::string& pane) { return readPosition(pathOf(pane), file); },
            [file](const std::string& pane, fw::DockPosition position) {
                writePosition(pathOf(pane), position, file);
            }};
}

}  // namespace zek
