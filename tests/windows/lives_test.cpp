// The plug-in, its frame or its library go while a message box, a menu or a dialog of it is open.
#include "details/model/line_groups.h"
#include "listctrl/filter_list_ctrl.h"
#include "listctrl/model/list_commands.h"
#include "sdk/host_services.h"
#include "settings/settings_store.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

// ---- What is open ----

void clickButton(const char* text) {
    hand::click(button(text));
}
void acceptRows(int first, int last, bool sends) {
    hand::clickRow(mainList(), first);
    hand::clickRow(mainList(), last, hand::kShift);
    host().sends = sends;
    clickButton("Accept");
}
void rightClick(HWND window, int x, int y) {
    const RECT place = onScreen(window);
    hand::click(POINT{place.left + x, place.top + y}, {}, hand::Button::right);
}
void command(unsigned id) {
    PostMessageA(mainList(), WM_COMMAND, id, 0);
    hand::moveTo(hand::middle(mainList()));
}
// Types into the first limit of the change in row 4.
void editLimit(const char* text) {
    hand::doubleClickRow(mainList(), 4);
    answer(limitsAnswer("5"));
    edit(2, text);
    hand::key(VK_RETURN);
}

const struct Opening {
    const char* name;
    void (*open)();
    int dialogs;             // that are open then; 0: a menu is
    const char* typed = "";  // into what opened first
} kOpenings[] = {
    {"the investor warning", [] { acceptRows(3, 3, true); }, 1},
    {"an error box of Accept", [] { acceptRows(0, 2, false); }, 1},
    {"an error box of Recover",
     [] {
         host().sends = false;
         clickButton("Recover");
     },
     1},
    {"an error box of Recover, floating",
     [] {
         floatPane();
         host().sends = false;
         clickButton("Recover");
     },
     1},
    {"the rejection dialog", [] { clickButton("Reject"); }, 1, "no"},
    {"the refusal of a typed value", [] { editLimit("12a"); }, 1},
    {"the question about unsent edits",
     [] {
         editLimit("25");
         clickButton("Recover");
     },
     1},
    {"the item menu", [] { hand::click(hand::cell(mainList(), 1), {}, hand::Button::right); }, 0},
    {"the header menu", [] { rightClick(header(), 30, 5); }, 0},
    {"the pane's menu", [] { rightClick(findPane(), 200, 8); }, 0},
    {"a holder's menu", [] { rightClick(GetParent(mainList()), 60, 8); }, 0},
    {"the appearance dialog, from there", [] { rightClick(GetParent(mainList()), 60, 8); }, 1, "c"},
    {"the column profile dialog", [] { command(kRepositionCommand); }, 1},
    {"the column dialog", [] { command(kAddColumnCommand); }, 1},
    {"a refusal over the column dialog", [] { command(kAddColumnCommand); }, 2, "\r"},
};

// The windows of the thread that the user sees, without menus.
int visibleWindows(bool dialogsOnly = false) {
    int count = 0;
    findWindow(nullptr, [&](HWND window) {
        const std::string name = classOf(window);
        if (IsWindowVisible(window) != 0 && name != "#32768" && (!dialogsOnly || name == "#32770"))
            ++count;
        return false;
    });
    return count;
}

// ---- What happens behind it ----

void publish(LoadedPlugin& plugin, int count) {
    for (int i = 1; i <= count; ++i)
        plugin.publish(pending(std::to_string(i), "340", {{31003, "U"}}));
}
void exitOnly(OpenWorkbench& open) {
    EXPECT_EQ(open.plugin.exit(), 1);
    EXPECT_EQ(findPane(), nullptr);
    EXPECT_TRUE(host().controls.empty()) << "the link outlived the exit";
    EXPECT_EQ(visibleWindows(), 1) << "not only the frame";
    EXPECT_TRUE(IsWindowEnabled(open.frame->handle())) << "the host's own login could not be used";
}
void exitAndOpenAgain(OpenWorkbench& open) {
    exitOnly(open);
    open.plugin.init();
    open.plugin.hotKey();
    publish(open.plugin, 30);
}
void destroyFrame(OpenWorkbench& open) {
    open.frame.reset();
    EXPECT_EQ(findPane(), nullptr);
    EXPECT_TRUE(host().controls.empty()) << "the link outlived the frame";
    publish(open.plugin, 30);
}
void exitAndFree(OpenWorkbench& open) {
    exitOnly(open);
    open.plugin.free();
}

const struct Event {
    const char* name;
    void (*happens)(OpenWorkbench&);
} kEvents[] = {
    {"exit, init, hot key, 30 publications", exitAndOpenAgain},
    {"the frame goes", destroyFrame},
    {"exit and FreeLibrary", exitAndFree},
};

// ---- What must hold ----

bool pluginIsLoaded() {
    return GetModuleHandleA("MakerChecker.dll") != nullptr;
}

void expectWorking(OpenWorkbench& open) {
    if (open.frame == nullptr) open.frame = std::make_unique<MainFrame>();
    open.plugin.init();
    open.plugin.hotKey();
    open.plugin.publish(pending("77", "340", {{31003, "U"}}));
    pump();
    host().sent.clear();
    hand::clickRow(mainList(), rowCount(mainList()) - 1);
    clickButton("Accept");
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 51803), "77");
}

// hand::during() fails when a loop goes on, or another one comes, after the event.
void expectNothingAfter(const Opening& opening, const Event& event) {
    SCOPED_TRACE(std::string(opening.name) + "; " + event.name);
    host() = HostState{};
    const int windows = threadWindows();
    {
        OpenWorkbench open;
        publish(open.plugin, 3);
        open.plugin.publish(pending("4", "339", {{54036, "INVESTOR_CLIENT"}, {31003, "INV"}}));
        open.plugin.publish(pending("5", "360", {{54001, "C1"}}));
        pump();
        Texts log;
        std::size_t sent = 0;
        std::vector<hand::Step> steps;
        if (*opening.typed != '\0') steps.emplace_back([&] { hand::type(opening.typed); });
        steps.emplace_back([&] {
            EXPECT_EQ(visibleWindows(true), opening.dialogs);
            event.happens(open);
            host().sends = true;
            log = host().log;
            sent = host().sent.size();
        });
        hand::during(opening.open, steps);
        EXPECT_EQ(host().log, log);
        EXPECT_EQ(host().sent.size(), sent);
        if (event.happens == exitAndFree)
            EXPECT_TRUE(hand::waitUntil([] { return !pluginIsLoaded(); }));
        else
            expectWorking(open);
    }
    EXPECT_TRUE(host().controls.empty());
    EXPECT_FALSE(pluginIsLoaded());
    EXPECT_EQ(threadWindows(), windows);
}

TEST(Lives, NothingComesAfterTheEndBehindWhatIsOpen) {
    for (const Opening& opening : kOpenings)
        for (const Event& event : kEvents) expectNothingAfter(opening, event);
}

// A box of start-up itself: of a host that is no ZEK, and of one without a connection.
TEST(Lives, StartUpEndsBehindItsOwnBox) {
    const struct {
        const char *missing, *text;
    } cases[] = {{kPuGetPeerData, "Exe is not compatible with ZEK"},
                 {kGetQuonRxControl, "From ZEK Connection to quon failed"}};
    for (const auto& each : cases) {
        host() = HostState{};
        OpenWorkbench open;
        open.plugin.exit();
        {
            const HiddenExport hidden(each.missing);
            DialogTrap boxes([&](HWND) { open.plugin.exit(); });
            open.plugin.hotKey();
            EXPECT_EQ(boxes.texts, Texts{each.text});
            EXPECT_EQ(findPane(), nullptr);
        }
        EXPECT_EQ(host().subscriptions.size(), 1u) << "by the first workbench only";
        expectWorking(open);
    }
}

TEST(Lives, ThePluginEndsInsideAServiceThatItCalled) {
    for (const auto service : {&HostState::inLog, &HostState::inRoles}) {
        host() = HostState{};
        OpenWorkbench open;
        publish(open.plugin, 3);
        pump();
        SendMessageA(mainList(), WM_COMMAND, kSelectAllCommand, 0);
        host().*service = [&] { exitOnly(open); };
        const bool deciding = service == &HostState::inLog;
        if (deciding)
            clickButton("Accept");
        else
            open.plugin.publish(pending("2", "340", {{31003, std::string(1000, 'U')}}));
        EXPECT_EQ(findPane(), nullptr);
        EXPECT_EQ(host().sent.size(), deciding ? 1u : 0u);
        EXPECT_EQ(host().log.size(), host().sent.size());
        expectWorking(open);
    }
}

struct Services final : ListServices {
    bool mayExport() override { return false; }
    CSettingsStore& settings() override { return settingsStore(); }
    void showMessage(const std::string&) override {}
    HIMAGELIST glyphs() override { return nullptr; }
};

TEST(Lives, AListTakesBackWhatItGaveItsStore) {
    const MainFrame frame;
    Services services;
    RecordStore rows;
    {
        CFilterListCtrl list(services, rows);
        ASSERT_TRUE(list.create(frame.handle(), 1, "A list", "A list"));
        list.setColumns(kDetailColumns, [](Slot, ColumnId) { return "text"; });
        rows.insertItem(0, 0);
        EXPECT_EQ(rows.cellText(0, kFieldColumn), "text");
    }
    EXPECT_EQ(rows.cellText(0, kFieldColumn), "no data descriptor initialised");
    rows.refresh(rows.slotAt(0));
}

// ---- Whose a box is ----

TEST(Lives, ABoxBehindAnotherProgramIsOwnedByThePanesWindow) {
    OpenWorkbench open;
    const auto ownerOfBox = [] {
        SetActiveWindow(nullptr);  // as when another program is in front
        host().sends = false;
        HWND owner = nullptr;
        const DialogTrap boxes([&](HWND box) { owner = GetWindow(box, GW_OWNER); });
        PostMessageA(findPane(), WM_COMMAND, IDC_RECOVER, 0);
        pump();
        EXPECT_EQ(boxes.texts.size(), 1u);
        return owner;
    };
    const HWND frame = open.frame->handle();
    EXPECT_EQ(ownerOfBox(), frame) << "docked";
    floatPane();
    const HWND floating = GetParent(findPane());
    ASSERT_NE(floating, frame);
    EXPECT_EQ(ownerOfBox(), floating) << "floating";
    SendMessageA(floating, WM_CLOSE, 0, 0);
    EXPECT_EQ(ownerOfBox(), frame) << "floating and closed";
}

}  // namespace
