#include "console/play_driver.h"

#include <algorithm>
#include <cstdlib>

#include "console/console.h"
#include "console/files.h"

namespace zek {
namespace {

constexpr UINT_PTR kTickTimer = 1;
constexpr UINT kTickMilliseconds = 20;
constexpr ULONGLONG kPatienceMilliseconds = 20000;

}  // namespace

CPlayDriver::CPlayDriver(Console& console, std::string file, std::vector<PlayStep> steps,
                         std::string shotsFolder)
    : m_console(console),
      m_file(std::move(file)),
      m_steps(std::move(steps)),
      m_shotsFolder(std::move(shotsFolder)),
      m_step(m_steps.begin()) {}

const fw::MessageMap& CPlayDriver::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_TIMER, &CPlayDriver::onTimer>(),
        fw::on<kReleaseKeys, &CPlayDriver::onReleaseKeys>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

bool CPlayDriver::start() {
    static const fw::WindowClass windowClass{"Zek.PlayDriver", 0, IDC_ARROW, -1};
    m_since = GetTickCount64();
    m_sessionBefore = 1;
    return create(windowClass, "", 0, 0, {}, HWND_MESSAGE, 0) &&
           SetTimer(handle(), kTickTimer, kTickMilliseconds, nullptr) != 0;
}

const CPlayDriver::Verb& CPlayDriver::verbOf(const PlayStep& step) {
    static constexpr Verb kVerbs[] = {
        {PlayVerb::waitRows, Kind::wait, &CPlayDriver::rows},
        {PlayVerb::waitDetails, Kind::wait, &CPlayDriver::details},
        {PlayVerb::waitLog, Kind::wait, &CPlayDriver::logHas},
        {PlayVerb::waitMessage, Kind::wait, &CPlayDriver::message},
        {PlayVerb::expectRows, Kind::expect, &CPlayDriver::rows},
        {PlayVerb::expectRow, Kind::expect, &CPlayDriver::row},
        {PlayVerb::expectLog, Kind::expect, &CPlayDriver::logHasLine},
        {PlayVerb::expectNoLog, Kind::expect, &CPlayDriver::logHasNot},
        {PlayVerb::expectMessage, Kind::expect, &CPlayDriver::message},
        {PlayVerb::expectText, Kind::expect, &CPlayDriver::controlText},
        {PlayVerb::select, Kind::prepare, &CPlayDriver::select},
        {PlayVerb::type, Kind::prepare, &CPlayDriver::type},
        {PlayVerb::focus, Kind::prepare, &CPlayDriver::focus},
        {PlayVerb::choose, Kind::prepare, &CPlayDriver::choose},
        {PlayVerb::closeMessage, Kind::prepare, &CPlayDriver::closeMessage},
        {PlayVerb::screenshot, Kind::prepare, &CPlayDriver::screenshot},
        {PlayVerb::hotkey, Kind::act, &CPlayDriver::hotKey},
        {PlayVerb::doubleClick, Kind::act, &CPlayDriver::doubleClick},
        {PlayVerb::sort, Kind::act, &CPlayDriver::sort},
        {PlayVerb::filter, Kind::act, &CPlayDriver::filter},
        {PlayVerb::listMenu, Kind::act, &CPlayDriver::listMenu},
        {PlayVerb::headerMenu, Kind::act, &CPlayDriver::headerMenu},
        {PlayVerb::press, Kind::act, &CPlayDriver::press},
        {PlayVerb::key, Kind::act, &CPlayDriver::key},
        {PlayVerb::submitNext, Kind::act, &CPlayDriver::submitNext},
        {PlayVerb::submitAll, Kind::act, &CPlayDriver::submitAll},
        {PlayVerb::submitStorm, Kind::act, &CPlayDriver::submitStorm},
        {PlayVerb::decide, Kind::act, &CPlayDriver::decide},
        {PlayVerb::user, Kind::act, &CPlayDriver::user},
        {PlayVerb::menu, Kind::act, &CPlayDriver::menu},
        {PlayVerb::dock, Kind::act, &CPlayDriver::dock},
        {PlayVerb::closePane, Kind::act, &CPlayDriver::closePane},
        {PlayVerb::edit, Kind::act, &CPlayDriver::edit},
        {PlayVerb::expectDetail, Kind::expect, &CPlayDriver::detail},
        {PlayVerb::expectClean, Kind::expect, &CPlayDriver::clean},
        {PlayVerb::quit, Kind::act, &CPlayDriver::quit},
    };
    return *std::ranges::find(kVerbs, step.verb, &Verb::verb);
}

void CPlayDriver::onTimer(UINT_PTR) {
    if (m_console.frameWindow() == nullptr) return;
    if (m_step == m_steps.end()) return leave();
    while (m_step != m_steps.end() && tryStep()) {
    }
}

bool CPlayDriver::tryStep() {
    const Verb& verb = verbOf(*m_step);
    const bool isBusy = m_console.isBusy();
    if (isBusy) m_since = GetTickCount64();
    const bool isOverdue = GetTickCount64() - m_since > kPatienceMilliseconds;
    if (isBusy && verb.kind != Kind::wait) return false;
    if (++m_tries == 1 && verb.kind == Kind::act)
        m_logMark = m_console.log().lines(LogTab::log).size();
    const Outcome outcome = (this->*verb.run)();
    if (outcome.empty()) nextStep();
    if (!outcome.empty() && (verb.kind == Kind::expect || isOverdue)) fail(outcome);
    return outcome.empty() && (verb.kind == Kind::expect || verb.kind == Kind::wait);
}

void CPlayDriver::nextStep() {
    ++m_step;
    m_tries = 0;
    m_closing = nullptr;
    m_sessionBefore = m_console.session();
    m_since = GetTickCount64();
}

void CPlayDriver::leave() {
    KillTimer(handle(), kTickTimer);
    m_console.leave();
}

// The process ends here: there may be an open dialog, whose loop would go on without us.
void CPlayDriver::fail(const std::string& why) {
    for (const LogLine& line : m_console.log().lines(LogTab::log)) printLine(line.text);
    printError(m_file + ":" + std::to_string(m_step->line) + ": " +
               std::string(wordsOf(m_step->verb)) + ": " + why);
    TerminateProcess(GetCurrentProcess(), 1);
    std::abort();
}

}  // namespace zek
