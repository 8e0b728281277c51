#include "tests/blind/watch.h"

#include <cstdio>
#include <string_view>
#include <utility>

#include "tests/blind/sight.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace blind {
namespace {

constexpr DWORD kDebugText = 0x40010006;  // what OutputDebugStringA raises: length, text
constexpr DWORD kHung = 3;                // exit code

}  // namespace

Watch* Watch::s_current = nullptr;

Watch::Watch() {
    s_current = this;
    m_messages = SetWindowsHookExA(WH_GETMESSAGE, onMessage, nullptr, GetCurrentThreadId());
    m_debugTexts = AddVectoredExceptionHandler(1, onDebugText);
    m_dog = std::thread([this] {
        while (!m_over) {
            Sleep(100);
            if (GetTickCount64() < m_end) continue;
            std::printf("hangs: %s\n", m_action.c_str());
            std::fflush(stdout);
            TerminateProcess(GetCurrentProcess(), kHung);
        }
    });
}

Watch::~Watch() {
    m_over = true;
    m_dog.join();
    RemoveVectoredExceptionHandler(m_debugTexts);
    if (m_sent != nullptr) UnhookWindowsHookEx(m_sent);
    UnhookWindowsHookEx(m_messages);
    s_current = nullptr;
}

void Watch::listen() {
    if (m_sent == nullptr)
        m_sent = SetWindowsHookExA(WH_CALLWNDPROC, onSent, nullptr, GetCurrentThreadId());
}

void Watch::begin(const std::string& action, int seconds) {
    m_action = action;
    if (m_sent != nullptr) UnhookWindowsHookEx(std::exchange(m_sent, nullptr));
    m_saidYes = m_excepted = false;
    m_end = GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
}

// A timer fires again as long as it was not ended, so those that were silent come now.
void Watch::letTimersExpire() {
    m_timersMayExpire = true;
    const ULONGLONG end = GetTickCount64() + 450;
    hand::waitUntil([end] { return GetTickCount64() >= end; });
    m_timersMayExpire = false;
}

LRESULT CALLBACK Watch::onMessage(int code, WPARAM wParam, LPARAM lParam) {
    auto& message = *reinterpret_cast<MSG*>(lParam);
    if (code == HC_ACTION && message.message == WM_TIMER && message.hwnd != nullptr &&
        !s_current->m_timersMayExpire && classOf(message.hwnd) != "MakerChecker.CellEditor")
        message.message = WM_NULL;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK Watch::onSent(int code, WPARAM wParam, LPARAM lParam) {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent.message == WM_COMMAND && LOWORD(sent.wParam) == IDYES &&
        classOf(sent.hwnd) == "#32770" && sent.hwnd != findPane())
        s_current->m_saidYes = true;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LONG CALLBACK Watch::onDebugText(EXCEPTION_POINTERS* info) {
    const EXCEPTION_RECORD& record = *info->ExceptionRecord;
    if (record.ExceptionCode == kDebugText) {
        const std::string_view text(reinterpret_cast<const char*>(record.ExceptionInformation[1]));
        if (text.find("exception") != std::string_view::npos) s_current->m_excepted = true;
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace blind
