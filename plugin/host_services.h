// The host's services: looked up by name among the exports of the host's executable when needed.
#pragma once

#include <string>

#include "link/model/host.h"
#include "plugin/tone.h"

namespace mc {

class CHostServices final : public Host {
public:
    // Ask the host who is logged in and keep the answer. False when the host lacks the service.
    bool askPeerData();
    bool askPrivilege();

    // Whether the host has the service that askPeerData() needs; asks it, but keeps nothing.
    bool checkPeerData();

    // Looks up the tabbed log again. Until then, and where the host has none, log lines go nowhere.
    void findTabbedLog();

    // Whether the host lets the user use a function; false when it cannot be asked.
    bool mayUseFunction(int functionCode);

    const std::string& peerBrokerId() const override { return m_peerBrokerId; }
    const std::string& peerUserId() const override { return m_peerUserId; }
    int privilegeLevel() const override { return m_privilegeLevel; }

    PuGetFindMenuItemInRoles* menuItemService() override;
    PuGetMakerCheckerModifyRight* modifyRightService() override;
    GetQuonRxControlService* receiveControlService() override;

    // All four do nothing in a call that was under way when the plug-in, or its pane, ended.
    void reportToUser(std::string_view text, int level) override;
    void showMessage(const std::string& text) override;
    bool confirm(const std::string& question) override;
    void beep() override;

private:
    std::string m_peerBrokerId;
    std::string m_peerSecond;  // kept, not read
    std::string m_peerUserId;
    std::string m_privilegeText;
    int m_privilegeLevel = -1;  // no level until the host was asked: no subscription
    PuAddToTabbedLog* m_tabbedLog = nullptr;
    Tone m_tone{playChangeTone};
};

}  // namespace mc
