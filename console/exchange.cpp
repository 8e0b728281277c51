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
    m_server.connections().setQueuedNotice([this] { onQueued(); });
    return create(windowClass, "", 0, 0, {}, HWND_MESSAGE, 0);
}

void CExchange::onQueued() {
    touch();
    if (!m_isPosted) postNext();
}

void CExchange::postNext() {
    m_isPosted = PostMessageA(handle(), kDeliver, 0, 0) != 0;
    if (!m_isPosted) pause();
}

void CExchange::pause() {
    m_isPosted = SetTimer(handle(), kPauseTimer, USER_TIMER_MINIMUM, nullptr) != 0;
}

// A receiver may run a message loop of its own, in which the next deliveries must come through: so
// the next run is ordered before this one begins.
void CExchange::onDeliver() {
    m_isPosted = false;
    if (m_server.connections().pendingDeliveries() > 1) pause();
    const ULONGLONG end = GetTickCount64() + kRunMilliseconds;
    while (m_server.connections().deliverNext() && GetTickCount64() < end) continue;
}

void CExchange::onTimer(UINT_PTR) {
    KillTimer(handle(), kPauseTimer);
    postNext();
}

}  // namespace zek
