#include "console/console.h"

#include <algorithm>

#include "console/docking_file.h"
#include "console/files.h"
#include "console/model/server_state.h"
#include "console/play_driver.h"
#include "console/resource_ids.h"
#include "console/services.h"

namespace zek {

Console::Console(ConsoleOptions options)
    : m_options(std::move(options)),
      m_makers(m_exchange, m_log),
      m_runs(m_exchange, m_log, m_troubles) {}

Console::~Console() = default;

int Console::run() {
    if (!prepare()) return m_troubles.exitCode();
    while (m_logins.takeNext()) {
        beginSession();
        runMessages();
        endSession();
    }
    if (!m_options.stateFile.empty() &&
        !replaceFile(m_options.stateFile, stateOf(m_exchange.server())))
        m_troubles.fail("Cannot write " + m_options.stateFile);
    if (m_play != nullptr)
        for (const LogLine& line : m_log.lines(LogTab::log)) printLine(line.text);
    return m_troubles.exitCode();
}

bool Console::prepare() {
    m_troubles.setScripted(std::ranges::find(m_options.login, "--play") != m_options.login.end());
    if (const std::string wrong = m_logins.read(m_options); !wrong.empty())
        return m_troubles.fail(wrong), false;
    if (!m_options.logFile.empty() && !m_log.openFile(m_options.logFile))
        m_troubles.fail("Cannot write " + m_options.logFile);
    setServiceSources({&m_logins.profile(), &m_log, &m_runs.controls()});
    if (!m_exchange.open()) m_troubles.fail("The message window cannot be made");
    loadScenario();
    return m_troubles.exitCode() == 0 && startPlay();
}

void Console::loadScenario() {
    if (m_logins.profile().scenario.empty()) return;
    const std::string file = findFile(m_logins.profile().scenario);
    const std::optional<std::string> text = readFile(file);
    if (!text) return m_troubles.fail("Cannot read the scenario " + file);
    Parsed<Scenario> scenario = parseScenario(*text, file);
    if (!scenario.ok()) return m_troubles.fail(scenario.error);
    m_makers.load(std::move(scenario.value));
}

bool Console::startPlay() {
    if (m_logins.profile().play.empty()) return true;
    const std::string file = findFile(m_logins.profile().play);
    const std::optional<std::string> text = readFile(file);
    if (!text) return m_troubles.fail("Cannot read the play script " + file), false;
    Parsed<std::vector<PlayStep>> script = parsePlayScript(*text, file);
    if (!script.ok()) return m_troubles.fail(script.error), false;
    m_makers.repeatStorms();
    m_play =
        std::make_unique<CPlayDriver>(*this, file, std::move(script.value), m_options.shotsFolder);
    return m_play->start() || (m_troubles.fail("The play script cannot be started"), false);
}

// --- Sessions ------------------------------------------------------------------------------------

void Console::beginSession() {
    if (m_options.frameFirst) makeFrame();
    m_runs.load();
    if (!m_options.frameFirst) makeFrame();
    ++m_session;
    if (m_logins.profile().storm > 0) m_makers.submitStorm(m_logins.profile().storm);
}

void Console::makeFrame() {
    FrameEvents events{[this](UINT id) { return onCommand(id); }, [this] { leave(); },
                       [this] { showStatus(); }};
    m_frame = std::make_unique<CMainFrame>(std::move(events), m_exchange, m_log);
    if (!m_frame->create("ZEK Console - " + m_logins.profile().user))
        m_troubles.fail("The main frame cannot be made");
    std::string docking = m_options.dockingFile;
    if (docking.empty() && !m_troubles.isScripted()) docking = programFolder() + "zek-docking.ini";
    if (!docking.empty()) m_frame->setDockMemory(dockingFile(docking));
    m_frame->setProfiles(m_logins.names(), m_logins.name());
    showStatus();
}

void Console::runMessages() {
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (m_frame->translate(message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void Console::endSession() {
    m_runs.unload();
    m_frame.reset();
}

// --- Commands ------------------------------------------------------------------------------------

struct Console::Command {
    UINT id;
    void (*run)(Console& console);
};

bool Console::onCommand(UINT id) {
    static constexpr Command kCommands[] = {
        {ID_FILE_EXIT, [](Console& c) { c.leave(); }},
        {ID_TOOLS_MAKER_CHECKER, [](Console& c) { c.m_runs.hotKey(); }},
        {ID_TOOLS_RELOAD_PLUGIN, [](Console& c) { c.m_runs.reload(); }},
        {ID_MAKER_NEXT, [](Console& c) { c.m_makers.submitNext(); }},
        {ID_MAKER_ALL, [](Console& c) { c.m_makers.submitAll(); }},
        {ID_MAKER_RANDOM, [](Console& c) { c.m_makers.submitRandom(); }},
        {ID_MAKER_STORM_100, [](Console& c) { c.m_makers.submitStorm(100); }},
        {ID_MAKER_STORM_1000, [](Console& c) { c.m_makers.submitStorm(1000); }},
        {ID_MAKER_STORM_20000, [](Console& c) { c.m_makers.submitStorm(20000); }},
        {ID_MAKER_ACCEPT_OLDEST, [](Console& c) { c.m_makers.decideOldest(true); }},
        {ID_MAKER_REJECT_OLDEST, [](Console& c) { c.m_makers.decideOldest(false); }},
    };
    if (id >= ID_USER_FIRST && id <= ID_USER_LAST) return switchUser(id - ID_USER_FIRST), true;
    const auto* command = std::ranges::find(kCommands, id, &Command::id);
    if (command == std::end(kCommands)) return false;
    command->run(*this);
    return true;
}

void Console::switchUser(std::size_t index) {
    if (index >= m_logins.names().size()) return;
    if (const std::string wrong = m_logins.choose(index); !wrong.empty())
        return m_troubles.fail(wrong);
    leave();
}

HWND Console::frameWindow() const {
    return m_frame != nullptr ? m_frame->handle() : nullptr;
}

void Console::leave() {
    PostQuitMessage(0);
}

void Console::showStatus() {
    const char* connection = m_runs.controls().isSubscribed() ? "Connected, subscribed"
                             : m_runs.controls().count() > 0  ? "Connected"
                                                              : "Not connected";
    m_frame->status().show({"User: " + m_logins.profile().user,
                            "Broker: " + m_logins.profile().broker,
                            "Privilege level: " + std::to_string(m_logins.profile().level) + " (" +
                                m_logins.profile().privilege + ")",
                            connection});
}

}  // namespace zek
