#include "plugin/tone.h"

#include "framework/window.h"

namespace mc {

Tone::Tone(void (*play)()) : m_play(play) {
    TP_CALLBACK_ENVIRON environment;
    InitializeThreadpoolEnvironment(&environment);
    SetThreadpoolCallbackLibrary(&environment, fw::module());
    m_work = CreateThreadpoolWork(sound, this, &environment);
}

Tone::~Tone() {
    if (m_work == nullptr) return;
    WaitForThreadpoolWorkCallbacks(m_work, FALSE);
    CloseThreadpoolWork(m_work);
}

void Tone::request() noexcept {
    if (m_work != nullptr && !m_sounding.exchange(true)) SubmitThreadpoolWork(m_work);
}

void CALLBACK Tone::sound(PTP_CALLBACK_INSTANCE, void* tone, PTP_WORK) noexcept {
    auto& self = *static_cast<Tone*>(tone);
    self.m_play();
    self.m_sounding = false;
}

void playChangeTone() {
    Beep(500, 100);
}

}  // namespace mc
