#include "console/exchange.h"

namespace zek {
namespace {

constexpr ULONGLONG kRunMilliseconds = 40;
constexpr UINT_PTR kPauseTimer = 1;

}  // namespace

const fw::MessageMap& CExchange::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<kDeliver, &CExchange::onDeliver>(),
        fw::on<WM_TIMER, &CExchange::onTimer>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

bool CExchange::open() {
    static const fw::WindowClass windowClass{"Zek.Exchange", 0, IDC_ARROW, -1};
    m_server.setQueuedNotice([this] { onQueued(); });
    return create(windowClass, "", 0, 0, {}, HWND_MESSAGE, 0);
}

void CExchange::onQueued() {
    touch();
    if (m_isPosted) return;
    m_runningSince = GetTickCount64();
    postNext();
}

void CExchange::postNext() {
    m_isPosted = PostMessageA(handle(), kDeliver, 0, 0) != 0;
    if (!m_isPosted) m_isPosted = SetTimer(handle(), kPauseTimer, USER_TIMER_MINIMUM, nullptr) != 0;
}

void CExchange::onDeliver() {
    // A receiver may run a message loop of its own, in which the next delivery must come through.
    m_isPosted = false;
    if (m_server.pendingDeliveries() > 1) {
        if (GetTickCount64() - m_runningSince < kRunMilliseconds)
            postNext();
        else
            m_isPosted = SetTimer(handle(), kPauseTimer, USER_TIMER_MINIMUM, nullptr) != 0;
    }
    m_server.deliverNext();
}

void CExchange::onTimer() {
    KillTimer(handle(), kPauseTimer);
    m_runningSince = GetTickCount64();
    postNext();
}

}  // namespace zek
