#include "tests/windows/screenless.h"

#include <windows.h>

#include <string>

namespace {

constexpr char kOnScreen[] = "MC_ON_SCREEN";
constexpr DWORD kStartLimit = 30000;  // milliseconds

// The process, or null. It ends with this one.
HANDLE start(std::string command, const std::string& desktop) {
    STARTUPINFOA info{};
    info.cb = sizeof info;
    info.lpDesktop = const_cast<char*>(desktop.empty() ? nullptr : desktop.c_str());
    PROCESS_INFORMATION started{};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &info,
                        &started))
        return nullptr;
    static const HANDLE job = [] {
        const HANDLE made = CreateJobObjectA(nullptr, nullptr);
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits, sizeof limits);
        return made;
    }();
    AssignProcessToJobObject(job, started.hProcess);
    CloseHandle(started.hThread);
    return started.hProcess;
}

}  // namespace

std::optional<int> runWithoutScreen() {
    if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr ||
        GetEnvironmentVariableA(kOnScreen, nullptr, 0) != 0)
        return std::nullopt;
    SetEnvironmentVariableA(kOnScreen, "no");
    const std::string name = "tests" + std::to_string(GetCurrentProcessId());
    const HANDLE shell = start("explorer.exe /desktop=" + name + ",1280x900,null", "");
    if (shell == nullptr) return std::nullopt;
    WaitForInputIdle(shell, kStartLimit);
    const HANDLE tests = start(GetCommandLineA(), name);
    DWORD code = 1;
    if (tests != nullptr) WaitForSingleObject(tests, INFINITE);
    if (tests != nullptr) GetExitCodeProcess(tests, &code);
    return static_cast<int>(code);
}
