// The border: exports, start-up in both orders, hosts that lack services, shut-down and unloading.
#include "framework/platform.h"
#include "sdk/host_services.h"
#include "sdk/host_text.h"
#include "tests/windows/test_host.h"

namespace {

TEST(EntryPoints, AreTheSevenUndecoratedNames) {
    const LoadedPlugin plugin;
    std::set<std::string> found;
    for (const char* name : exportedNames(plugin.module())) found.insert(name);
    EXPECT_EQ(found, (std::set<std::string>{"GetVoskPluginInfo", "GetOptionalVoskPluginInfo",
                                            "InitVoskPlugin", "PluginProcessHotKey",
                                            "ProcessVoskPluginMsg", "HandlePublishMsg",
                                            "ExitVoskPlugin"}));
}

TEST(EntryPoints, TellWhatThePluginIs) {
    const LoadedPlugin plugin;
    auto* info = plugin.entry<GetVoskPluginInfoEntry>("GetVoskPluginInfo");
    HostString name = sdk::makeHostString("before");
    HostString version{nullptr};
    unsigned id = 0, flags = 0;
    EXPECT_EQ(info(name, version, "Console 9", id, flags), 1);
    EXPECT_EQ(sdk::take(name), "Console 9");
    EXPECT_EQ(sdk::take(version), "1.0.0.0");
    EXPECT_EQ(id, 29032010u);
    EXPECT_EQ(flags, 0xFFFFFFFFu);
    EXPECT_EQ(info(name, version, nullptr, id, flags), 1);
    EXPECT_EQ(sdk::take(name), "");
    sdk::release(version);

    auto* items = static_cast<HostString*>(HeapAlloc(GetProcessHeap(), 0, 2 * sizeof(HostString)));
    items[0] = sdk::makeHostString("one");
    items[1] = sdk::makeHostString("two");
    HostStringArray array{items, 2};
    plugin.entry<GetOptionalVoskPluginInfoEntry>("GetOptionalVoskPluginInfo")(nullptr, array,
                                                                              nullptr, nullptr);
    EXPECT_EQ(array.items, nullptr);
    EXPECT_EQ(array.count, 0u);

    int anything = 7;
    auto* command = plugin.entry<ProcessVoskPluginMsgEntry>("ProcessVoskPluginMsg");
    EXPECT_EQ(command(&anything), 0);
    EXPECT_EQ(command(nullptr), 0);
}

TEST(EntryPoints, AfterTheFrameMakesThePaneButDoesNotSubscribe) {
    LoadedPlugin plugin;
    const MainFrame frame;
    plugin.init();
    ASSERT_NE(findPane(), nullptr);
    EXPECT_TRUE(IsWindowVisible(findPane()));
    plugin.hotKey();
    EXPECT_TRUE(host().subscriptions.empty());
    plugin.publish(pending("1", "339", {{31003, "U1"}}));
    EXPECT_EQ(rowCount(mainList()), 1);

    const HWND pane = findPane();
    plugin.init();  // finds the pane and lays it out anew
    EXPECT_EQ(findPane(), pane);
    EXPECT_EQ(rowCount(mainList()), 1);
    EXPECT_TRUE(IsWindowVisible(mainList()));
}

TEST(EntryPoints, ASecondOneKeepsThePaneAndMakesANewOneInANewFrame) {
    LoadedPlugin plugin;
    plugin.init();
    auto frame = std::make_unique<MainFrame>();
    plugin.hotKey();
    plugin.publish(pending("1", "339", {{31003, "U1"}}));
    const auto plain = picture(header());
    hand::click(captionPoint(0));
    const auto sorted = picture(header());
    EXPECT_NE(sorted, plain);
    plugin.init();
    EXPECT_EQ(rowCount(mainList()), 1);
    EXPECT_EQ(picture(header()), sorted) << "the sort image went";

    frame = std::make_unique<MainFrame>();
    plugin.init();
    ASSERT_NE(findPane(), nullptr);
    EXPECT_EQ(rowCount(mainList()), 0) << "nothing of the pane that went with its frame";
    EXPECT_EQ(picture(header()), plain);
    plugin.publish(pending("2", "339", {{31003, "U2"}}));
    selectRows(mainList(), {0});
    hand::click(button("Accept"));
    EXPECT_EQ(host().sent.size(), 1u);
}

TEST(EntryPoints, TheHotKeySubscribesOnceForAPaneOfItsOwn) {
    LoadedPlugin plugin;
    plugin.init();
    plugin.publish(pending("1", "339"));  // no workbench yet
    const MainFrame frame;
    // A pane that cannot be made is tried again by the next hot key.
    const auto refuse = [](int code, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (code == HCBT_CREATEWND && classOf(reinterpret_cast<HWND>(wParam)) == "#32770") return 1;
        return CallNextHookEx(nullptr, code, wParam, lParam);
    };
    const HHOOK hook = SetWindowsHookExA(WH_CBT, refuse, nullptr, GetCurrentThreadId());
    plugin.hotKey();
    UnhookWindowsHookEx(hook);
    EXPECT_EQ(findPane(), nullptr);
    EXPECT_TRUE(host().subscriptions.empty());
    plugin.publish(pending("1", "339"));  // a workbench without a window

    plugin.hotKey();
    const HWND pane = findPane();
    ASSERT_NE(pane, nullptr);
    EXPECT_EQ(rowCount(mainList()), 0);
    plugin.hotKey();
    EXPECT_EQ(findPane(), pane);
    EXPECT_EQ(host().subscriptions, (std::vector<Fields>{{{64056, ""}, {63713, ""}, {51803, ""}}}));
}

// What else a host has on its thread comes and goes, and would take the pane along.
TEST(EntryPoints, TakesTheFrameAndNothingElse) {
    LoadedPlugin plugin;
    plugin.init();
    const MainFrame frame;
    const struct {
        const char *what, *windowClass;
        DWORD style, exStyle;
        HWND owner;
    } others[] = {
        {"a login dialog", "#32770", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, nullptr},
        {"a splash window", "Static", WS_POPUP | WS_VISIBLE, 0, nullptr},
        {"a window of one size", "Static", WS_CAPTION | WS_VISIBLE, 0, nullptr},
        {"a hidden window", "Static", WS_OVERLAPPEDWINDOW, 0, nullptr},
        {"a tool window", "Static", WS_OVERLAPPEDWINDOW | WS_VISIBLE, WS_EX_TOOLWINDOW, nullptr},
        {"an owned window", "Static", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, frame.handle()},
    };
    for (const auto& other : others) {
        const HWND window =
            CreateWindowExA(other.exStyle, other.windowClass, other.what, other.style, 0, 0, 300,
                            200, other.owner, nullptr, nullptr, nullptr);
        BringWindowToTop(window);
        plugin.hotKey();
        EXPECT_EQ(GetAncestor(findPane(), GA_ROOT), frame.handle()) << other.what;
        plugin.exit();
        DestroyWindow(window);
    }
}

TEST(Hosts, WithoutIdentityThePluginStaysIdle) {
    const struct {
        const char* missing;
        bool hotKey;
    } cases[] = {{kPuGetPeerData, false}, {kPuGetUserPrivilige, false}, {kPuGetPeerData, true}};
    for (const auto& [missing, hotKey] : cases) {
        const HiddenExport hidden(missing);
        const MainFrame frame;
        LoadedPlugin plugin;
        const DialogTrap boxes;
        hotKey ? plugin.hotKey() : plugin.init();
        EXPECT_EQ(boxes.texts, Texts{"Exe is not compatible with ZEK"}) << missing << hotKey;
        EXPECT_EQ(findPane(), nullptr) << missing << hotKey;
    }
}

TEST(Hosts, WithoutAConnectionThePaneOpens) {
    const HiddenExport hidden(kGetQuonRxControl);
    const DialogTrap boxes;
    OpenWorkbench open;
    EXPECT_EQ(boxes.texts, Texts{"From ZEK Connection to quon failed"});
    ASSERT_NE(findPane(), nullptr);
    EXPECT_EQ(open.plugin.exit(), 1);
    EXPECT_EQ(host().log, (Texts{"Maker Checker Zek Message : Failed to subscribe ",
                                 "Maker Checker Zek Message : Failed to Unsubscribe",
                                 "Maker Checker Zek Message : Destroying Quon Connection Failed"}));
}

TEST(Hosts, ExitDestroysThePaneAndUnsubscribes) {
    OpenWorkbench open;
    open.plugin.publish(pending("1", "339"));
    EXPECT_EQ(open.plugin.exit(), 1);
    EXPECT_EQ(findPane(), nullptr);
    EXPECT_EQ(host().unsubscribed, 1);
    EXPECT_TRUE(host().controls.empty());
    EXPECT_EQ(open.plugin.exit(), 0);
    open.plugin.publish(pending("2", "339"));  // a message that comes too late
    open.plugin.hotKey();                      // and a hot key that opens it once more
    EXPECT_NE(findPane(), nullptr);
}

TEST(Hosts, AFrameThatGoesFirstTakesThePaneAlong) {
    for (const bool docks : {true, false}) {
        LoadedPlugin plugin;
        plugin.init();
        auto frame = std::make_unique<MainFrame>(docks);
        plugin.hotKey();
        plugin.publish(pending("1", "339"));
        pump();
        frame.reset();
        EXPECT_EQ(findPane(), nullptr);
        EXPECT_TRUE(host().controls.empty());
        plugin.publish(pending("2", "339"));
        EXPECT_EQ(plugin.exit(), 0);
    }
}

TEST(Hosts, ManyLoadsLeaveNothing) {
    const MainFrame frame;
    const auto once = [&] {
        LoadedPlugin plugin;
        plugin.init();
        plugin.publish(pending("1", "339"));
        plugin.hotKey();
        pump();
    };
    once();
    const int windows = threadWindows();
    // Wine counts neither and says 0; there the whole road (tests/road) counts by other means.
    const DWORD gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int i = 0; i < 25; ++i) once();
    EXPECT_EQ(GetModuleHandleA("MakerChecker.dll"), nullptr);
    EXPECT_EQ(threadWindows(), windows);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdi);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user);

    // The classes are the module's; loaded again at the same place, it finds none of its own left.
    const HMODULE again = LoadLibraryA("MakerChecker.dll");
    for (const char* name :
         {"MakerChecker.HolderFrame", "MakerChecker.FloatFrame", "MakerChecker.SplitterBar"}) {
        WNDCLASSEXA left{};
        left.cbSize = sizeof left;
        EXPECT_FALSE(GetClassInfoExA(again, name, &left)) << name;
    }
    FreeLibrary(again);
}

// ---- Hosts as they are (console/minimal is one that has no common controls itself): without a
// manifest, as this one is, and on Windows without what is newer.

TEST(Hosts, TipsOfEveryKindAreMade) {
    const OpenWorkbench open;
    std::set<std::string> found;
    for (const HWND tip : tips()) {
        char text[256]{};
        TTTOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V2_SIZE;
        tool.lpszText = text;
        for (WPARAM each = 0;
             SendMessageA(tip, TTM_ENUMTOOLSA, each, reinterpret_cast<LPARAM>(&tool)) != 0; ++each)
            found.insert(text);
    }
    EXPECT_TRUE(found.contains("Accept the selected changes (Ctrl+Shift+Y)")) << "of a button";
    EXPECT_TRUE(found.contains("Entity Name")) << "of a caption";
}

// What older Windows answers in the stead of each function, at the system's dots per inch.
TEST(Hosts, OlderWindowsGivesTheSameAtItsOwnDotsPerInch) {
    const MainFrame frame;
    const auto answers = [&] {
        const int dpi = fw::dpiOf(frame.handle());
        LOGFONTW font{};
        GetObjectW(fw::systemFont(&NONCLIENTMETRICSW::lfMessageFont, 2 * dpi).get(), sizeof font,
                   &font);
        const RECT around = fw::windowAround({0, 0, 50, 50}, WS_POPUP | WS_CAPTION, 0, dpi);
        return std::vector<long>{dpi,         fw::systemDpi(), fw::metric(SM_CXVSCROLL, 2 * dpi),
                                 around.left, around.top,      font.lfHeight};
    };
    const auto now = answers();
    fw::NewerWindows& newer = fw::newerWindows();
    const fw::NewerWindows all = std::exchange(newer, {});
    EXPECT_EQ(answers(), now);
    newer = all;
}

// Nothing asks the host for a menu, and none opens before what asked for it has returned.
TEST(Hosts, MenusClimbNowhereAndOpenLater) {
    const OpenWorkbench open;
    for (const HWND window : {header(), mainList(), button("Accept"), findPane(), details()}) {
        const LPARAM at = MAKELPARAM(5, 5);
        PostMessageA(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), at);
        hand::waitUntil([] { return GetQueueStatus(QS_POSTMESSAGE) == 0; });
        SendMessageA(window, WM_RBUTTONDOWN, 0, at);
        SendMessageA(window, WM_RBUTTONUP, 0, at);
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetCurrentThreadId(), &info);
        EXPECT_EQ(info.flags & GUI_INMENUMODE, 0u) << classOf(window);
        MSG menu;
        while (PeekMessageA(&menu, nullptr, WM_APP, 0xBFFF, PM_REMOVE))
            continue;  // the menus, unopened
    }
    EXPECT_EQ(host().contextMenus, 0);
}

}  // namespace
