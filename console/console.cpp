#include "console/console.h"

#include <algorithm>

#include "console/docking_file.h"
#include "console/files.h"
#include "console/model/server_state.h"
#include "console/play_driver.h"
#include "console/resource_ids.h"
#include "console/services.h"
#include "sdk/connectvosk.h"

namespace zek {
namespace {

constexpr char kPluginFile[] = "MakerChecker.dll";

// The profile that the command line chooses, else the first.
std::string startProfile(const std::vector<std::string>& arguments,
                         const std::vector<std::string>& names) {
    const auto option = std::ranges::find(arguments, "--profile");
    if (option != arguments.end() && option + 1 != arguments.end()) return *(option + 1);
    return names.empty() ? std::string() : names.front();
}

}  // namespace

Console::Console(ConsoleOptions options)
    : m_options(std::move(options)),
      m_makers(m_exchange, m_log),
      m_controls(m_exchange, [this](void* message) { m_plugin.publish(message); }) {}

Console::~Console() = default;

int Console::run() {
    if (!prepare()) return m_exitCode;
    m_nextProfile = m_profile;
    while (m_nextProfile) {
        m_profile = *std::exchange(m_nextProfile, std::nullopt);
        beginSession();
        runMessages();
        endSession();
    }
    if (!m_options.stateFile.empty() &&
        !replaceFile(m_options.stateFile, stateOf(m_exchange.server())))
        fail("Cannot write " + m_options.stateFile);
    if (m_play != nullptr)
        for (const LogLine& line : m_log.lines(LogTab::log)) printLine(line.text);
    return m_exitCode;
}

bool Console::prepare() {
    m_isScripted = std::ranges::find(m_options.login, "--play") != m_options.login.end();
    if (!readProfiles()) return false;
    if (!m_options.logFile.empty() && !m_log.openFile(m_options.logFile))
        fail("Cannot write " + m_options.logFile);
    setServiceSources({&m_profile, &m_log, &m_controls});
    if (!m_exchange.open()) fail("The message window cannot be made");
    loadScenario();
    return m_exitCode == 0 && startPlay();
}

bool Console::readProfiles() {
    const bool isNamed = !m_options.iniFile.empty();
    const std::string file = isNamed ? m_options.iniFile : programFolder() + "zek.ini";
    const std::optional<std::string> ini = readFile(file);
    if (!ini && isNamed) return fail("Cannot read " + file), false;
    m_ini = ini.value_or("");
    m_profileNames = profileNames(m_ini);
    m_profileName = startProfile(m_options.login, m_profileNames);
    Parsed<LoginProfile> login = parseLogin(m_ini, file, m_options.login);
    if (!login.ok()) return fail(login.error), false;
    m_profile = std::move(login.value);
    return true;
}

void Console::loadScenario() {
    if (m_profile.scenario.empty()) return;
    const std::string file = findFile(m_profile.scenario);
    const std::optional<std::string> text = readFile(file);
    if (!text) return fail("Cannot read the scenario " + file);
    Parsed<Scenario> scenario = parseScenario(*text, file);
    if (!scenario.ok()) return fail(scenario.error);
    m_makers.load(std::move(scenario.value));
}

bool Console::startPlay() {
    if (m_profile.play.empty()) return true;
    const std::string file = findFile(m_profile.play);
    const std::optional<std::string> text = readFile(file);
    if (!text) return fail("Cannot read the play script " + file), false;
    Parsed<std::vector<PlayStep>> script = parsePlayScript(*text, file);
    if (!script.ok()) return fail(script.error), false;
    m_makers.repeatStorms();
    m_play =
        std::make_unique<CPlayDriver>(*this, file, std::move(script.value), m_options.shotsFolder);
    return m_play->start() || (fail("The play script cannot be started"), false);
}

// --- Sessions ------------------------------------------------------------------------------------

void Console::beginSession() {
    if (m_options.frameFirst) makeFrame();
    loadPlugin();
    if (!m_options.frameFirst) makeFrame();
    ++m_session;
    if (m_profile.storm > 0) m_makers.submitStorm(m_profile.storm);
}

void Console::loadPlugin() {
    m_handlesBefore = otp_open_handles();
    const std::string wrong = m_plugin.load(programFolder() + kPluginFile);
    if (!wrong.empty()) return warn(wrong + ". The console goes on without it.");
    m_plugin.start();
    m_log.add(LogTab::server, "Loaded " + m_plugin.description());
}

void Console::unloadPlugin() {
    for (const std::string& left : m_plugin.unload()) fail("The plug-in left " + left);
    if (const std::size_t left = m_controls.releaseAll(); left > 0)
        fail("The plug-in left " + std::to_string(left) + " receive controls");
    if (const int left = otp_open_handles() - m_handlesBefore; left > 0)
        fail("The plug-in left " + std::to_string(left) + " messaging handles");
    m_holdings.push_back(countHoldings());
}

// The frame is there before the plug-in now, whichever order the session began with.
void Console::reloadPlugin() {
    unloadPlugin();
    loadPlugin();
}

std::string Console::grownBetweenUnloads() const {
    const std::size_t count = m_holdings.size();
    if (count < 2) return "the plug-in was not unloaded twice yet";
    return grown(m_holdings[count - 2], m_holdings[count - 1]);
}

void Console::makeFrame() {
    FrameEvents events{[this](UINT id) { return onCommand(id); }, [this] { leave(); },
                       [this] { showStatus(); }};
    m_frame = std::make_unique<CMainFrame>(std::move(events), m_exchange, m_log);
    if (!m_frame->create("ZEK Console - " + m_profile.user)) fail("The main frame cannot be made");
    std::string docking = m_options.dockingFile;
    if (docking.empty() && !m_isScripted) docking = programFolder() + "zek-docking.ini";
    if (!docking.empty()) m_frame->setDockMemory(dockingFile(docking));
    m_frame->setProfiles(m_profileNames, m_profileName);
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
    unloadPlugin();
    m_frame.reset();
}

// --- Commands ------------------------------------------------------------------------------------

struct Console::Command {
    UINT id;
    void (Console::*run)();
};

bool Console::onCommand(UINT id) {
    static constexpr Command kCommands[] = {
        {ID_FILE_EXIT, &Console::leave},
        {ID_TOOLS_MAKER_CHECKER, &Console::onHotKey},
        {ID_TOOLS_RELOAD_PLUGIN, &Console::reloadPlugin},
        {ID_MAKER_NEXT, &Console::onSubmit<&Makers::submitNext>},
        {ID_MAKER_ALL, &Console::onSubmit<&Makers::submitAll>},
        {ID_MAKER_RANDOM, &Console::onSubmit<&Makers::submitRandom>},
        {ID_MAKER_STORM_100, &Console::onStorm<100>},
        {ID_MAKER_STORM_1000, &Console::onStorm<1000>},
        {ID_MAKER_STORM_20000, &Console::onStorm<20000>},
        {ID_MAKER_ACCEPT_OLDEST, &Console::onDecideOldest<true>},
        {ID_MAKER_REJECT_OLDEST, &Console::onDecideOldest<false>},
    };
    if (id >= ID_USER_FIRST && id <= ID_USER_LAST) return switchUser(id - ID_USER_FIRST), true;
    const auto* command = std::ranges::find(kCommands, id, &Command::id);
    if (command == std::end(kCommands)) return false;
    (this->*command->run)();
    return true;
}

template <int (Makers::*submit)()>
void Console::onSubmit() {
    (m_makers.*submit)();
}

template <int count>
void Console::onStorm() {
    m_makers.submitStorm(count);
}

template <bool accepted>
void Console::onDecideOldest() {
    m_makers.decideOldest(accepted);
}

void Console::switchUser(std::size_t index) {
    if (index >= m_profileNames.size()) return;
    Parsed<LoginProfile> login = parseLogin(m_ini, "zek.ini", {"--profile", m_profileNames[index]});
    if (!login.ok()) return fail(login.error);
    m_nextProfile = std::move(login.value);
    m_profileName = m_profileNames[index];
    leave();
}

void Console::leave() {
    PostQuitMessage(0);
}

void Console::showStatus() {
    const char* connection = m_controls.isSubscribed() ? "Connected, subscribed"
                             : m_controls.count() > 0  ? "Connected"
                                                       : "Not connected";
    m_frame->setStatus(
        {"User: " + m_profile.user, "Broker: " + m_profile.broker,
         "Privilege level: " + std::to_string(m_profile.level) + " (" + m_profile.privilege + ")",
         connection});
}

HWND Console::frameWindow() const {
    return m_frame != nullptr ? m_frame->handle() : nullptr;
}

void Console::fail(const std::string& what) {
    m_exitCode = 1;
    warn(what);
}

// A play script's run is not held up by a message box.
void Console::warn(const std::string& what) {
    printError(what);
    m_log.add(LogTab::server, what);
    if (!m_isScripted) MessageBoxA(frameWindow(), what.c_str(), "ZEK", MB_OK | MB_ICONWARNING);
}

}  // namespace zek
