// The plug-in, its frame or its library go while a message box, a menu or a dialog of it is open.
#include <gtest/gtest.h>

#include "listctrl/model/list_commands.h"
#include "res/resource_ids.h"
#include "sdk/connectvosk.h"
#include "tests/windows/test_host.h"

namespace {

// ---- Windows that are open ----

HWND openDialog() {
    HWND found = nullptr;
    const auto take = [](HWND window, LPARAM into) -> BOOL {
        char name[32]{};
        GetClassNameA(window, name, sizeof name);
        if (std::string(name) != "#32770" || IsWindowVisible(window) == 0) return TRUE;
        *reinterpret_cast<HWND*>(into) = window;
        return FALSE;
    };
    EnumThreadWindows(GetCurrentThreadId(), take, reinterpret_cast<LPARAM>(&found));
    return found;
}

bool menuOpen() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    return (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE)) != 0;
}

// Runs `action` once, from the loop of the first window or menu that opens; counts what opens from
// then on.
class Behind {
public:
    explicit Behind(std::function<void()> action) : m_action(std::move(action)) {
        current = this;
        m_timer = SetTimer(nullptr, 0, 50, look);
    }
    ~Behind() {
        KillTimer(nullptr, m_timer);
        current = nullptr;
    }
    Behind(const Behind&) = delete;
    Behind& operator=(const Behind&) = delete;

    bool ran() const { return m_ran; }
    bool stayedOpen() const { return m_stayedOpen; }

private:
    static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) { current->look(); }
    void look() {
        const HWND dialog = openDialog();
        if (m_ran) {  // nothing may be open any more, or the press would wait for ever
            m_stayedOpen = m_stayedOpen || dialog != nullptr || menuOpen();
            if (dialog != nullptr) EndDialog(dialog, IDCANCEL);
            if (menuOpen()) EndMenu();
            return;
        }
        if (dialog == nullptr && !menuOpen()) return;
        m_ran = true;
        m_action();
    }

    static Behind* current;
    std::function<void()> m_action;
    UINT_PTR m_timer;
    bool m_ran = false;
    bool m_stayedOpen = false;
};
Behind* Behind::current = nullptr;

// ---- What is open, and what happens behind it ----

void command(unsigned id) {
    SendMessageA(mainList(), WM_COMMAND, id, 0);
}
void rightClickHeader() {
    const auto header = reinterpret_cast<HWND>(SendMessageA(mainList(), LVM_GETHEADER, 0, 0));
    NMHDR notice{header, 0, static_cast<UINT>(NM_RCLICK)};
    SendMessageA(mainList(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice));
}
// A column without a name is refused in a message box over the dialog.
void addNamelessColumn() {
    int opened = 0;
    DialogTrap* trap = nullptr;
    DialogTrap first([&](HWND) { trap->pressed = ++opened == 1 ? IDOK : 0; });
    trap = &first;
    command(kAddColumnCommand);
}

const struct Opening {
    const char* name;
    void (*open)();
} kOpenings[] = {
    {"investor warning",
     [] {
         selectRows(mainList(), {3});
         press("Accept");
     }},
    {"error box of Accept",
     [] {
         host().sends = false;
         selectRows(mainList(), {0, 1, 2});
         press("Accept");
     }},
    {"error box of Recover",
     [] {
         host().sends = false;
         press("Recover");
     }},
    {"rejection dialog",
     [] {
         selectRows(mainList(), {0, 1});
         press("Reject");
     }},
    {"item menu", [] { SendMessageA(mainList(), WM_RBUTTONUP, 0, MAKELPARAM(20, 60)); }},
    {"header menu", [] { rightClickHeader(); }},
    {"pane menu",
     [] { SendMessageA(findPane(), WM_NCRBUTTONUP, HTCAPTION, MAKELPARAM(200, 200)); }},
    {"holder menu",
     [] { SendMessageA(GetParent(mainList()), WM_RBUTTONUP, 0, MAKELPARAM(40, 5)); }},
    {"appearance dialog", [] { command(kCustomizeCommand); }},
    {"column profile dialog", [] { command(kRepositionCommand); }},
    {"add column dialog", [] { command(kAddColumnCommand); }},
    {"refusal over that dialog", [] { addNamelessColumn(); }},
};

void publishMany(LoadedPlugin& plugin, int count) {
    for (int i = 0; i < count; ++i)
        plugin.publish(pending(std::to_string(5000 + i), "340", {{31003, "U"}}));
}

void publishChanges(LoadedPlugin& plugin) {
    for (const char* key : {"1", "2", "3"})
        plugin.publish(pending(key, "340", {{31003, std::string("U") + key}}));
    plugin.publish(pending("4", "339", {{54036, "INVESTOR_CLIENT"}, {31003, "INV"}}));
    pump();
}

void exitOnly(OpenWorkbench& open) {
    EXPECT_EQ(open.plugin.exit(), 1);
    EXPECT_EQ(findPane(), nullptr);
    EXPECT_TRUE(host().controls.empty()) << "the link outlived the exit";
}
void exitAndOpenAgain(OpenWorkbench& open) {
    exitOnly(open);
    open.plugin.init();
    open.plugin.hotKey();
    publishMany(open.plugin, 30);
}
void destroyFrame(OpenWorkbench& open) {
    open.frame.reset();
    EXPECT_EQ(findPane(), nullptr);
    EXPECT_TRUE(host().controls.empty()) << "the link outlived the frame";
    publishMany(open.plugin, 30);
}
void exitAndFree(OpenWorkbench& open) {
    exitOnly(open);
    open.plugin.free();
}

const struct Event {
    const char* name;
    void (*happens)(OpenWorkbench&);
} kEvents[] = {
    {"exit", exitOnly},
    {"exit, init, hot key, 30 publications", exitAndOpenAgain},
    {"the frame goes", destroyFrame},
    {"exit and FreeLibrary", exitAndFree},
};

int threadWindows() {
    int count = 0;
    const auto add = [](HWND, LPARAM into) -> BOOL {
        ++*reinterpret_cast<int*>(into);
        return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&count));
    return count;
}

// A workbench of the same library does all of its work.
void expectWorking(OpenWorkbench& open) {
    host().sends = true;
    if (open.frame == nullptr) open.frame = std::make_unique<MainFrame>();
    open.plugin.init();
    open.plugin.hotKey();
    open.plugin.publish(pending("77", "340", {{31003, "U"}}));
    pump();
    ASSERT_NE(mainList(), nullptr);
    host().sent.clear();
    selectRows(mainList(), {rowCount(mainList()) - 1});
    press("Accept");
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 51803), "77");
}

class Lives : public testing::TestWithParam<Opening> {};

TEST_P(Lives, NothingComesAfterTheEnd) {
    for (const Event& event : kEvents) {
        SCOPED_TRACE(event.name);
        host() = HostState{};
        const int windows = threadWindows();
        {
            OpenWorkbench open;
            publishChanges(open.plugin);
            std::vector<std::string> logBefore;
            std::size_t sentBefore = 0;
            const Behind behind([&] {
                event.happens(open);
                logBefore = host().log;
                sentBefore = host().sent.size();
                host().sends = true;
            });
            GetParam().open();
            EXPECT_TRUE(pumpUntil([&] { return behind.ran() && openDialog() == nullptr; }));
            EXPECT_FALSE(behind.stayedOpen()) << "a window stayed, or another came";
            EXPECT_EQ(host().log, logBefore);
            EXPECT_EQ(host().sent.size(), sentBefore);
            EXPECT_TRUE(open.frame == nullptr || IsWindowEnabled(open.frame->handle()));
            if (event.happens == exitAndFree)
                EXPECT_TRUE(pumpUntil([] {
                    return GetModuleHandleA("MakerChecker.dll") == nullptr;
                })) << "the library stayed loaded";
            else
                expectWorking(open);
        }
        EXPECT_TRUE(host().controls.empty());
        EXPECT_EQ(threadWindows(), windows);
    }
}

INSTANTIATE_TEST_SUITE_P(, Lives, testing::ValuesIn(kOpenings), [](const auto& row) {
    std::string name = row.param.name;
    std::erase(name, ' ');
    return name;
});

}  // namespace
