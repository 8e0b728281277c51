// What a blind hand overhears from the platform while it acts, and what must not depend on time.
#pragma once

#include <windows.h>

#include <atomic>
#include <string>
#include <thread>

namespace blind {

// One at a time.
class Watch {
public:
    Watch();
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    // Timers of windows stay silent, or the filter's pause would end whenever the machine is slow
    // enough; but for those of editors, which are waited for. This lets one of each expire.
    void letTimersExpire();

    // Listens to what is sent, until the next begin(). It is slow.
    void listen();

    // A message box, while this listened, was answered with Yes; an exception's text was written
    // for a debugger. Since the last begin().
    bool saidYes() const { return m_saidYes; }
    bool excepted() const { return m_excepted; }

    // An action begins; the process ends when the next one does not begin within `seconds`.
    void begin(const std::string& action, int seconds = 30);

private:
    static LRESULT CALLBACK onMessage(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK onSent(int code, WPARAM wParam, LPARAM lParam);
    static LONG CALLBACK onDebugText(EXCEPTION_POINTERS* info);

    static Watch* s_current;
    HHOOK m_messages = nullptr, m_sent = nullptr;
    void* m_debugTexts;
    std::string m_action;
    bool m_timersMayExpire = false;
    bool m_saidYes = false;
    bool m_excepted = false;
    std::atomic<ULONGLONG> m_end{~0ULL};
    std::atomic<bool> m_over{false};
    std::thread m_dog;
};

}  // namespace blind
