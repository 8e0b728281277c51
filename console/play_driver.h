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

#include <functional>
#include <string>
#include <vector>

#include "console/model/play_script.h"
#include "framework/window.h"

namespace zek {

class Console;

// Posted by the driver to itself behind a key: its modifiers are let go. No parameters.
inline constexpr UINT kReleaseKeys = WM_APP + 1;

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
    // Empty when the step is done, else what was expected and what was seen.
    using Outcome = std::string;
    enum class Kind { wait, expect, prepare, act };  // only `act` begins the log again
    struct Verb {
        PlayVerb verb;
        Kind kind;
        Outcome (CPlayDriver::*run)();
    };
    static const Verb& verbOf(const PlayStep& step);

    void onTimer(UINT_PTR id);
    void onReleaseKeys();
    // True when the step is done and only looked, so that the next one need not wait for a tick.
    bool tryStep();
    void nextStep();
    void leave();
    [[noreturn]] void fail(const std::string& why);
    const std::string& argument(std::size_t index = 0) const { return m_step->arguments[index]; }
    int number() const;
    // What the log is searched for, and the row that the step names; -1 when it is not there.
    bool logContains(bool wholeLine) const;
    int rowNamed(std::size_t index) const;

    // Waiting and expecting
    Outcome rows();
    Outcome details();
    Outcome row();
    Outcome logHas();
    Outcome logHasLine();
    Outcome logHasNot();
    Outcome message();
    Outcome controlText();
    Outcome detail();
    Outcome clean();

    // Acting
    Outcome hotKey();
    Outcome select();
    Outcome doubleClick();
    Outcome sort();
    Outcome filter();
    Outcome listMenu();
    Outcome headerMenu();
    Outcome press();
    Outcome focus();
    Outcome choose();
    Outcome type();
    Outcome key();
    Outcome closeMessage();
    Outcome screenshot();
    Outcome submitNext();
    Outcome submitAll();
    Outcome submitStorm();
    Outcome decide();
    Outcome user();
    Outcome menu();
    Outcome dock();
    Outcome closePane();
    Outcome edit();
    Outcome quit();

    Outcome pressKeyNamed(const std::string& name);
    Outcome chooseMenu(const std::string& path);
    // Chooses from the open popup menu, or has `open` open it first.
    Outcome choosePopup(const std::string& entry, const std::function<void()>& open);
    // The control of the open dialog that the step's first argument names; null when it takes no
    // input.
    HWND dialogControl() const;
    // Takes the pane one action closer to where it should be.
    void movePane(HWND pane, const std::string& side);
    // Every few tries, for actions that take a moment to be seen.
    bool isTimeToAct() const { return m_tries % 10 == 1; }

    Console& m_console;
    std::string m_file;
    std::vector<PlayStep> m_steps;
    std::string m_shotsFolder;
    std::vector<PlayStep>::const_iterator m_step;
    int m_tries = 0;            // of this step, the one under way included
    ULONGLONG m_since = 0;      // when the step's turn came
    HWND m_closing = nullptr;   // the message box or editor that this step closes
    int m_sessionBefore = 0;    // when the step's turn came
    std::size_t m_logMark = 0;  // log lines before the last action
};

}  // namespace zek
