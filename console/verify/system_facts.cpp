#include "console/verify/verify.h"
#include "framework/handles.h"
#include "framework/platform.h"

namespace verify {
namespace {

template <class Function>
Function* named(const wchar_t* library, const char* name) {
    return fw::exported<Function>(LoadLibraryW(library), name);
}

std::string windowsVersion() {
    RTL_OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (auto* get = named<LONG WINAPI(RTL_OSVERSIONINFOW*)>(L"ntdll.dll", "RtlGetVersion"))
        get(&version);
    std::string text = std::to_string(version.dwMajorVersion) + "." +
                       std::to_string(version.dwMinorVersion) + "." +
                       std::to_string(version.dwBuildNumber) + " " + utf8(version.szCSDVersion);
    if (auto* wine = named<const char*()>(L"ntdll.dll", "wine_get_version"))
        text += " (Wine " + std::string(wine()) + ")";
    return text;
}

BOOL CALLBACK addMonitor(HMONITOR monitor, HDC, RECT* box, LPARAM text) {
    UINT x = 0, y = 0;
    auto* dpi =
        named<HRESULT WINAPI(HMONITOR, int, UINT*, UINT*)>(L"shcore.dll", "GetDpiForMonitor");
    auto& all = *reinterpret_cast<std::string*>(text);
    all += (all.empty() ? "" : "; ") + std::to_string(box->right - box->left) + " x " +
           std::to_string(box->bottom - box->top);
    if (dpi != nullptr && dpi(monitor, 0, &x, &y) == S_OK) all += ", " + std::to_string(x) + " dpi";
    return TRUE;
}

std::string monitors() {
    std::string text;
    EnumDisplayMonitors(nullptr, nullptr, addMonitor, reinterpret_cast<LPARAM>(&text));
    return text;
}

std::string systemDpi() {
    const fw::DcScope screen(nullptr);
    const int depth = GetDeviceCaps(screen.dc(), BITSPIXEL);
    return std::to_string(fw::systemDpi()) + ", " + std::to_string(depth) + " bits a pixel";
}

// As a program with a manifest gets them (this one has one), and as one without.
std::string commonControls() {
    wchar_t file[MAX_PATH] = L"";
    GetModuleFileNameW(LoadLibraryW(L"comctl32.dll"), file, MAX_PATH);
    wchar_t folder[MAX_PATH] = L"";
    GetSystemDirectoryW(folder, MAX_PATH);
    return versionOf(file) + "; without a manifest " +
           versionOf(std::wstring(folder) + L"\\comctl32.dll");
}

std::string look() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
    BOOL reader = FALSE;
    SystemParametersInfoW(SPI_GETSCREENREADER, 0, &reader, 0);
    auto* themed = named<BOOL WINAPI()>(L"uxtheme.dll", "IsThemeActive");
    std::string text = themed != nullptr && themed() ? "themes" : "no themes";
    if ((contrast.dwFlags & HCF_HIGHCONTRASTON) != 0) text += ", high contrast";
    if (reader) text += ", a screen reader";
    if (GetSystemMetrics(SM_REMOTESESSION) != 0) text += ", a remote session";
    return text;
}

std::string language() {
    wchar_t name[LOCALE_NAME_MAX_LENGTH] = L"";
    GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
    return utf8(name) + ", code page " + std::to_string(GetACP());
}

std::string now() {
    SYSTEMTIME time{};
    GetLocalTime(&time);
    wchar_t text[64] = L"";
    wsprintfW(text, L"%04d-%02d-%02d %02d:%02d", time.wYear, time.wMonth, time.wDay, time.wHour,
              time.wMinute);
    return utf8(text);
}

}  // namespace

std::string versionOf(const std::wstring& file) {
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeW(file.c_str(), &unused);
    std::string block(size, '\0');
    void* found = nullptr;
    UINT length = 0;
    if (size == 0 || !GetFileVersionInfoW(file.c_str(), 0, size, block.data()) ||
        !VerQueryValueW(block.data(), L"\\", &found, &length))
        return "none";
    const auto& version = *static_cast<const VS_FIXEDFILEINFO*>(found);
    const auto two = [](DWORD pair) {
        return std::to_string(HIWORD(pair)) + "." + std::to_string(LOWORD(pair));
    };
    return two(version.dwFileVersionMS) + "." + two(version.dwFileVersionLS);
}

Facts systemFacts() {
    return {{"Started", now()},
            {"Windows", windowsVersion()},
            {"Common controls", commonControls()},
            {"System's dots per inch", systemDpi()},
            {"Monitors", monitors()},
            {"Look", look()},
            {"Language", language()}};
}

}  // namespace verify
