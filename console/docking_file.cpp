#include "console/docking_file.h"

#include <algorithm>

#include "sdk/docking.h"

namespace zek {
namespace {

constexpr struct {
    const char* name;
    unsigned side;
} kSides[] = {
    {"left", kDockLeft}, {"top", kDockTop}, {"right", kDockRight}, {"bottom", kDockBottom}};

// The platform looks for a file without a folder among its own.
std::string wholePath(const std::string& path) {
    char whole[MAX_PATH] = "";
    const DWORD length = GetFullPathNameA(path.c_str(), MAX_PATH, whole, nullptr);
    return length > 0 && length < MAX_PATH ? std::string(whole, length) : path;
}

std::optional<fw::DockPlace> readPlace(const std::string& pane, const std::string& path) {
    char side[16] = "";
    GetPrivateProfileStringA(pane.c_str(), "side", "", side, sizeof side, path.c_str());
    const auto* const known = std::ranges::find_if(
        kSides, [&](const auto& each) { return side == std::string(each.name); });
    if (known == std::end(kSides)) return std::nullopt;
    const auto extent =
        static_cast<int>(GetPrivateProfileIntA(pane.c_str(), "extent", 0, path.c_str()));
    return fw::DockPlace{known->side, std::max(extent, 0)};
}

void writePlace(const std::string& pane, fw::DockPlace place, const std::string& path) {
    const auto* const known =
        std::ranges::find_if(kSides, [&](const auto& each) { return place.side == each.side; });
    if (known == std::end(kSides)) return;
    WritePrivateProfileStringA(pane.c_str(), "side", known->name, path.c_str());
    WritePrivateProfileStringA(pane.c_str(), "extent", std::to_string(place.extent).c_str(),
                               path.c_str());
}

}  // namespace

fw::DockMemory dockingFile(const std::string& path) {
    const std::string file = wholePath(path);
    return {
        [file](const std::string& pane) { return readPlace(pane, file); },
        [file](const std::string& pane, fw::DockPlace place) { writePlace(pane, place, file); }};
}

}  // namespace zek
