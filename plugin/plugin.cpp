// The exported entry points of the plug-in (sdk/plugin_exports.h).
#include <windows.h>

#include <memory>

#include "framework/window.h"
#include "plugin/glyphs.h"
#include "plugin/host_services.h"
#include "plugin/plugin_list_services.h"
#include "sdk/docking.h"
#include "sdk/host_text.h"
#include "sdk/plugin_exports.h"
#include "workbench/maker_checker.h"

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
    try {
        return body();
    } catch (...) {
        OutputDebugStringA("MakerChecker: an exception ended at an entry point\n");
        return decltype(body())();
    }
}

BOOL CALLBACK takeMainFrame(HWND window, LPARAM found) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
    const auto exStyle = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_EXSTYLE));
    if (GetWindow(window, GW_OWNER) != nullptr || (style & WS_CAPTION) != WS_CAPTION ||
        (exStyle & WS_EX_TOOLWINDOW) != 0)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// The host's top-level, unowned frame window on this thread; null when there is none yet.
HWND mainFrame() {
    HWND frame = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), takeMainFrame, reinterpret_cast<LPARAM>(&frame));
    return frame;
}

void showIncompatible(Plugin& self) {
    self.host.showMessage("Exe is not compatible with ZEK");
}

bool paneExists(const Plugin& self) {
    return self.workbench != nullptr && self.workbench->handle() != nullptr;
}

void startUp(Plugin& self) {
    self.glyphs = makeGlyphs();
    if (!self.host.askPeerData() || !self.host.askPrivilege()) return showIncompatible(self);
    const HWND frame = mainFrame();
    if (frame == nullptr) return;
    self.host.findTabbedLog();
    if (self.workbench == nullptr)
        self.workbench = std::make_unique<CMakerChecker>(self.host, self.lists);
    CMakerChecker& pane = *self.workbench;
    if (pane.handle() == nullptr) {
        if (!pane.createPane(frame)) return;
        pane.enableDocking(kDockAnySide);
        pane.dock();
        pane.show(false);
    } else {
        pane.enableDocking(kDockAnySide);
        pane.dock();
        pane.show(true);
        pane.layOutAgain();
    }
}

void openWorkbench(Plugin& self) {
    if (!self.host.checkPeerData()) return showIncompatible(self);
    self.host.findTabbedLog();
    if (paneExists(self)) return self.workbench->bringToView();
    const HWND frame = mainFrame();
    if (frame == nullptr) return;
    self.workbench = std::make_unique<CMakerChecker>(self.host, self.lists);
    CMakerChecker& pane = *self.workbench;
    if (!pane.createPane(frame)) return;
    pane.enableDocking(kDockAnySide);
    pane.show(true);
    pane.dock();
    if (Workbench* workbench = pane.workbench()) workbench->subscribe();
}

int shutDown() {
    if (thePlugin == nullptr) return 0;
    int destroyed = 0;
    if (paneExists(*thePlugin)) {
        if (Workbench* workbench = thePlugin->workbench->workbench()) workbench->unsubscribe();
        destroyed = thePlugin->workbench->destroy() ? 1 : 0;
    }
    delete std::exchange(thePlugin, nullptr);
    fw::unregisterWindowClasses();
    return destroyed;
}

}  // namespace

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
