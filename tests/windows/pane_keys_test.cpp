// What presses a button of the pane and what does not, and whose a key is, by a real hand.
#include "tests/windows/test_host.h"

namespace {

// The decisions and requests that left since the last call.
Texts sent() {
    Texts names;
    for (const Fields& message : std::exchange(host().sent, {})) {
        const std::string decision = sentField(message, 10303);
        names.push_back(decision != "<absent>" ? decision + " " + sentField(message, 51803)
                                               : sentField(message, 0));
    }
    return names;
}

const std::string kRecover = "om_get_functionality_details";
const std::string kDetails = "om_get_auth_user_details";

// Three changes, of which the first is selected.
struct FirstSelected : OpenWorkbench {
    FirstSelected() : OpenWorkbench({"1", "2", "3"}) { hand::clickRow(mainList(), 0); }
};

void rejectAndEsc() {
    hand::during([] { hand::click(button("Reject")); }, {[] { hand::key(VK_ESCAPE); }});
}

void onAccept(WORD key, int repeats = 0) {
    SetFocus(button("Accept"));
    hand::hold(key, repeats);
}

// Each begins with the first row selected and the focus in the main list.
TEST(PaneKeys, ADecisionNeedsItsOwnButton) {
    const FirstSelected open;
    const struct {
        const char* what;
        std::function<void()> act;
        Texts sent;
    } cases[] = {
        {"a click", [] { hand::click(button("Accept")); }, {"accepted 1"}},
        {"a double-click", [] { hand::doubleClick(button("Accept")); }, {"accepted 1"}},
        {"a double-click on another button",
         [] { hand::doubleClick(button("Recover")); },
         {kRecover}},
        {"Enter in the list", [] { hand::key(VK_RETURN); }, {kDetails}},
        {"Enter held in the list", [] { hand::hold(VK_RETURN, 5); }, {kDetails}},
        {"Enter on the bar", [] { hand::key(VK_TAB), hand::key(VK_RETURN); }, {}},
        {"Enter in a filter box",
         [] { hand::key(VK_TAB, hand::kShift), hand::key(VK_RETURN); },
         {}},
        {"Enter after Recover",
         [] { hand::click(button("Recover")), hand::key(VK_RETURN); },
         {kRecover, kRecover}},
        {"Enter after Reject and Esc",
         [] {
             rejectAndEsc();
             hand::during([] { hand::key(VK_RETURN); }, {[] { hand::key(VK_ESCAPE); }});
         },
         {}},
        {"Enter on Accept", [] { onAccept(VK_RETURN); }, {"accepted 1"}},
        {"Enter held on Accept", [] { onAccept(VK_RETURN, 5); }, {"accepted 1"}},
        {"Space on Accept", [] { onAccept(VK_SPACE); }, {"accepted 1"}},
        {"Space held on Accept", [] { onAccept(VK_SPACE, 5); }, {"accepted 1"}},
        {"a space held since before",
         [] {
             SetFocus(bar());
             keybd_event(VK_SPACE, 0, 0, 0), pump();
             SetFocus(button("Accept"));
             for (const DWORD repeatedThenUp : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}})
                 keybd_event(VK_SPACE, 0, repeatedThenUp, 0), pump();
         },
         {}},
        {"an arrow from Recover, Enter",
         [] {
             SetFocus(button("Recover"));
             hand::hold(VK_LEFT, 5);
             EXPECT_EQ(GetFocus(), button("Accept"));
             hand::key(VK_RIGHT);
             hand::key(VK_RIGHT);
             hand::key(VK_RETURN);  // Update, with nothing to send
         },
         {}},
        {"Esc anywhere",
         [] {
             for (const HWND focus : {mainList(), details(), bar(), button("Accept")})
                 SetFocus(focus), hand::key(VK_ESCAPE);
             EXPECT_TRUE(IsWindowVisible(findPane()));
         },
         {}},
        {"Y", [] { hand::key('Y'); }, {}},
        {"Ctrl+Shift+Alt+Y, a character to some keyboards",
         [] {
             hand::key('Y', {true, true, true});
         },
         {}},
        {"Ctrl+Shift+Y", [] { hand::key('Y', hand::kCtrlShift); }, {"accepted 1"}},
        {"Ctrl+Shift+Y held", [] { hand::hold('Y', 5, hand::kCtrlShift); }, {"accepted 1"}},
        {"Ctrl+Shift+Y, Enter",
         [] { hand::key('Y', hand::kCtrlShift), hand::key(VK_RETURN); },
         {"accepted 1", kDetails}},
        {"Ctrl+Shift+N, Esc",
         [] {
             hand::during([] { hand::key('N', hand::kCtrlShift); }, {[] { hand::key(VK_ESCAPE); }});
             EXPECT_EQ(GetFocus(), mainList());
         },
         {}},
        {"F5", [] { hand::key(VK_F5); }, {kRecover}},
        {"F5 held", [] { hand::hold(VK_F5, 5); }, {kRecover}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        hand::clickRow(mainList(), 0);
        sent();
        each.act();
        EXPECT_EQ(sent(), each.sent);
    }
}

// The second click of a double-click on a box's button falls on what the box covered.
TEST(PaneKeys, ADoubleClickThatClosesABoxPressesNothingBelow) {
    const FirstSelected open;
    hand::during([] { hand::click(button("Reject")); }, {[] {
                     const HWND dialog = GetActiveWindow();
                     const POINT ok = hand::middle(GetDlgItem(dialog, IDOK));
                     const POINT below = hand::middle(button("Accept"));
                     const RECT place = onScreen(dialog);
                     SetWindowPos(dialog, nullptr, place.left + below.x - ok.x,
                                  place.top + below.y - ok.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
                     hand::doubleClick(below);
                 }});
    EXPECT_EQ(sent(), Texts{});
    hand::click(button("Accept"));
    EXPECT_EQ(sent(), Texts{"accepted 1"});
}

// A key that opened a box and is still held does not answer the box.
TEST(PaneKeys, AHeldKeyDoesNotAnswerTheBoxThatItOpened) {
    const FirstSelected open;
    host().sends = false;
    int boxes = 0;
    hand::during([] { onAccept(VK_RETURN, 5); }, {[&boxes] {
                     boxes += classOf(GetActiveWindow()) == "#32770";
                     hand::key(VK_ESCAPE);
                 }});
    EXPECT_EQ(boxes, 1);
}

TEST(PaneKeys, OnlyTheButtonWithTheFocusIsDrawnAsTheDefaultOne) {
    const FirstSelected open;
    const auto drawn = [] {
        Texts texts;
        for (const char* text : {"Accept", "Reject", "Update", "Recover"})
            if ((GetWindowLongPtrA(button(text), GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
                texts.push_back(text);
        return texts;
    };
    EXPECT_EQ(drawn(), Texts{});
    rejectAndEsc();
    EXPECT_EQ(drawn(), Texts{"Reject"});
    hand::key(VK_TAB);
    EXPECT_EQ(drawn(), Texts{"Update"});
    hand::clickRow(mainList(), 1);
    EXPECT_EQ(drawn(), Texts{});
}

TEST(PaneKeys, TabGoesFromTheButtonsThroughTheListsAndTheBar) {
    const FirstSelected open;
    const auto next = [](HWND from) {
        SetFocus(from);
        hand::key(VK_TAB);
        return GetFocus();
    };
    EXPECT_EQ(next(button("Accept")), button("Reject"));
    EXPECT_TRUE(IsChild(mainList(), next(button("Recover")))) << "the filter row";
    EXPECT_EQ(next(mainList()), bar());
    EXPECT_TRUE(IsChild(details(), next(bar())));
    EXPECT_EQ(next(details()), button("Accept"));
    hand::key(VK_TAB, hand::kShift);
    EXPECT_EQ(GetFocus(), details());
    EXPECT_EQ(SendMessageA(button("Accept"), WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS, 0);
    EXPECT_EQ(sent(), Texts{});
}

// The menu's loop of some systems takes keys out of the queue as a host's does. Posted and taken
// here, as which call takes a key is what counts.
TEST(PaneKeys, ThePaneTakesNoKeyWhileAMenuIsOpen) {
    const FirstSelected open;
    const auto taken = [](UINT flags) {
        PostMessageA(mainList(), WM_KEYDOWN, VK_RETURN, 1);
        MSG message{};
        EXPECT_TRUE(PeekMessageA(&message, mainList(), WM_KEYDOWN, WM_KEYDOWN, flags));
        return message.hwnd == findPane();
    };
    EXPECT_TRUE(taken(PM_REMOVE | PM_NOYIELD)) << "remove is one bit of several";
    bool inMenu = true;
    hand::during([] { hand::click(hand::cell(mainList(), 1), {}, hand::Button::right); },
                 {[&] { inMenu = taken(PM_REMOVE); }, [] { hand::key(VK_ESCAPE); }});
    EXPECT_FALSE(inMenu);
    // And one is worked with keys: its second entry.
    hand::during([] { hand::click(hand::cell(mainList(), 1), {}, hand::Button::right); },
                 {[] { hand::hold(VK_DOWN, 1); }, [] { hand::key(VK_RETURN); }});
    EXPECT_NE(SendMessageA(mainList(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_GRIDLINES, 0);
    EXPECT_EQ(sent(), Texts{});
}

// The host's accelerators hold every key of the lists and of the pane; what the lists do not use
// goes to the host.
TEST(PaneKeys, TheListsKeysComeBeforeTheHostsAccelerators) {
    const FirstSelected open;
    const struct {
        const char* what;
        WORD key;
        hand::Keys keys;
        bool list, button;  // whether the host gets the key from there
    } cases[] = {
        {"Ctrl+A", 'A', hand::kCtrl, false, true},
        {"Ctrl+C", 'C', hand::kCtrl, false, true},
        {"Shift+G", 'G', hand::kShift, false, true},
        {"Down", VK_DOWN, {}, false, false},
        {"Shift+Down", VK_DOWN, hand::kShift, false, false},
        {"Ctrl+Home", VK_HOME, hand::kCtrl, false, true},
        {"Page Down", VK_NEXT, {}, false, true},
        {"Space, which can be a typed letter", VK_SPACE, {}, true, true},
        {"Enter", VK_RETURN, {}, false, false},
        {"Ctrl+S", 'S', hand::kCtrl, true, true},
        {"F2", VK_F2, {}, true, true},
        {"Ctrl+Alt+A", 'A', {true, false, true}, true, true},
    };
    std::vector<ACCEL> table;
    for (const auto& each : cases)
        table.push_back(
            {static_cast<BYTE>(FVIRTKEY | (each.keys.ctrl ? FCONTROL : 0) |
                               (each.keys.shift ? FSHIFT : 0) | (each.keys.alt ? FALT : 0)),
             each.key, 9000});
    const HACCEL accelerators =
        CreateAcceleratorTableA(table.data(), static_cast<int>(table.size()));
    host().accelerators = accelerators;
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        for (const bool inList : {true, false}) {
            SetFocus(inList ? mainList() : button("Update"));
            host().accelerated = 0;
            hand::key(each.key, each.keys);
            EXPECT_EQ(host().accelerated, (inList ? each.list : each.button) ? 1 : 0) << inList;
        }
    }
    SetFocus(details());
    host().accelerated = 0;
    hand::key(VK_F2);
    EXPECT_EQ(host().accelerated, 0) << "the details list edits with it";
    host().accelerators = nullptr;
    DestroyAcceleratorTable(accelerators);
}

TEST(PaneKeys, F6GoesToTheConsoleAndBackToWhereItWas) {
    for (const bool docks : {true, false}) {
        host() = HostState{};
        LoadedPlugin plugin;
        plugin.init();
        const MainFrame frame(docks);
        plugin.hotKey();
        pump();
        EXPECT_EQ(GetAncestor(findPane(), GA_ROOT) == frame.handle(), docks) << "else it floats";
        SetFocus(button("Reject"));
        hand::hold(VK_F6, 3);
        EXPECT_EQ(GetFocus(), frame.handle());
        SetFocus(findPane());
        EXPECT_EQ(GetFocus(), button("Reject"));
    }
}

}  // namespace
