#include "console/plugin_runs.h"

#include "console/files.h"
#include "sdk/connectvosk.h"

namespace zek {
namespace {

constexpr char kPluginFile[] = "MakerChecker.dll";

}  // namespace

PluginRuns::PluginRuns(CExchange& exchange, LogBook& log, Troubles& troubles)
    : m_log(log),
      m_troubles(troubles),
      m_controls(exchange, [this](void* message) { m_plugin.publish(message); }) {}

void PluginRuns::load() {
    m_handlesBefore = otp_open_handles();
    const std::string wrong = m_plugin.load(programFolder() + kPluginFile);
    if (!wrong.empty()) return m_troubles.warn(wrong + ". The console goes on without it.");
    m_plugin.start();
    m_log.add(LogTab::server, "Loaded " + m_plugin.description());
}

void PluginRuns::unload() {
    for (const std::string& left : m_plugin.unload()) m_troubles.fail("The plug-in left " + left);
    if (const std::size_t left = m_controls.releaseAll(); left > 0)
        m_troubles.fail("The plug-in left " + std::to_string(left) + " receive controls");
    if (const int left = otp_open_handles() - m_handlesBefore; left > 0)
        m_troubles.fail("The plug-in left " + std::to_string(left) + " messaging handles");
    m_holdings.push_back(countHoldings());
}

// The frame is there before the plug-in now, whichever order the session began with.
void PluginRuns::reload() {
    unload();
    load();
}

std::string PluginRuns::grownBetweenUnloads() const {
    const std::size_t count = m_holdings.size();
    if (count < 2) return "the plug-in was not unloaded twice yet";
    return grown(m_holdings[count - 2], m_holdings[count - 1]);
}

}  // namespace zek
