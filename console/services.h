// The services that zek.exe exports to its plug-ins (sdk/host_services.h).
#pragma once

#include "console/log_book.h"
#include "console/model/login_profile.h"
#include "console/receive_control.h"

namespace zek {

// What the services answer from. The exports are plain functions, so they look here.
struct ServiceSources {
    const LoginProfile* profile = nullptr;
    LogBook* log = nullptr;
    ReceiveControls* controls = nullptr;
};

// From now on the services answer from `sources`, which must live on. Before the first call they
// answer nothing: no user, no right, no control.
void setServiceSources(const ServiceSources& sources);

}  // namespace zek
