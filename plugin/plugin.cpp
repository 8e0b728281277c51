// The exported entry points of the plug-in (sdk/plugin_exports.h).
#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <string_view>

#include "framework/activation.h"
#include "framework/dialog.h"
#include "framework/hwnd.h"
#include "framework/model/calls.h"
#include "framework/window.h"
#include "plugin/glyphs.h"
#include "plugin/host_services.h"
#include "plugin/plugin_list_services.h"
#include "plugin/stay_loaded.h"
#include "sdk/docking.h"
#include "sdk/host_text.h"
#include "sdk/plugin_exports.h"
#include "workbench/maker_checker.h"

namespace mc {
namespace {

// The plug-in's state, from the first entry point that needs it until ExitVoskPlugin. It has no
// destructor at unload: a host that never called ExitVoskPlugin gets no window calls from there.
struct Plugin {
    CHostServices host;
    fw::ImageList glyphs;
    CPluginListServices lists{host, glyphs};
    std::unique_ptr<CMakerChecker> workbench;
};
Plugin* thePlugin = nullptr;

Plugin& plugin() {
    if (thePlugin == nullptr) thePlugin = new Plugin;
    return *thePlugin;
}

// Runs an entry point's body; no exception crosses the border.
template <class Body>
auto guarded(Body body) noexcept -> decltype(body()) {
    const fw::Call call;
    try {
        return body();
    } catch (...) {
        OutputDebugStringA("MakerChecker: an exception ended at an entry point\n");
        return decltype(body())();
    }
}

// A host's login dialog and splash window come and go beside its frame.
bool isMainFrame(HWND window) {
    constexpr DWORD kFrameStyle = WS_CAPTION | WS_THICKFRAME | WS_VISIBLE;
    const auto style = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
    const auto exStyle = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_EXSTYLE));
    return (style & kFrameStyle) == kFrameStyle && (exStyle & WS_EX_TOOLWINDOW) == 0 &&
           GetWindow(window, GW_OWNER) == nullptr && !fw::isDialog(window);
}

BOOL CALLBACK takeMainFrame(HWND window, LPARAM found) {
    if (!isMainFrame(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// The host's frame window on this thread; null when there is none yet.
HWND mainFrame() {
    HWND frame = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), takeMainFrame, reinterpret_cast<LPARAM>(&frame));
    return frame;
}

void showIncompatible(Plugin& self) {
    fw::setModalHome(mainFrame());
    self.host.showMessage("Exe is not compatible with ZEK");
}

bool paneExists(const Plugin& self) {
    return self.workbench != nullptr && self.workbench->handle() != nullptr;
}

// A new pane in the frame, instead of one without a window; null when it cannot be made.
CMakerChecker* makePane(Plugin& self, HWND frame) {
    fw::retire(std::shared_ptr<CMakerChecker>(std::move(self.workbench)));
    if (!self.glyphs) self.glyphs = makeGlyphs();
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_DATE_CLASSES};
    InitCommonControlsEx(&controls);
    self.workbench = std::make_unique<CMakerChecker>(self.host, self.lists);
    CMakerChecker& pane = *self.workbench;
    if (!pane.createPane(frame)) return nullptr;
    pane.docking().allow(kDockAnySide);
    return &pane;
}

// The plug-in may end behind each message box, and `self` is retired then.
void startUp(Plugin& self) {
    if (!paneExists(self)) self.glyphs = makeGlyphs();
    if (!self.host.askPeerData() || !self.host.askPrivilege()) return showIncompatible(self);
    const HWND frame = mainFrame();
    if (frame == nullptr) return;
    self.host.findTabbedLog();
    if (paneExists(self)) {
        CMakerChecker& pane = *self.workbench;
        pane.docking().allow(kDockAnySide);
        pane.docking().dock();
        pane.show(true);
        pane.layOutAgain();
    } else if (CMakerChecker* pane = makePane(self, frame)) {
        pane->docking().dock();
        pane->show(false);
    }
}

void openWorkbench(Plugin& self) {
    if (!self.host.checkPeerData()) return showIncompatible(self);
    self.host.findTabbedLog();
    if (paneExists(self)) return self.workbench->show(true);
    const HWND frame = mainFrame();
    if (frame == nullptr) return;
    CMakerChecker* const pane = makePane(self, frame);
    if (pane == nullptr) return;
    pane->show(true);
    pane->docking().dock();
    if (Workbench* workbench = pane->workbench()) workbench->subscribe();
}

// The module leaves nothing behind of what its windows were made with.
void endModule() noexcept {
    fw::unregisterWindowClasses();
    fw::releaseActivationContext();
}

// What a call that is under way may still be using: the plug-in's objects, and its code.
void retire(std::unique_ptr<Plugin> self) {
    fw::retire(std::shared_ptr<Plugin>(self.release(), [](Plugin* gone) {
        delete gone;
        if (thePlugin == nullptr) endModule();
    }));
    if (fw::callsUnderWay() > 1) fw::retire(stayLoaded());
}

int shutDown() {
    fw::endWindows();
    std::unique_ptr<Plugin> self(std::exchange(thePlugin, nullptr));
    if (self == nullptr) return 0;
    int destroyed = 0;
    if (paneExists(*self)) {
        if (Workbench* workbench = self->workbench->workbench()) workbench->unsubscribe();
        destroyed = self->workbench->destroy() ? 1 : 0;
    }
    retire(std::move(self));
    return destroyed;
}

}  // namespace

static_assert(std::string_view(kVoskPluginVersion) == MC_VERSION,
              "hosts are given the version of the binary");

#define VOSK_EXPORT extern "C" __declspec(dllexport)

VOSK_EXPORT int GetVoskPluginInfo(HostString& name, HostString& version, const char* hostName,
                                  unsigned& pluginId, unsigned& flags) {
    sdk::assign(name, hostName != nullptr ? hostName : "");
    sdk::assign(version, kVoskPluginVersion);
    pluginId = kVoskPluginId;
    flags = kVoskPluginFlags;
    return 1;
}

VOSK_EXPORT void GetOptionalVoskPluginInfo(void*, HostStringArray& information, void*, void*) {
    sdk::release(information);
}

VOSK_EXPORT void InitVoskPlugin(void*, const char*, unsigned, HostString owned) {
    guarded([] { startUp(plugin()); });
    sdk::release(owned);
}

VOSK_EXPORT void PluginProcessHotKey(void*, unsigned, unsigned, void*) {
    guarded([] { openWorkbench(plugin()); });
}

VOSK_EXPORT int ProcessVoskPluginMsg(void*) {
    return 0;
}

VOSK_EXPORT void HandlePublishMsg(void* message) {
    guarded([message] {
        if (thePlugin == nullptr || thePlugin->workbench == nullptr) return;
        if (Workbench* workbench = thePlugin->workbench->workbench())
            workbench->handlePublished(message);
    });
}

VOSK_EXPORT int ExitVoskPlugin() {
    return guarded([] { return shutDown(); });
}

}  // namespace mc
