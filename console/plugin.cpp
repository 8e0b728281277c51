#include "console/plugin.h"

#include "console/files.h"
#include "framework/hwnd.h"
#include "framework/platform.h"
#include "sdk/host_text.h"

namespace zek {
namespace {

template <class Entry>
bool bindEntry(HMODULE library, const char* name, Entry*& into) {
    into = fw::exported<Entry>(library, name);
    return into != nullptr;
}

struct Remaining {
    HMODULE library;
    std::vector<std::string> found;
};

void noteWindow(HWND window, Remaining& remaining) {
    const auto module = reinterpret_cast<HMODULE>(GetWindowLongPtrA(window, GWLP_HINSTANCE));
    if (module != remaining.library) return;
    char windowClass[64] = "";
    GetClassNameA(window, windowClass, sizeof windowClass);
    remaining.found.push_back(std::string("a window: ") + windowClass + " '" + fw::textOf(window) +
                              "'");
}

BOOL CALLBACK noteChild(HWND window, LPARAM remaining) {
    noteWindow(window, *reinterpret_cast<Remaining*>(remaining));
    return TRUE;
}

BOOL CALLBACK noteTree(HWND window, LPARAM remaining) {
    noteChild(window, remaining);
    EnumChildWindows(window, noteChild, remaining);
    return TRUE;
}

// The windows of this thread that were made by the library, message windows included.
std::vector<std::string> windowsOf(HMODULE library) {
    Remaining remaining{library, {}};
    EnumThreadWindows(GetCurrentThreadId(), noteTree, reinterpret_cast<LPARAM>(&remaining));
    HWND window = nullptr;
    while ((window = FindWindowExA(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr)
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId())
            noteWindow(window, remaining);
    return remaining.found;
}

// The window classes that the library registered and did not unregister. Every class has an atom,
// and one that is the library's own is not found for this program.
std::vector<std::string> classesOf(HMODULE library) {
    constexpr UINT_PTR kFirstAtom = 0xC000;
    constexpr UINT_PTR kLastAtom = 0xFFFF;
    std::vector<std::string> found;
    for (UINT_PTR atom = kFirstAtom; atom <= kLastAtom; ++atom) {
        const auto* name = reinterpret_cast<const char*>(atom);
        WNDCLASSEXA info{};
        info.cbSize = sizeof info;
        if (GetClassInfoExA(library, name, &info) == 0 ||
            GetClassInfoExA(GetModuleHandleA(nullptr), name, &info) != 0)
            continue;
        char text[64] = "";
        GetClipboardFormatNameA(static_cast<UINT>(atom), text, sizeof text);
        found.push_back(std::string("a window class: ") + text);
    }
    return found;
}

}  // namespace

std::string Plugin::load(const std::string& file) {
    m_file = file;
    m_library = LoadLibraryW(pathOf(file).c_str());
    if (m_library == nullptr)
        return file + " cannot be loaded (error " + std::to_string(GetLastError()) + ")";
    if (!bindEntries()) {
        FreeLibrary(m_library);
        m_library = nullptr;
        return file + " is not a plug-in of this console: an entry point is missing";
    }
    identify();
    return {};
}

bool Plugin::bindEntries() {
    return bindEntry(m_library, "GetVoskPluginInfo", m_info) &&
           bindEntry(m_library, "GetOptionalVoskPluginInfo", m_optionalInfo) &&
           bindEntry(m_library, "InitVoskPlugin", m_init) &&
           bindEntry(m_library, "PluginProcessHotKey", m_hotKey) &&
           bindEntry(m_library, "HandlePublishMsg", m_publish) &&
           bindEntry(m_library, "ExitVoskPlugin", m_exit);
}

void Plugin::identify() {
    HostString name{nullptr};
    HostString version{nullptr};
    HostStringArray information{nullptr, 0};
    unsigned id = 0;
    unsigned flags = 0;
    m_info(name, version, "Maker Checker", id, flags);
    m_optionalInfo(nullptr, information, nullptr, nullptr);
    sdk::release(information);
    m_description =
        sdk::take(name) + " " + sdk::take(version) + " (plug-in " + std::to_string(id) + ")";
}

void Plugin::start() {
    if (isLoaded()) m_init(m_library, "ZEK", 0, HostString{nullptr});
}

void Plugin::hotKey() {
    if (isLoaded()) m_hotKey(m_library, 0, 0, nullptr);
}

void Plugin::publish(void* message) {
    if (isLoaded()) m_publish(message);
}

std::vector<std::string> Plugin::unload() {
    if (!isLoaded()) return {};
    m_exit();
    const HMODULE library = m_library;
    m_library = nullptr;
    std::vector<std::string> left = windowsOf(library);
    if (!left.empty()) return left;
    left = classesOf(library);
    FreeLibrary(library);
    if (GetModuleHandleW(pathOf(m_file).c_str()) != nullptr)
        left.emplace_back("its library loaded");
    return left;
}

}  // namespace zek
