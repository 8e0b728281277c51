#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <string>

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

int runConsole(int count, char** arguments) {
    zek::Parsed<zek::ConsoleOptions> options =
        zek::takeConsoleOptions({arguments + 1, arguments + count});
    if (!options.ok()) {
        zek::printError(options.error);
        return 2;
    }
    makeSettingsParent();
    return zek::Console(std::move(options.value)).run();
}

}  // namespace

// A program for the desktop: linked for the graphical subsystem, started by the runtime's main.
int main(int count, char** arguments) {
    fw::makeDpiAware();
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    try {
        return runConsole(count, arguments);
    } catch (const std::exception& error) {
        zek::printError(error.what());
        return 1;
    }
}
