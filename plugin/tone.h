// Tone: the beep that announces a change, played without making anyone wait.
#pragma once

#include <windows.h>

#include <atomic>

namespace mc {

// A request while the tone sounds is merged with it. The tone plays on a thread of the system's
// pool, which keeps the module loaded meanwhile.
class Tone {
public:
    // `play` sounds the tone and returns when it is over; it runs on a pool thread and must not
    // throw.
    explicit Tone(void (*play)());
    ~Tone();  // waits for a tone that sounds
    Tone(const Tone&) = delete;
    Tone& operator=(const Tone&) = delete;

    // Returns at once. Where the pool has no work to give there is no tone.
    void request() noexcept;

private:
    static void CALLBACK sound(PTP_CALLBACK_INSTANCE, void* tone, PTP_WORK) noexcept;

    void (*m_play)();
    PTP_WORK m_work;
    std::atomic<bool> m_sounding = false;
};

// 500 Hz for 100 ms.
void playChangeTone();

}  // namespace mc
