// Plays a script (console/model/play_script.h) against the real windows.
//
// A timer of the driver's own window ticks, also while a dialog or a menu runs a message loop of
// its own. A tick comes when the thread has nothing else to do, so each step finds done what the
// one before has started. A step that waits or acts, and does not find what it needs yet, is tried
// again at the next tick, and 20 seconds after the server came to rest the run fails; one that
// expects fails at once.
//
// Steps about the log look at the lines since the last step that acted.
//
// A run that fails says where and why on the standard error and ends the process with code 1. At
// the end of the script the console leaves as a user does.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "console/model/play_script.h"
#include "console/play_turn.h"
#include "console/play_verbs.h"
#include "framework/window.h"

namespace zek {

class CPlayDriver : public fw::CWindow {
public:
    // `shotsFolder` is where pictures are asked for; without one none is taken.
    CPlayDriver(Console& console, std::string file, std::vector<PlayStep> steps,
                std::string shotsFolder);

    // False when its message window cannot be made.
    bool start();

protected:
    const fw::MessageMap& messageMap() const override;

private:
    void onTimer(UINT_PTR id);
    void onReleaseKeys();
    // True when the step is done and only looked, so that the next one need not wait for a tick.
    bool tryStep();
    Outcome run(const Verb& verb);
    void nextStep();
    void leave();
    [[noreturn]] void fail(const std::string& why);

    Console& m_console;
    std::string m_file;
    std::vector<PlayStep> m_steps;
    std::vector<PlayStep>::const_iterator m_step;
    ULONGLONG m_since = 0;  // when the step's turn came
    PlayTurn m_turn;
};

}  // namespace zek
