// The plug-in as the console holds it: the library beside the program and its entry points.
//
// Order of life: load(), start(), hotKey() and publish() at will, then unload().
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "sdk/plugin_exports.h"

namespace zek {

class Plugin {
public:
    Plugin() = default;
    ~Plugin() { unload(); }
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    // Loads the library and asks who it is. What is wrong with it, or an empty text.
    std::string load(const std::string& file);
    bool isLoaded() const { return m_library != nullptr; }
    const std::string& description() const { return m_description; }

    void start();
    void hotKey();
    void publish(void* message);

    // Shuts the plug-in down and lets the library go. Returns what it left: its windows ("a window:
    // class 'caption'"), after which the library stays, because they would run its code; its window
    // classes; and the library itself, when something else holds it.
    std::vector<std::string> unload();

private:
    bool bindEntries();
    void identify();

    HMODULE m_library = nullptr;
    std::string m_file;
    std::string m_description;
    GetVoskPluginInfoEntry* m_info = nullptr;
    GetOptionalVoskPluginInfoEntry* m_optionalInfo = nullptr;
    InitVoskPluginEntry* m_init = nullptr;
    PluginProcessHotKeyEntry* m_hotKey = nullptr;
    HandlePublishMsgEntry* m_publish = nullptr;
    ExitVoskPluginEntry* m_exit = nullptr;
};

}  // namespace zek
