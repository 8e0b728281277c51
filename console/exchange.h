// The authorization server on the user-interface thread: requests and changes go in as calls, what
// the server has for its receivers comes out of a window message, as much of it as a short while
// allows. Then it pauses: posted messages would overtake the mouse, painting and timers.
#pragma once

#include <windows.h>

#include <string>

#include "console/model/authorization_server.h"
#include "framework/window.h"

namespace zek {

// Posted by CExchange to itself while something waits. No parameters.
inline constexpr UINT kDeliver = WM_APP + 1;

class CExchange : public fw::CWindow {
public:
    // False when its message window cannot be made.
    bool open();

    AuthorizationServer& server() { return m_server; }
    const AuthorizationServer& server() const { return m_server; }

    // Grows when the server may look different: for windows that show it.
    unsigned revision() const { return m_revision; }
    void touch() { ++m_revision; }

protected:
    const fw::MessageMap& messageMap() const override;

private:
    void onQueued();
    void onDeliver();
    void onTimer(UINT_PTR id);
    void postNext();
    void pause();

    AuthorizationServer m_server;
    unsigned m_revision = 0;
    bool m_isPosted = false;  // a kDeliver or our timer is on its way
};

}  // namespace zek
