#include "framework/activation.h"

#include "framework/window.h"

namespace fw {
namespace {

// ISOLATIONAWARE_MANIFEST_RESOURCE_ID, whose definition is a narrow text.
constexpr WORD kManifest = 2;

HANDLE context = nullptr;  // null: not asked for yet; INVALID_HANDLE_VALUE: there is none

HANDLE makeContext() noexcept {
    wchar_t file[MAX_PATH]{};
    GetModuleFileNameW(module(), file, MAX_PATH);
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.lpSource = file;
    wanted.hModule = module();
    wanted.lpResourceName = MAKEINTRESOURCEW(kManifest);
    return CreateActCtxW(&wanted);
}

}  // namespace

ActivationScope::ActivationScope() noexcept {
    if (context == nullptr) context = makeContext();
    if (context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &m_cookie) == 0) m_cookie = 0;
}

// What was made may have left a context of its own active, which is no reason to fail here.
ActivationScope::~ActivationScope() {
    if (m_cookie != 0) DeactivateActCtx(DEACTIVATE_ACTCTX_FLAG_FORCE_EARLY_DEACTIVATION, m_cookie);
}

void releaseActivationContext() noexcept {
    if (context != nullptr && context != INVALID_HANDLE_VALUE) ReleaseActCtx(context);
    context = nullptr;
}

}  // namespace fw
