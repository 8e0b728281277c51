// What the link, the intake and the workbench need of the host and of the plug-in around them.
//
// plugin/ implements it over the host's exported services; the native tests hand in their own.
// Thread: the user-interface thread. A service that the host lacks is null here, and a right that
// cannot be asked is not held.
#pragma once

#include <string>
#include <string_view>

#include "sdk/host_services.h"

namespace mc {

// How reportToUser reports.
inline constexpr int kReportError = 1;    // message box and tabbed log
inline constexpr int kReportMessage = 2;  // tabbed log only

class Host {
public:
    // Who is logged in, as asked at start-up.
    virtual const std::string& peerBrokerId() const = 0;
    virtual const std::string& peerUserId() const = 0;
    virtual int privilegeLevel() const = 0;

    // The services that are looked up each time; null when the host lacks them.
    virtual PuGetFindMenuItemInRoles* menuItemService() = 0;
    virtual PuGetMakerCheckerModifyRight* modifyRightService() = 0;
    virtual GetQuonRxControlService* receiveControlService() = 0;

    // Reports a line to the user, by level: above. Any other level logs an empty line. Without
    // memory for the line nothing is said; it never throws, as what it reports has happened.
    virtual void reportToUser(std::string_view text, int level) = 0;

    // Shows `text` as it is in a message box. Messages may come in while it is open.
    virtual void showMessage(const std::string& text) = 0;

    // Asks the user a question that "No" answers by default. Messages may come in while it is open.
    virtual bool confirm(const std::string& question) = 0;

    // Asks for the tone that announces a change. Returns at once.
    virtual void beep() = 0;

protected:
    ~Host() = default;
};

}  // namespace mc
