// verify.exe [NAME...]: runs the tests that lie beside it, all or these, and the sessions of its
// folder scenarios in the console, and writes verify-report.html with results, pictures of the
// sessions and what the computer is. Ends with 0 when all passed. The user's settings of the
// plug-in are put aside meanwhile.
#include "console/verify/verify.h"

#include <shlobj.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "framework/platform.h"

namespace verify {
namespace {

namespace fs = std::filesystem;
using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

constexpr ULONGLONG kLimit = 600'000;  // milliseconds for one program
constexpr wchar_t kOutput[] = L"verify-output.txt";
constexpr wchar_t kShots[] = L"verify-shots";

struct Work {
    std::wstring name;
    std::wstring command;
};

std::string contents(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
}

// A session begins as for a new user, and leaves the user's own settings as they were.
class SettingsAside {
public:
    SettingsAside() {
        wchar_t folder[MAX_PATH] = L"";
        SHGetSpecialFolderPathW(nullptr, folder, CSIDL_APPDATA, FALSE);
        m_file = fs::path(folder) / "Ostravine" / "VoskTrader" / "UserSetting.ini";
        m_aside = fs::path(m_file).replace_extension(".before-verify");
        // One that is there was left by a run that did not end.
        if (fs::exists(m_file) && !fs::exists(m_aside)) fs::rename(m_file, m_aside);
    }
    ~SettingsAside() {
        std::error_code unused;
        clear();
        fs::rename(m_aside, m_file, unused);
    }
    SettingsAside(const SettingsAside&) = delete;
    SettingsAside& operator=(const SettingsAside&) = delete;

    void clear() const {
        std::error_code unused;
        fs::remove(m_file, unused);
    }

private:
    fs::path m_file, m_aside;
};

// The console waits for the picture that it asks for until its request is gone.
void takePicture(DWORD process, Result& result) {
    const fs::path request = fs::path(kShots) / "request";
    std::error_code unused;
    if (!fs::exists(request, unused)) return;
    std::string name = contents(request);
    std::erase(name, '\n');
    result.pictures.emplace_back(name, pictureOf(process));
    fs::remove(request, unused);
}

// Waits for a process; "" when it passed.
std::string outcome(const PROCESS_INFORMATION& started, Result& result) {
    const ULONGLONG since = GetTickCount64();
    while (WaitForSingleObject(started.hProcess, 50) == WAIT_TIMEOUT) {
        takePicture(started.dwProcessId, result);
        if (GetTickCount64() - since <= kLimit) continue;
        TerminateProcess(started.hProcess, 1);
        return "it did not end";
    }
    result.milliseconds = GetTickCount64() - since;
    DWORD code = 0;
    GetExitCodeProcess(started.hProcess, &code);
    return code == 0 ? "" : "it ended with " + std::to_string(static_cast<int>(code));
}

Result run(const Work& work) {
    Result result{work.name, false, "it could not be started", 0, {}, {}};
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    Handle output(CreateFileW(kOutput, GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr),
                  &CloseHandle);
    // What is still running with it ends with the job.
    const Handle job(CreateJobObjectW(nullptr, nullptr), &CloseHandle);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    STARTUPINFOW info{};
    info.cb = sizeof info;
    info.dwFlags = STARTF_USESTDHANDLES;
    info.hStdOutput = info.hStdError = output.get();
    PROCESS_INFORMATION started{};
    std::wstring command = work.command;
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE,
                       CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr, nullptr, &info, &started)) {
        const Handle process(started.hProcess, &CloseHandle), thread(started.hThread, &CloseHandle);
        AssignProcessToJobObject(job.get(), process.get());
        ResumeThread(thread.get());
        result.why = outcome(started, result);
        result.passed = result.why.empty();
    }
    output.reset();
    result.output = contents(kOutput);
    return result;
}

// The suites of the Windows tests, by what that program says of itself; where it says nothing, its
// failure is the result.
std::vector<Work> suites() {
    std::vector<Work> all{{L"numbers", L"number_tests.exe --gtest_brief=1"}};
    const std::wstring list = wide(run({L"", L"windows_tests.exe --gtest_list_tests"}).output);
    for (std::size_t at = 0; at < list.size();) {
        const std::size_t end = std::min(list.find(L'\n', at), list.size());
        const std::wstring line = list.substr(at, list.find_last_not_of(L"\r\n", end) + 1 - at);
        if (line.ends_with(L'.') && !line.starts_with(L' '))
            all.push_back({line.substr(0, line.size() - 1),
                           L"windows_tests.exe --gtest_brief=1 --gtest_filter=" + line + L"*"});
        at = end + 1;
    }
    if (all.size() == 1) all.push_back({L"windows_tests", L"windows_tests.exe --gtest_brief=1"});
    return all;
}

// The play scripts, each with the scenario of its name or that of the demonstration.
std::vector<Work> sessions() {
    std::vector<Work> all;
    for (const auto& file : fs::directory_iterator(L"scenarios")) {
        fs::path scenario = file.path();
        if (scenario.extension() != L".play") continue;
        scenario.replace_extension(L".txt");
        if (!fs::exists(scenario)) scenario.replace_filename(L"session.txt");
        all.push_back({file.path().stem().wstring(), L"zek.exe --scenario " + scenario.wstring() +
                                                         L" --play " + file.path().wstring() +
                                                         L" --shots " + kShots});
    }
    std::ranges::sort(all, {}, &Work::name);
    return all;
}

// Suites, then sessions; those of these names, or all.
std::vector<Work> worksOf(const std::vector<std::wstring>& names) {
    std::vector<Work> works = suites();
    std::ranges::copy(sessions(), std::back_inserter(works));
    if (!names.empty())
        std::erase_if(works, [&](const Work& work) {
            return std::ranges::find(names, work.name) == names.end();
        });
    return works;
}

// What the report says of the system, and of the programs beside this one.
Facts allFacts() {
    Facts facts = systemFacts();
    for (const auto& file : fs::directory_iterator(L"."))
        if (file.path().extension() == L".dll" || file.path().extension() == L".exe")
            facts.emplace_back(utf8(file.path().filename().wstring()), versionOf(file.path()));
    return facts;
}

int verify(const std::vector<std::wstring>& names) {
    wchar_t program[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    fs::current_path(fs::path(program).parent_path());
    fs::create_directories(kShots);
    fw::makeDpiAware();  // pictures are taken in the screen's own pixels
    const Facts facts = allFacts();

    const SettingsAside settings;
    const std::vector<Work> works = worksOf(names);
    std::vector<Result> results;
    for (const Work& work : works) {
        std::printf("%zu of %zu: %ls ... ", results.size() + 1, works.size(), work.name.c_str());
        std::fflush(stdout);
        settings.clear();
        results.push_back(run(work));
        std::printf("%s\n", results.back().passed ? "passed" : "FAILED");
    }
    fs::remove(kOutput);
    fs::remove_all(kShots);
    std::ofstream("verify-report.html", std::ios::binary) << page(facts, results);
    std::printf("The report is verify-report.html.\n");
    return !results.empty() && std::ranges::all_of(results, &Result::passed) ? 0 : 1;
}

}  // namespace
}  // namespace verify

int wmain(int count, wchar_t** arguments) {
    try {
        return verify::verify({arguments + 1, arguments + count});
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
}
