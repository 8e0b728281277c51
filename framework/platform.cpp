#include "framework/platform.h"

#include <string>

namespace fw {
namespace {

template <class Function>
void find(const char* module, const char* name, Function*& into) noexcept {
    into = exported<Function>(GetModuleHandleA(module), name);
}

NewerWindows findNewerWindows() noexcept {
    NewerWindows found{};
    find("user32", "GetDpiForWindow", found.dpiForWindow);
    find("user32", "GetDpiForSystem", found.dpiForSystem);
    find("user32", "GetSystemMetricsForDpi", found.systemMetricsForDpi);
    find("user32", "SystemParametersInfoForDpi", found.systemParametersInfoForDpi);
    find("user32", "AdjustWindowRectExForDpi", found.adjustWindowRectExForDpi);
    find("user32", "SetProcessDpiAwarenessContext", found.setProcessDpiAwarenessContext);
    // The flags came to Windows 7 with an update that brought this function too.
    found.librarySearchFlags =
        GetProcAddress(GetModuleHandleA("kernel32"), "AddDllDirectory") != nullptr;
    return found;
}

int screenDpi() noexcept {
    const DcScope screen(nullptr);
    return GetDeviceCaps(screen.dc(), LOGPIXELSY);
}

// From the system's dots per inch to `dpi`.
int rescaled(int pixels, int dpi) noexcept {
    return MulDiv(pixels, dpi, systemDpi());
}

// The folder of the program, with a backslash at its end.
std::wstring programFolder() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size())
        path.resize(2 * path.size());
    path.resize(length);
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

}  // namespace

NewerWindows& newerWindows() noexcept {
    static NewerWindows found = findNewerWindows();
    return found;
}

int systemDpi() noexcept {
    const auto ask = newerWindows().dpiForSystem;
    return ask != nullptr ? static_cast<int>(ask()) : screenDpi();
}

int dpiOf(HWND window) noexcept {
    const auto ask = newerWindows().dpiForWindow;
    const UINT dpi = ask != nullptr && window != nullptr ? ask(window) : 0;
    return dpi != 0 ? static_cast<int>(dpi) : systemDpi();
}

int metric(int index, int dpi) noexcept {
    const auto ask = newerWindows().systemMetricsForDpi;
    return ask != nullptr ? ask(index, static_cast<UINT>(dpi))
                          : rescaled(GetSystemMetrics(index), dpi);
}

Font systemFont(LOGFONTW NONCLIENTMETRICSW::*font, int dpi) noexcept {
    const auto ask = newerWindows().systemParametersInfoForDpi;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (ask == nullptr ||
        ask(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi)) == 0) {
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        (metrics.*font).lfHeight = rescaled((metrics.*font).lfHeight, dpi);
    }
    return Font(CreateFontIndirectW(&(metrics.*font)));
}

RECT windowAround(RECT client, DWORD style, DWORD exStyle, int dpi) noexcept {
    const auto adjust = newerWindows().adjustWindowRectExForDpi;
    if (adjust != nullptr)
        adjust(&client, style, FALSE, exStyle, static_cast<UINT>(dpi));
    else
        AdjustWindowRectEx(&client, style, FALSE, exStyle);
    return client;
}

void makeDpiAware() noexcept {
    const auto set = newerWindows().setProcessDpiAwarenessContext;
    if (set == nullptr || set(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2) == 0)
        SetProcessDPIAware();
}

HMODULE loadBesideProgram(std::string_view file) {
    constexpr DWORD kSearched = LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;
    const DWORD flags =
        newerWindows().librarySearchFlags ? kSearched : LOAD_WITH_ALTERED_SEARCH_PATH;
    return LoadLibraryExW(programFolder().append(file.begin(), file.end()).c_str(), nullptr, flags);
}

}  // namespace fw
