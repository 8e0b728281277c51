#include "plugin/host_services.h"

#include <windows.h>

#include <new>

#include "framework/dialog.h"
#include "framework/model/calls.h"
#include "framework/platform.h"
#include "sdk/host_text.h"

namespace mc {
namespace {

template <class Service>
Service* hostService(const char* name) {
    return fw::exported<Service>(GetModuleHandleA(nullptr), name);
}

}  // namespace

bool CHostServices::askPeerData() {
    auto* ask = hostService<PuGetPeerData>(kPuGetPeerData);
    if (ask == nullptr) return false;
    HostString broker{nullptr}, second{nullptr}, user{nullptr};
    ask(broker, second, user);
    m_peerBrokerId = sdk::take(broker);
    m_peerSecond = sdk::take(second);
    m_peerUserId = sdk::take(user);
    return true;
}

bool CHostServices::checkPeerData() {
    auto* ask = hostService<PuGetPeerData>(kPuGetPeerData);
    if (ask == nullptr) return false;
    HostString discarded[3]{};
    ask(discarded[0], discarded[1], discarded[2]);
    for (HostString& each : discarded) sdk::release(each);
    return true;
}

bool CHostServices::askPrivilege() {
    auto* ask = hostService<PuGetUserPrivilige>(kPuGetUserPrivilige);
    if (ask == nullptr) return false;
    HostString text{nullptr};
    ask(text, m_privilegeLevel);
    m_privilegeText = sdk::take(text);
    return true;
}

void CHostServices::findTabbedLog() {
    m_tabbedLog = hostService<PuAddToTabbedLog>(kPuAddToTabbedLog);
}

PuGetFindMenuItemInRoles* CHostServices::menuItemService() {
    return hostService<PuGetFindMenuItemInRoles>(kPuGetFindMenuItemInRoles);
}

PuGetMakerCheckerModifyRight* CHostServices::modifyRightService() {
    return hostService<PuGetMakerCheckerModifyRight>(kPuGetMakerCheckerModifyRight);
}

GetQuonRxControlService* CHostServices::receiveControlService() {
    return hostService<GetQuonRxControlService>(kGetQuonRxControl);
}

bool CHostServices::mayUseFunction(int functionCode) {
    auto* restricted = hostService<PuIsFunctionRestricted>(kPuIsFunctionRestricted);
    return restricted != nullptr && restricted(functionCode) == 0;
}

void CHostServices::reportToUser(std::string_view text, int level) try {
    std::string line;
    if (level == kReportError) line = "Maker Checker Zek Error : ";
    if (level == kReportMessage) line = "Maker Checker Zek Message : ";
    if (!line.empty()) line += text;
    if (level == kReportError) showMessage(line);
    if (m_tabbedLog != nullptr && !fw::callEnded()) m_tabbedLog(sdk::makeHostString(line));
} catch (const std::bad_alloc&) {
}

bool CHostServices::confirm(const std::string& question) {
    return fw::askYesNo(question);
}

void CHostServices::beep() {
    if (!fw::callEnded()) m_tone.request();
}

void CHostServices::showMessage(const std::string& text) {
    fw::showMessageBox(text);
}

}  // namespace mc
