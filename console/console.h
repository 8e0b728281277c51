// The reference console: one server, one log, and one session after the other.
//
// A session is one login: the plug-in is loaded and started, the main frame made, the message loop
// run, the plug-in shut down and let go, and the frame destroyed. Switching the user ends a session
// and begins the next, so that each user gets a plug-in that was started before the frame existed.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/exchange.h"
#include "console/holdings.h"
#include "console/log_book.h"
#include "console/main_frame.h"
#include "console/makers.h"
#include "console/model/login_profile.h"
#include "console/options.h"
#include "console/plugin.h"
#include "console/receive_control.h"

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
    bool isBusy() const { return m_exchange.server().pendingDeliveries() > 0; }
    const LogBook& log() const { return m_log; }
    const LoginProfile& profile() const { return m_profile; }
    Makers& makers() { return m_makers; }
    // What the program held more after the plug-in was last unloaded than after the time before, or
    // an empty text.
    std::string grownBetweenUnloads() const;

private:
    struct Command;

    bool prepare();
    bool readProfiles();
    void loadScenario();
    bool startPlay();

    void beginSession();
    void makeFrame();
    void loadPlugin();
    void unloadPlugin();
    void reloadPlugin();
    void runMessages();
    void endSession();

    bool onCommand(UINT id);
    void onHotKey() { m_plugin.hotKey(); }
    template <int (Makers::*submit)()>
    void onSubmit();
    template <int count>
    void onStorm();
    template <bool accepted>
    void onDecideOldest();
    void switchUser(std::size_t index);
    void showStatus();
    // Tells the user, or whoever runs a script; after fail() the exit code says so too.
    void warn(const std::string& what);
    void fail(const std::string& what);

    ConsoleOptions m_options;
    std::string m_ini;
    std::vector<std::string> m_profileNames;
    std::string m_profileName;
    LoginProfile m_profile;
    std::optional<LoginProfile> m_nextProfile;  // who logs in when the session ends
    bool m_isScripted = false;                  // nobody is there to close a message box
    int m_session = 0;
    int m_exitCode = 0;
    int m_handlesBefore = 0;           // of the messaging library, before the plug-in was loaded
    std::vector<Holdings> m_holdings;  // after each unloading

    LogBook m_log;
    CExchange m_exchange;
    Makers m_makers;
    ReceiveControls m_controls;
    Plugin m_plugin;
    std::unique_ptr<CMainFrame> m_frame;
    std::unique_ptr<CPlayDriver> m_play;
};

}  // namespace zek
