#include "console/holdings.h"

#include <windows.h>

#include "framework/platform.h"

namespace zek {
namespace {

BOOL CALLBACK countChild(HWND, LPARAM count) {
    ++*reinterpret_cast<long long*>(count);
    return TRUE;
}

BOOL CALLBACK countWindow(HWND window, LPARAM count) {
    EnumChildWindows(window, countChild, count);
    return countChild(window, count);
}

long long countWindows() {
    long long count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&count));
    HWND window = nullptr;
    while ((window = FindWindowExA(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr)
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) ++count;
    return count;
}

// The lower half of a handle names a menu, whatever the upper one says.
long long countMenus() {
    long long count = 0;
    for (ULONG_PTR value = 1; value <= 0xFFFF; ++value)
        if (IsMenu(reinterpret_cast<HMENU>(value)) != 0) ++count;
    return count;
}

// An entry of the table of GDI handles that Wine keeps in every process, as Windows once did.
struct GdiEntry {
    unsigned long long object;
    unsigned owner;
    unsigned short generation;
    unsigned short type;  // 0: free
    unsigned long long unused;
};

long long countGdiObjects() {
    if (const DWORD known = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); known != 0)
        return known;
    constexpr std::size_t kTableInBlock = 0xF8;  // of the process environment block
    constexpr std::size_t kEntries = 0x10000;
    auto* currentBlock =
        fw::exported<const char*()>(GetModuleHandleA("ntdll.dll"), "RtlGetCurrentPeb");
    if (currentBlock == nullptr) return 0;
    const auto* table = *reinterpret_cast<const GdiEntry* const*>(currentBlock() + kTableInBlock);
    long long count = 0;
    for (std::size_t index = 0; table != nullptr && index < kEntries; ++index)
        if (table[index].type != 0) ++count;
    return count;
}

long long countHandles() {
    DWORD known = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &known) != 0 && known != 0) return known;
    constexpr ULONG_PTR kLast = 0x2000;
    long long count = 0;
    for (ULONG_PTR value = 4; value <= kLast; value += 4) {
        DWORD flags = 0;
        if (GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != 0) ++count;
    }
    return count;
}

constexpr struct Kind {
    long long Holdings::*count;
    long long mayGrow;
    const char* name;
} kKinds[] = {
    {&Holdings::windows, 0, "windows"},
    {&Holdings::menus, 0, "menus"},
    {&Holdings::gdiObjects, 0, "GDI objects"},
    {&Holdings::handles, 4, "handles"},
};

}  // namespace

Holdings countHoldings() {
    return {countWindows(), countMenus(), countGdiObjects(), countHandles()};
}

std::string grown(const Holdings& before, const Holdings& after) {
    std::string text;
    for (const Kind& kind : kKinds) {
        const long long more = after.*kind.count - before.*kind.count;
        if (more <= kind.mayGrow) continue;
        text += (text.empty() ? "" : ", ") + std::to_string(more) + " more " + kind.name;
    }
    return text;
}

}  // namespace zek
