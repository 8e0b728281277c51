#include "plugin/stay_loaded.h"

#include <windows.h>

#include "framework/window.h"

namespace mc {
namespace {

// A courier is a window of the user-interface thread that runs no code of this library. That thread
// answers it only between calls: the library is not in use there any more.
struct Leaving {
    HMODULE library;
    HWND courier;
};

void CALLBACK leave(PTP_CALLBACK_INSTANCE callback, void* context) noexcept {
    const std::unique_ptr<Leaving> leaving(static_cast<Leaving*>(context));
    SendMessageA(leaving->courier, WM_CLOSE, 0, 0);
    FreeLibraryWhenCallbackReturns(callback, leaving->library);
}

// Where there is no courier or no pool thread, the library stays.
void letGo(const void* library) noexcept {
    const HWND courier = CreateWindowExA(0, WC_STATICA, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                         GetModuleHandleA(nullptr), nullptr);
    if (courier == nullptr) return;
    auto* leaving =
        new (std::nothrow) Leaving{static_cast<HMODULE>(const_cast<void*>(library)), courier};
    if (leaving != nullptr && TrySubmitThreadpoolCallback(leave, leaving, nullptr) != 0) return;
    delete leaving;
    DestroyWindow(courier);
}

}  // namespace

std::shared_ptr<const void> stayLoaded() {
    HMODULE library = nullptr;
    if (GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           reinterpret_cast<const char*>(fw::module()), &library) == 0)
        return nullptr;
    return {library, letGo};
}

}  // namespace mc
