#include "console/services.h"

#include <algorithm>

#include "sdk/host_services.h"
#include "sdk/host_text.h"

#define ZEK_EXPORT extern "C" __declspec(dllexport)

namespace zek {
namespace {

ServiceSources s_sources;

// Runs a service; `failed` when it throws or before there is anything to answer from.
template <class Result, class Service>
Result answered(Result failed, Service service) noexcept {
    if (s_sources.profile == nullptr) return failed;
    try {
        return service(*s_sources.profile);
    } catch (...) {
        return failed;
    }
}

bool holds(const std::vector<int>& numbers, int number) {
    return std::ranges::find(numbers, number) != numbers.end();
}

}  // namespace

void setServiceSources(const ServiceSources& sources) {
    s_sources = sources;
}

}  // namespace zek

ZEK_EXPORT void pu_get_peer_data(HostString& brokerId, HostString& second, HostString& userId) {
    zek::answered(0, [&](const zek::LoginProfile& profile) {
        sdk::assign(brokerId, profile.broker);
        sdk::assign(second, profile.second);
        sdk::assign(userId, profile.user);
        return 0;
    });
}

ZEK_EXPORT void pu_get_user_privilige(HostString& text, int& level) {
    zek::answered(0, [&](const zek::LoginProfile& profile) {
        sdk::assign(text, profile.privilege);
        level = profile.level;
        return 0;
    });
}

ZEK_EXPORT void pu_add_to_tabbed_log(HostString line) {
    zek::answered(0, [&](const zek::LoginProfile&) {
        zek::s_sources.log->add(zek::LogTab::log, std::string(sdk::view(line)));
        return 0;
    });
    sdk::release(line);
}

ZEK_EXPORT int pu_get_find_menu_item_in_roles(int menuItem) {
    return zek::answered(0, [&](const zek::LoginProfile& profile) {
        return zek::holds(profile.roles, menuItem) ? 1 : 0;
    });
}

ZEK_EXPORT int pu_get_maker_checker_Modify_Right() {
    return zek::answered(
        0, [](const zek::LoginProfile& profile) { return profile.modifyRight ? 1 : 0; });
}

ZEK_EXPORT CQuonRxControl* GetQuonRxControl(int kind, CQuonRxNotifierBase* receiver,
                                            CQuonRxControl* release) {
    CQuonRxControl* const none = nullptr;
    return zek::answered(none, [&](const zek::LoginProfile&) {
        if (receiver != nullptr) return zek::s_sources.controls->make(kind, receiver);
        zek::s_sources.controls->release(release);
        return none;
    });
}

ZEK_EXPORT int pu_is_function_restricted(int functionCode) {
    return zek::answered(1, [&](const zek::LoginProfile& profile) {
        return zek::holds(profile.restricted, functionCode) ? 1 : 0;
    });
}
