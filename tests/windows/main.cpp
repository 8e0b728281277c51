// The Windows tests share one process, one screen and one host; each starts with a fresh host
// state.
#include <optional>

#include "sdk/connectvosk.h"
#include "tests/windows/test_host.h"

namespace {

class FreshHost final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        host() = HostState{};
        otp_fail_call(0);
    }
    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_TRUE(host().controls.empty()) << "receive controls were not released";
    }
};

// ---- A desktop without a screen ----
//
// Wine on an X server answers each injected move of the mouse with pointer and keyboard events of
// the X server's own, some time later; they move the pointer back, or let go of Ctrl and Shift.
// Without a screen nothing comes between a hand's input and the windows.

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

// Under Wine, unless MC_ON_SCREEN is set: runs this program again on such a desktop, and returns
// its exit code. Nothing when the program is to go on as it is.
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

}  // namespace

int main(int argc, char** argv) {
    if (const auto code = runWithoutScreen()) return *code;
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FreshHost);
    return RUN_ALL_TESTS();
}
