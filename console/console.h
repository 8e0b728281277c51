// The reference console: one server, one log, and one session after the other.
//
// A session is one login: the plug-in is loaded and started, the main frame made, the message loop
// run, the plug-in shut down and let go, and the frame destroyed. Switching the user ends a session
// and begins the next, so that each user gets a plug-in that was started before the frame existed.
#pragma once

#include <memory>

#include "console/exchange.h"
#include "console/log_book.h"
#include "console/logins.h"
#include "console/main_frame.h"
#include "console/makers.h"
#include "console/options.h"
#include "console/plugin_runs.h"
#include "console/troubles.h"

namespace zek {

class CPlayDriver;

class Console {
public:
    explicit Console(ConsoleOptions options);
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    // Everything from the first session to the last. Returns the program's exit code.
    int run();

    // Ends the session, and the program unless another user was chosen.
    void leave();

    // What a play script looks at and plays with. There is no frame between two sessions.
    HWND frameWindow() const;
    int session() const { return m_session; }  // counted from 1
    bool isBusy() const { return m_exchange.server().connections().pendingDeliveries() > 0; }
    const LogBook& log() const { return m_log; }
    Makers& makers() { return m_makers; }
    const PluginRuns& runs() const { return m_runs; }

private:
    struct Command;

    bool prepare();
    void loadScenario();
    bool startPlay();

    void beginSession();
    void makeFrame();
    void runMessages();
    void endSession();

    bool onCommand(UINT id);
    void switchUser(std::size_t index);
    void showStatus();

    ConsoleOptions m_options;
    Logins m_logins;
    int m_session = 0;
    LogBook m_log;
    Troubles m_troubles{m_log, [this] { return frameWindow(); }};
    CExchange m_exchange;
    Makers m_makers;
    PluginRuns m_runs;
    std::unique_ptr<CMainFrame> m_frame;
    std::unique_ptr<CPlayDriver> m_play;
};

}  // namespace zek
