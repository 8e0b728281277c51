// The border: exports, start-up in both orders, hosts that lack services, shut-down and unloading.
#include <gtest/gtest.h>

#include "res/resource_ids.h"
#include "sdk/host_services.h"
#include "sdk/host_text.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace {

TEST(EntryPoints, AreTheSevenUndecoratedNames) {
    const LoadedPlugin plugin;
    auto* base = reinterpret_cast<char*>(plugin.module());
    auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
    auto* nt = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    auto* exports = reinterpret_cast<IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
    auto* names = reinterpret_cast<DWORD*>(base + exports->AddressOfNames);
    std::set<std::string> found;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i) found.insert(base + names[i]);
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

TEST(StartUp, AfterTheFrameMakesThePaneButDoesNotSubscribe) {
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

// Of the first caption, which a click sorts by.
std::vector<COLORREF> captionPixels() {
    InvalidateRect(header(), nullptr, TRUE);
    UpdateWindow(header());
    const HDC dc = GetDC(header());
    std::vector<COLORREF> pixels;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 75; ++x) pixels.push_back(GetPixel(dc, x, y));
    ReleaseDC(header(), dc);
    return pixels;
}

TEST(StartUp, ASecondOneKeepsThePaneAndMakesANewOneInANewFrame) {
    LoadedPlugin plugin;
    plugin.init();
    auto frame = std::make_unique<MainFrame>();
    plugin.hotKey();
    plugin.publish(pending("1", "339", {{31003, "U1"}}));
    const auto plain = captionPixels();
    hand::click(captionPoint(0));
    const auto sorted = captionPixels();
    EXPECT_NE(sorted, plain);
    plugin.init();
    EXPECT_EQ(rowCount(mainList()), 1);
    EXPECT_EQ(captionPixels(), sorted) << "the sort image went";

    frame = std::make_unique<MainFrame>();
    plugin.init();
    ASSERT_NE(findPane(), nullptr);
    EXPECT_EQ(rowCount(mainList()), 0) << "nothing of the pane that went with its frame";
    EXPECT_EQ(captionPixels(), plain);
    plugin.publish(pending("2", "339", {{31003, "U2"}}));
    selectRows(mainList(), {0});
    hand::click(button("Accept"));
    EXPECT_EQ(host().sent.size(), 1u);
}

TEST(StartUp, TheHotKeySubscribesOnceForAPaneOfItsOwn) {
    LoadedPlugin plugin;
    plugin.init();
    plugin.publish(pending("1", "339"));  // no workbench yet
    const MainFrame frame;
    plugin.hotKey();
    const HWND pane = findPane();
    ASSERT_NE(pane, nullptr);
    plugin.hotKey();
    EXPECT_EQ(findPane(), pane);
    EXPECT_EQ(host().subscriptions, (std::vector<Fields>{{{64056, ""}, {63713, ""}, {51803, ""}}}));
    EXPECT_EQ(rowCount(mainList()), 0);
}

// What else a host has on its thread comes and goes, and would take the pane along.
TEST(StartUp, TakesTheFrameAndNothingElse) {
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

TEST(StartUp, APaneThatCannotBeMadeIsTriedAgainByTheNextHotKey) {
    LoadedPlugin plugin;
    plugin.init();
    const MainFrame frame;
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
    EXPECT_NE(findPane(), nullptr);
    EXPECT_EQ(host().subscriptions.size(), 1u);
}

TEST(MissingServices, WithoutIdentityThePluginStaysIdle) {
    for (const char* service : {kPuGetPeerData, kPuGetUserPrivilige}) {
        const HiddenExport hidden(service);
        const MainFrame frame;
        LoadedPlugin plugin;
        const DialogTrap boxes;
        plugin.init();
        EXPECT_EQ(boxes.texts, std::vector<std::string>{"Exe is not compatible with ZEK"})
            << service;
        EXPECT_EQ(findPane(), nullptr) << service;
    }
    const HiddenExport hidden(kPuGetPeerData);
    const MainFrame frame;
    LoadedPlugin plugin;
    const DialogTrap boxes;
    plugin.hotKey();
    EXPECT_EQ(boxes.texts, std::vector<std::string>{"Exe is not compatible with ZEK"});
    EXPECT_EQ(findPane(), nullptr);
}

TEST(MissingServices, WithoutAConnectionThePaneOpens) {
    const HiddenExport hidden(kGetQuonRxControl);
    const DialogTrap boxes;
    OpenWorkbench open;
    EXPECT_EQ(boxes.texts, std::vector<std::string>{"From ZEK Connection to quon failed"});
    ASSERT_NE(findPane(), nullptr);
    EXPECT_EQ(open.plugin.exit(), 1);
    EXPECT_EQ(host().log, (std::vector<std::string>{
                              "Maker Checker Zek Message : Failed to subscribe ",
                              "Maker Checker Zek Message : Failed to Unsubscribe",
                              "Maker Checker Zek Message : Destroying Quon Connection Failed"}));
}

TEST(ShutDown, DestroysThePaneAndUnsubscribes) {
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

TEST(ShutDown, AFrameThatGoesFirstTakesThePaneAlong) {
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

TEST(ShutDown, ManyLoadsLeaveNothing) {
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

}  // namespace
