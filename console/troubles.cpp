#include "console/troubles.h"

#include <utility>

#include "console/files.h"

namespace zek {

Troubles::Troubles(LogBook& log, std::function<HWND()> owner)
    : m_log(log), m_owner(std::move(owner)) {}

void Troubles::fail(const std::string& what) {
    m_exitCode = 1;
    warn(what);
}

void Troubles::warn(const std::string& what) {
    printError(what);
    m_log.add(LogTab::server, what);
    if (!m_isScripted) MessageBoxA(m_owner(), what.c_str(), "ZEK", MB_OK | MB_ICONWARNING);
}

}  // namespace zek
