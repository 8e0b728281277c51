#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <string>
#include <vector>

#include "console/console.h"
#include "console/files.h"
#include "framework/platform.h"

namespace {

// Plug-ins keep their settings in a folder of this one, which they never create themselves.
void makeSettingsParent() {
    char folder[MAX_PATH]{};
    if (SHGetSpecialFolderPathA(nullptr, folder, CSIDL_APPDATA, FALSE) == 0) return;
    CreateDirectoryA((std::string(folder) + "\\Ostravine").c_str(), nullptr);
}

// Without the program's name, as UTF-8.
std::vector<std::string> givenArguments() {
    int count = 0;
    wchar_t** given = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(zek::nameOf(given[i]));
    LocalFree(given);
    return arguments;
}

int runConsole() {
    zek::Parsed<zek::ConsoleOptions> options = zek::takeConsoleOptions(givenArguments());
    if (!options.ok()) {
        zek::printError(options.error);
        return 2;
    }
    makeSettingsParent();
    return zek::Console(std::move(options.value)).run();
}

}  // namespace

// A program for the desktop: linked for the graphical subsystem, started by the runtime's main.
int main() {
    fw::makeDpiAware();
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    try {
        return runConsole();
    } catch (const std::exception& error) {
        zek::printError(error.what());
        return 1;
    }
}
