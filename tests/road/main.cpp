// road [SEED]: walks a long session, made up from the seed, in the console beside this program, and
// compares what the server and the log end with to what the model says. Leaves everything in the
// folder "road". Ends with 0 when all is as it must be.
#include <windows.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "console/files.h"
#include "tests/road/script.h"

namespace {

const std::string kFolder = "road\\";

void write(const std::string& name, const std::string& text) {
    std::ofstream(kFolder + name, std::ios::binary) << text;
}

std::string read(const std::string& name) {
    return zek::readFile(kFolder + name).value_or("");
}

// Runs the console, which tells here what goes wrong; its exit code.
DWORD run(std::string commandLine) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    if (CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &start, &process) == 0)
        return 3;
    DWORD code = 3;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

// The first line in which the two differ is told.
bool isSame(const std::string& name, const std::string& expected) {
    write(name + ".expected", expected);
    std::istringstream want(expected);
    std::istringstream have(read(name));
    std::string wanted, seen;
    for (int line = 1;; ++line) {
        const bool hasMore = static_cast<bool>(std::getline(want, wanted));
        if (!hasMore) wanted = "(the end)";
        if (!std::getline(have, seen)) seen = "(the end)";
        if (wanted != seen) {
            std::cerr << name << ":" << line << ": expected " << wanted << "\n  saw " << seen
                      << "\n";
            return false;
        }
        if (!hasMore) return true;
    }
}

}  // namespace

int main(int count, char** arguments) {
    const unsigned seed = count > 1 ? static_cast<unsigned>(std::stoul(arguments[1])) : 1;
    const road::Road road = road::makeRoad(seed);
    CreateDirectoryA(kFolder.c_str(), nullptr);
    write("zek.ini", road.ini);
    write("scenario.txt", road.scenario);
    write("road.play", road.script);
    for (const char* left : {"log", "state"}) DeleteFileA((kFolder + left).c_str());

    const DWORD code = run("\"" + zek::programFolder() +
                           "zek.exe\" --ini road\\zek.ini --scenario road\\scenario.txt --play "
                           "road\\road.play --log road\\log --state road\\state");
    const bool isLogSame = isSame("log", road.log);
    const bool isStateSame = isSame("state", road.state);
    std::cerr << "seed " << seed << ": the console ended with " << code << "\n";
    return code == 0 && isLogSame && isStateSame ? 0 : 1;
}
