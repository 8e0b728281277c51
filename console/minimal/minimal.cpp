// The least host that a plug-in runs in: a window, a message loop, the services. It includes the
// headers of sdk/ only, knows nothing of docking (the pane floats) and has no manifest.
//
//   minimal           opens the window; F12 is the hot key
//   minimal --smoke   presses F12, looks for the pane, closes; ends with 0 when it was there, with
//                     new controls
//
// Built with nothing but a compiler: g++ -std=c++20 -I. console/minimal/minimal.cpp -o minimal.exe
#include <windows.h>

#include <string>

#include "sdk/host_services.h"
#include "sdk/host_text.h"
#include "sdk/plugin_exports.h"

namespace {

constexpr char kClass[] = "Minimal.Frame";
constexpr UINT kHotKey = VK_F12;

// ---- The connection to the server ----

// A host has its own messaging here. This one has no server: nothing can be sent.
class Control final : public CQuonRxControl {
public:
    int send(int&, void*, int, void**) override { return 0; }
    int subscribe(int& id, const int*, const char* const*, int, CQuonRxControl*, int, int, int,
                  void**) override {
        return id = 1;
    }
    int unsubscribe(int) override { return 1; }
};

// ---- The plug-in ----

struct Plugin {
    HMODULE library;
    InitVoskPluginEntry* init;
    PluginProcessHotKeyEntry* hotKey;
    ExitVoskPluginEntry* exit;
};
Plugin plugin{};

template <class Entry>
bool bind(const char* name, Entry*& into) {
    into = reinterpret_cast<Entry*>(reinterpret_cast<void*>(GetProcAddress(plugin.library, name)));
    return into != nullptr;
}

bool loadPlugin() {
    plugin.library = LoadLibraryA("MakerChecker.dll");
    return plugin.library != nullptr && bind("InitVoskPlugin", plugin.init) &&
           bind("PluginProcessHotKey", plugin.hotKey) && bind("ExitVoskPlugin", plugin.exit);
}

// ---- The window and its loop ----

LRESULT CALLBACK frameProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        plugin.exit();  // while the frame is there; from here on no receiver is called
        PostQuitMessage(0);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND makeFrame() {
    WNDCLASSA frame{};
    frame.lpfnWndProc = frameProc;
    frame.hInstance = GetModuleHandleA(nullptr);
    frame.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    frame.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    frame.lpszClassName = kClass;
    RegisterClassA(&frame);
    return CreateWindowExA(0, kClass, "Minimal host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 60, 900,
                           600, nullptr, nullptr, frame.hInstance, nullptr);
}

// The host's own keys; the plug-in takes those of its pane by itself.
bool isHotKey(const MSG& message) {
    return message.message == WM_KEYDOWN && message.wParam == kHotKey;
}

int runLoop() {
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (isHotKey(message)) {
            plugin.hotKey(nullptr, 0, 0, nullptr);
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

// ---- The smoke test ----

// The pane floats in a window of the thread that the frame owns.
BOOL CALLBACK findPane(HWND window, LPARAM found) {
    const HWND pane = FindWindowExA(window, nullptr, nullptr, "Maker Checker");
    if (pane == nullptr || IsWindowVisible(pane) == 0) return TRUE;
    *reinterpret_cast<bool*>(found) = true;
    return FALSE;
}

bool paneIsThere() {
    bool found = false;
    EnumThreadWindows(GetCurrentThreadId(), findPane, reinterpret_cast<LPARAM>(&found));
    return found;
}

// Whether a list's class comes from version 6 of the common controls, whose folder is not the
// system's: this program has no manifest, so the plug-in's own asked for it.
BOOL CALLBACK findNewList(HWND window, LPARAM found) {
    wchar_t name[32] = L"", file[MAX_PATH] = L"";
    GetClassNameW(window, name, 32);
    const auto procedure = GetClassLongPtrW(window, GCLP_WNDPROC);
    HMODULE library = nullptr;
    if (std::wstring(name) != L"SysListView32" ||
        GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCWSTR>(procedure), &library) == 0)
        return TRUE;
    GetModuleFileNameW(library, file, MAX_PATH);
    *reinterpret_cast<bool*>(found) =
        std::wstring(file).find(L".common-controls_") != std::wstring::npos;
    return FALSE;
}

BOOL CALLBACK findNewListIn(HWND window, LPARAM found) {
    EnumChildWindows(window, findNewList, found);
    return TRUE;
}

bool paneSeen = false, newControlsSeen = false;

void CALLBACK lookAndClose(HWND frame, UINT, UINT_PTR, DWORD) {
    paneSeen = paneIsThere();
    EnumThreadWindows(GetCurrentThreadId(), findNewListIn,
                      reinterpret_cast<LPARAM>(&newControlsSeen));
    DestroyWindow(frame);
}

// A timer comes after the messages in the queue, so the hot key has worked by then.
int runSmoke(HWND frame) {
    PostMessageA(frame, WM_KEYDOWN, kHotKey, 0);
    SetTimer(frame, 1, 500, lookAndClose);
    const int code = runLoop();
    if (!newControlsSeen) return 4;
    return paneSeen && !paneIsThere() ? code : 1;
}

}  // namespace

// ---- The services, exported by the program ----

#define HOST_EXPORT extern "C" __declspec(dllexport)

HOST_EXPORT void VOSK_CALL pu_get_peer_data(HostString& broker, HostString&, HostString& user) {
    sdk::assign(broker, "BRK1");
    sdk::assign(user, "CHECKER1");
}
HOST_EXPORT void VOSK_CALL pu_get_user_privilige(HostString& text, int& level) {
    sdk::assign(text, "checker");
    level = 0;
}
HOST_EXPORT void VOSK_CALL pu_add_to_tabbed_log(HostString line) {
    OutputDebugStringA((sdk::take(line) + "\n").c_str());
}
HOST_EXPORT int VOSK_CALL pu_get_find_menu_item_in_roles(int) {
    return 1;  // every right
}
HOST_EXPORT int VOSK_CALL pu_get_maker_checker_Modify_Right() {
    return 1;
}
HOST_EXPORT int VOSK_CALL pu_is_function_restricted(int) {
    return 0;
}
HOST_EXPORT CQuonRxControl* VOSK_CALL GetQuonRxControl(int, CQuonRxNotifierBase* receiver,
                                                       CQuonRxControl* release) {
    if (receiver != nullptr) return new Control;
    delete static_cast<Control*>(release);
    return nullptr;
}

int main(int count, char** arguments) {
    if (!loadPlugin()) return 2;
    plugin.init(plugin.library, "minimal", 0, HostString{nullptr});  // before the frame
    const HWND frame = makeFrame();
    if (frame == nullptr) return 3;
    const bool smoke = count > 1 && std::string(arguments[1]) == "--smoke";
    const int code = smoke ? runSmoke(frame) : runLoop();
    FreeLibrary(plugin.library);
    return code;
}
