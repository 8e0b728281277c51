// The test executable is a host: it exports the services of sdk/host_services.h, has a main frame
// that docks, and loads the real MakerChecker.dll. All that a Windows test needs comes with this.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "framework/docking_site.h"
#include "framework/hwnd.h"
#include "framework/window.h"
#include "res/resource_ids.h"
#include "sdk/plugin_exports.h"
#include "sdk/receive_control.h"
#include "tests/windows/hand.h"

using ListRows = std::vector<int>;
using Texts = std::vector<std::string>;
using Fields = std::vector<std::pair<int, std::string>>;

// What the exported services answer and what they were told. One per process.
struct HostState {
    std::string user = "CHECKER1";
    std::string broker = "BRK1";
    int level = 0;
    std::set<int> menuItems{60302, 60303, 60304};
    bool mayModify = true;
    bool sends = true;
    std::set<int> restricted;                              // function codes that may not be used
    std::function<void()> inLog = [] {}, inRoles = [] {};  // run inside these services

    HACCEL accelerators = nullptr;  // of the frame; their commands are counted
    int accelerated = 0;
    int contextMenus = 0;  // that were asked of the frame

    Texts log;
    std::vector<Fields> sent;           // messages, field by field
    std::vector<Fields> subscriptions;  // pairs
    int unsubscribed = 0;
    std::set<CQuonRxControl*> controls;       // created, not released
    CQuonRxNotifierBase* receiver = nullptr;  // of the control of kind 0
};
HostState& host();

// The names that a module exports.
std::vector<char*> exportedNames(HMODULE module);

// Takes an export of this executable away for a scope, as if the host had never had it.
class HiddenExport {
public:
    explicit HiddenExport(const char* name);
    ~HiddenExport();
    HiddenExport(const HiddenExport&) = delete;
    HiddenExport& operator=(const HiddenExport&) = delete;

private:
    void setLast(char letter);
    char* m_name = nullptr;
    char m_last = '\0';
};

// The loaded plug-in and its entry points. Unloads it at the end, after ExitVoskPlugin.
class LoadedPlugin {
public:
    LoadedPlugin();
    ~LoadedPlugin();
    LoadedPlugin(const LoadedPlugin&) = delete;
    LoadedPlugin& operator=(const LoadedPlugin&) = delete;

    void init();
    void hotKey() { m_hotKey(nullptr, 0, 0, nullptr); }
    void publish(const Fields& fields);
    int exit() { return m_exit(); }
    void free();  // FreeLibrary, as a host does after exit(); no call is made any more
    HMODULE module() const { return m_module; }
    template <class Entry>
    Entry* entry(const char* name) const {
        return reinterpret_cast<Entry*>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
    }

private:
    HMODULE m_module;
    InitVoskPluginEntry* m_init;
    PluginProcessHotKeyEntry* m_hotKey;
    HandlePublishMsgEntry* m_publish;
    ExitVoskPluginEntry* m_exit;
};

// The host's main frame; `docks` false makes it one that knows nothing of docking.
class MainFrame final : public fw::CWindow {
public:
    explicit MainFrame(bool docks = true);

    fw::Rect inner() const { return m_inner; }
    // Keeps in `place` where the pane docks, and recalls it from there.
    void remember(std::optional<fw::DockPosition>& place) {
        m_site->setMemory({[&place](const std::string&) { return place; },
                           [&place](const std::string&, fw::DockPosition now) { place = now; }});
    }

protected:
    const fw::MessageMap& messageMap() const override;

private:
    LRESULT defaultProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void layOut();

    std::unique_ptr<fw::CDockingSite> m_site;
    fw::Rect m_inner;
};

// Closes the message boxes and dialogs that open in its life, and keeps their texts. `answer`, if
// set, is given each dialog before OK is pressed.
class DialogTrap {
public:
    explicit DialogTrap(std::function<void(HWND)> answer = {});
    ~DialogTrap();
    DialogTrap(const DialogTrap&) = delete;
    DialogTrap& operator=(const DialogTrap&) = delete;

    Texts texts;         // the static text of each
    int pressed = IDOK;  // the button that closes them

private:
    static LRESULT CALLBACK hookProc(int code, WPARAM wParam, LPARAM lParam);
    std::function<void(HWND)> m_answer;
    HHOOK m_hook;
};

// Puts a value into the user's settings file for a scope; without a text the key is taken out. At
// the end the key goes.
class StoredSetting {
public:
    StoredSetting(const char* section, const char* key, const char* text);
    ~StoredSetting();
    StoredSetting(const StoredSetting&) = delete;
    StoredSetting& operator=(const StoredSetting&) = delete;

    std::string text() const;  // as it is stored now; empty: none
    // Holds the settings file open, as another program does, so that nobody can write it; or no
    // longer.
    void hold(bool on);

private:
    std::string m_section, m_key, m_file;
    HANDLE m_held = INVALID_HANDLE_VALUE;
};

// The column profile of a list, of the main one unless it is named.
struct StoredProfile : StoredSetting {
    explicit StoredProfile(const char* text = nullptr, const char* list = "Maker checker List")
        : StoredSetting(list, "COLUMNPROFILE", text) {}
};
inline constexpr char kDetailsList[] = "Maker Checker Details List";

// What the host's loop does with a message.
void dispatch(MSG& message);

// Dispatches until the queue is empty.
void pump();

// The pane: under the frame or in a floating window of this thread; null when there is none.
HWND findPane();
// The first window below `parent`, or of this thread, of which `fits` is true.
HWND findWindow(HWND parent, const std::function<bool(HWND)>& fits);

HWND descendant(HWND parent, const char* windowClass, int id);
HWND button(const char* text);
HWND mainList();
HWND details();  // the list of them
HWND bar();      // between the two lists
HWND header(HWND list = mainList());
RECT headerItem(int item, HWND list = mainList());
int columnWidth(int item, HWND list = mainList());
// Of a cell, in its list.
RECT cellRect(HWND list, int row, int column = 0);
// On a caption, `fromRight` pixels from its right end: 1 is the divider.
POINT captionPoint(int item, HWND list = mainList(), int fromRight = 20);
HWND filterBox(int item, HWND list = mainList());
HWND filterEdit(int item, HWND list = mainList());
bool isDropped(int item);
std::string pressLine();
// Floats the docked pane, by a double-click on its caption.
void floatPane();
// The tips' windows that have something to say.
std::vector<HWND> tips();
// The control that a value is typed into; null when there is none.
HWND editor();
// Opens it with a double-click and types.
void edit(int row, const char* text);
std::string value(int row);  // of the details
using fw::textOf;
std::string classOf(HWND window);
RECT onScreen(HWND window);
RECT inParent(HWND window);
RECT onScreen(HWND window, RECT inside);
Texts captions(HWND list = mainList());
Texts column(int column);  // of the main list
// The windows of this thread.
int threadWindows();
COLORREF pixel(HWND window, int x, int y);
// All pixels of a window, drawn up to now, row by row.
std::vector<DWORD> picture(HWND window);
std::string cellText(HWND list, int row, int column);
Texts rowTexts(HWND list, int row, int columns = 6);
int rowCount(HWND list);
ListRows selectedRows(HWND list = mainList());
void selectRows(HWND list, const ListRows& rows);

// A publication of a pending change.
Fields pending(const std::string& key, const std::string& code, Fields more = {});
Fields outcome(const std::string& key, const std::string& status);

// Hands the plug-in an answer to a request of its.
void answer(const Fields& fields);

// An answer with limits of client C1: two numbers and, last, a choice.
Fields limitsAnswer(const std::string& key, const std::string& margin = "1500");

// A field of what was sent.
std::string sentField(const Fields& message, int mnemonic);
// A field of all that was sent since the last call: the requests' names, or the keys.
Texts takeSent(int mnemonic = 0);

// Loads the plug-in before the frame, makes the frame and presses the hot key; then changes of
// users are pending under these keys.
class OpenWorkbench {
public:
    explicit OpenWorkbench(std::initializer_list<const char*> keys = {});
    // Makes the limits of client C1 pending, and opens them from the list's last row.
    void openLimits(const Fields& answer = limitsAnswer("7"));
    LoadedPlugin plugin;
    std::unique_ptr<MainFrame> frame;
};
