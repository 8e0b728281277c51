// The turn of a step of a play script: what its verb knows, from try to try.
#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

#include "console/model/play_script.h"

namespace zek {

class Console;

// Empty when the step is done, else what was expected and what was seen.
using Outcome = std::string;

// Thrown by a step that no further try can do. what() says why.
struct HopelessStep : std::runtime_error {
    using runtime_error::runtime_error;
};

// Posted to the driver's window behind a key: its modifiers are let go. No parameters.
inline constexpr UINT kReleaseKeys = WM_APP + 1;

struct PlayTurn {
    Console& console;
    std::string shotsFolder;  // where pictures are asked for; without one none is taken
    HWND window = nullptr;    // the driver's
    const PlayStep* step = nullptr;
    int tries = 0;            // of this step, the one under way included
    HWND closing = nullptr;   // the message box or editor that this step closes
    int sessionBefore = 0;    // when the step's turn came
    std::size_t logMark = 0;  // log lines before the last action
    bool quits = false;       // no step follows

    const std::string& argument(std::size_t index = 0) const { return step->arguments[index]; }
    int number() const;
    // What the log is searched for, and the row that the step names; -1 when it is not there.
    bool logContains(bool wholeLine) const;
    int rowNamed(std::size_t index) const;
    // Every few tries, for actions that take a moment to be seen.
    bool isTimeToAct() const { return tries % 10 == 1; }
};

// What a list shows, for a message: the texts of the first rows.
std::string shownIn(HWND list);

}  // namespace zek
