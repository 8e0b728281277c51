// What the command line says to the console itself; the rest of it says who is logged in.
//
//   --log FILE      writes the lines of the tabbed log to a file as well
//   --state FILE    writes the server's state at the end
//   --shots FOLDER  where a play script asks for its pictures
//   --ini FILE      the profiles, instead of zek.ini beside the program
//   --docking FILE  where panes were docked, instead of zek-docking.ini beside the program; a
//                   session that plays a script keeps them nowhere else, so that each begins alike
//   --frame-first   makes the main frame before the plug-in is started, not after
#pragma once

#include <string>
#include <vector>

#include "console/model/parsed.h"

namespace zek {

struct ConsoleOptions {
    std::string logFile;
    std::string stateFile;
    std::string shotsFolder;
    std::string iniFile;
    std::string dockingFile;
    bool frameFirst = false;
    std::vector<std::string> login;  // what is left, for parseLogin()
};

// `arguments` come without the program's name.
Parsed<ConsoleOptions> takeConsoleOptions(const std::vector<std::string>& arguments);

// The names of the profiles in an ini text, in its order.
std::vector<std::string> profileNames(std::string_view ini);

}  // namespace zek
