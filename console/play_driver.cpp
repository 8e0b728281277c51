#include "console/play_driver.h"

#include <cstdlib>

#include "console/console.h"
#include "console/files.h"
#include "console/play_verbs.h"
#include "console/ui_input.h"

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
      m_step(m_steps.begin()),
      m_turn{console, std::move(shotsFolder)} {}

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
    m_turn.sessionBefore = 1;
    return create(windowClass, "", 0, 0, {}, HWND_MESSAGE, 0) &&
           SetTimer(handle(), kTickTimer, kTickMilliseconds, nullptr) != 0;
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
    if (isBusy && verb.kind != VerbKind::wait) return false;
    if (++m_turn.tries == 1 && verb.kind == VerbKind::act)
        m_turn.logMark = m_console.log().lines(LogTab::log).size();
    const Outcome outcome = run(verb);
    if (outcome.empty()) nextStep();
    if (!outcome.empty() && (verb.kind == VerbKind::expect || isOverdue)) fail(outcome);
    return outcome.empty() && (verb.kind == VerbKind::expect || verb.kind == VerbKind::wait);
}

Outcome CPlayDriver::run(const Verb& verb) {
    try {
        m_turn.window = handle();
        m_turn.step = &*m_step;
        return verb.run(m_turn);
    } catch (const HopelessStep& step) {
        fail(step.what());
    }
}

void CPlayDriver::onReleaseKeys() {
    ui::releaseModifiers();
}

void CPlayDriver::nextStep() {
    m_step = m_turn.quits ? m_steps.end() : m_step + 1;
    m_turn.tries = 0;
    m_turn.closing = nullptr;
    m_turn.sessionBefore = m_console.session();
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
