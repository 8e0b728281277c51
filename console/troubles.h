// What goes wrong in the console: the user hears of it, or whoever runs a script, and the exit code
// says so.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "console/log_book.h"

namespace zek {

class Troubles {
public:
    // The log must outlive the object; `owner` is asked for the owner of message boxes.
    Troubles(LogBook& log, std::function<HWND()> owner);

    // Nobody is there to close a message box: a script's run is not held up by one.
    void setScripted(bool isScripted) { m_isScripted = isScripted; }
    bool isScripted() const { return m_isScripted; }

    void warn(const std::string& what);
    void fail(const std::string& what);  // the exit code says so too
    int exitCode() const { return m_exitCode; }

private:
    LogBook& m_log;
    std::function<HWND()> m_owner;
    bool m_isScripted = false;
    int m_exitCode = 0;
};

}  // namespace zek
