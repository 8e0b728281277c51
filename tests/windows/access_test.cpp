// For people who do not see the screen or do not use a mouse: what a screen reader would say, keys
// for what the mouse does, and where the focus comes back to.
#include <oleacc.h>

#include <algorithm>

#include "tests/windows/test_host.h"

namespace {

template <class Function>
Function* from(const char* library, const char* name) {
    return reinterpret_cast<Function*>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(library), name)));
}

// Says what has the focus when it gets it, what changes of it, and the live line.
class Reader {
public:
    Reader() {
        s_said.clear();
        from<decltype(::CoInitializeEx)>("ole32.dll", "CoInitializeEx")(nullptr,
                                                                        COINIT_APARTMENTTHREADED);
        m_hook = SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, onEvent, GetCurrentProcessId(), 0,
                                 WINEVENT_OUTOFCONTEXT);
    }
    ~Reader() {
        UnhookWinEvent(m_hook);
        from<decltype(::CoUninitialize)>("ole32.dll", "CoUninitialize")();
    }
    // What was said since the last call; each once.
    static Texts said() {
        pump();
        return std::exchange(s_said, {});
    }

private:
    static void CALLBACK onEvent(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child,
                                 DWORD, DWORD) {
        constexpr DWORD kLiveRegion = 0x8019;
        const bool row = child != CHILDID_SELF;
        const bool focus = event == EVENT_OBJECT_FOCUS;
        if (object != OBJID_CLIENT || (focus && window != GetFocus())) return;
        if (event == EVENT_SYSTEM_ALERT) return say("ALERT: " + nameOf(window, object, child));
        if (event == EVENT_OBJECT_SELECTIONWITHIN) return say("the selection changed");
        if (focus || event == kLiveRegion || (event == EVENT_OBJECT_NAMECHANGE && row))
            say(nameOf(window, object, child));
    }
    static void say(std::string text) {
        const auto cut = [&text](const char* from, const char* to) {
            const std::size_t at = text.find(from);
            if (at != std::string::npos) text.erase(at, text.find(to, at) - at);
        };
        cut(" sent at", ",");  // times differ from run to run
        cut(" sent 0", " ago"), cut(" sent 1", " ago");
        if (std::ranges::find(s_said, text) == s_said.end()) s_said.push_back(text);
    }
    static std::string nameOf(HWND window, LONG object, LONG child) {
        IAccessible* found = nullptr;
        VARIANT which{};
        if (from<decltype(::AccessibleObjectFromEvent)>("oleacc.dll", "AccessibleObjectFromEvent")(
                window, static_cast<DWORD>(object), static_cast<DWORD>(child), &found, &which) !=
            S_OK)
            return "<no object>";
        BSTR name = nullptr;
        const HRESULT result = found->get_accName(which, &name);
        found->Release();
        if (result != S_OK || name == nullptr) return "<no name>";
        char text[512]{};
        WideCharToMultiByte(CP_ACP, 0, name, -1, text, sizeof text - 1, nullptr, nullptr);
        from<decltype(::SysFreeString)>("oleaut32.dll", "SysFreeString")(name);
        return text;
    }
    static inline Texts s_said;
    HWINEVENTHOOK m_hook;
};

TEST(PaneKeys, AScreenReaderHearsAChangeFoundOpenedReadEditedAndDecided) {
    OpenWorkbench open;
    open.plugin.publish(pending("6", "340", {{31003, "DLR6"}}));
    open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
    open.plugin.publish(pending("8", "340", {{31003, "DLR8"}}));
    pump();
    const Reader reader;
    const std::string six = "Entity Name: DLR6; Auth Type: MODIFY USER; Key: 6; Maker: MAKER1; ",
                      seven =
                          "Entity Name: Client - C1; Auth Type: RMS Limits; Key: 7; Maker: "
                          "MAKER1; ",
                      accept = "Accept 7 RMS Limits, Client - C1",
                      list = "Maker Checker Details: Client - C1, RMS Limits, 7",
                      edited = "Field: Cash Margin; Value: 2500.00; Old Value: 1200; changed; ",
                      margin = "Cash Margin: 1200 to 2500.00, +1,300 (+108.3 %), 2 thousand 500";
    const struct {
        const char* what;
        std::function<void()> act;
        Texts said;
    } steps[] = {
        {"Down",
         [] { hand::key(VK_DOWN); },
         {six + "not looked at", "Accept 6 MODIFY USER DLR6, not looked at"}},
        {"c", [] { hand::type("c"); }, {seven + "not looked at", accept + ", not looked at"}},
        {"Enter; the details come",
         [] {
             hand::key(VK_RETURN);
             answer(limitsAnswer("7"));
         },
         {seven + "not looked at; its details are open", accept,
          seven + "looked at; its details are open"}},
        {"Tab",
         [] {
             for (int stop = 0; stop < 5; ++stop) hand::key(VK_TAB);
         },
         {"Splitter", "<no name>", list}},
        {"Down",
         [] {
             for (int row = 0; row < 3; ++row) hand::key(VK_DOWN);
         },
         {"Field: RMS Limits; group, open", "Field: RMS Limit For; Value: Client - C1",
          "Field: Cash Margin; Value: 1500.00; Old Value: 1200; changed; Cash Margin: 1200 to "
          "1500, +300 (+25 %), 1 thousand 500; can be edited"}},
        {"F2", [] { hand::key(VK_F2); }, {"Cash Margin, Value"}},
        {"2500, Enter",
         [] {
             hand::type("2500");
             hand::key(VK_RETURN);
         },
         {accept + "; asks about 1 unsent value first",
          edited + "edited, not sent; " + margin +
              "; Update sends 2500.00, the maker asked for 1500; can be edited",
          list}},
        {"Ctrl+Shift+U",
         [] { hand::key('U', hand::kCtrlShift); },
         {accept + ", again, ago", edited + margin + "; can be edited",
          seven + "looked at; update, outcome awaited; its details are open"}},
        {"(the server publishes the outcome)",
         [&] { open.plugin.publish(outcome("7", "accepted")); },
         {"the selection changed",
          "Selected by the list, not looked at: Accept 8 MODIFY USER DLR8, not looked at",
          "ALERT: Selected by the list, not looked at: Accept 8 MODIFY USER DLR8, not looked at"}},
    };
    for (const auto& step : steps) {
        step.act();
        const Texts said = Reader::said();
        std::printf("| %s |", step.what);
        for (const std::string& each : said) std::printf(" %s<br>", each.c_str());
        std::printf(" |\n");
        EXPECT_EQ(said, step.said) << step.what;
    }
}

TEST(PaneKeys, ColumnsAreSortedAndWidened) {
    const StoredProfile profile;
    OpenWorkbench open({"2", "1"});
    SetFocus(filterEdit(2));
    const int before = columnWidth(2);
    hand::key('O', hand::kCtrlShift);
    EXPECT_EQ(column(2), (Texts{"1", "2"}));
    hand::key(VK_OEM_PERIOD, hand::kCtrlShift);
    EXPECT_EQ(columnWidth(2), before + 8);
    SetFocus(mainList());
    hand::key(VK_OEM_COMMA, hand::kCtrlShift);
    hand::key(VK_OEM_COMMA, hand::kCtrlShift);
    EXPECT_EQ(columnWidth(2), before - 8);
    EXPECT_EQ(textOf(filterEdit(2)), "");
}

TEST(PaneKeys, MenusOpenWhereTheFocusIs) {
    OpenWorkbench open({"1", "2"});
    hand::clickRow(mainList(), 1, {}, 2);
    hand::moveTo({5, 5});
    const RECT row = onScreen(mainList(), cellRect(mainList(), 1));
    const RECT caption = onScreen(header(), headerItem(2));
    const struct {
        WORD key;
        hand::Keys keys;
        const RECT& below;
    } cases[] = {{VK_APPS, {}, row}, {VK_F10, hand::kShift, row}, {VK_APPS, hand::kCtrl, caption}};
    for (const auto& [key, keys, below] : cases) {
        RECT menu{};
        hand::during([&] { hand::key(key, keys); }, {[&] {
                         menu = onScreen(FindWindowA("#32768", nullptr));
                         hand::key(VK_ESCAPE);
                     }});
        EXPECT_NEAR(menu.left, below.left + 6, 4) << key;
        EXPECT_NEAR(menu.top, below.bottom, 4) << key;
    }
}

TEST(PaneKeys, F1ListsTheKeys) {
    OpenWorkbench open;
    SetFocus(mainList());
    std::string listed;
    hand::during([] { hand::key(VK_F1); }, {[&] {
                     listed = textOf(GetFocus());
                     hand::key(VK_ESCAPE);
                 }});
    for (const char* line : {"Ctrl+Shift+Y - Accept the selected changes\r\n", "F9 - the list of"})
        EXPECT_NE(listed.find(line), std::string::npos) << listed;
    EXPECT_EQ(GetFocus(), mainList());
}

TEST(PaneKeys, TheFocusComesBackWithTheProgram) {
    const StoredSetting neverFloated("VOSK_DIALOG_BAR_SIZE", "1000", nullptr);
    OpenWorkbench open;
    const HWND other = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                     nullptr, nullptr, nullptr);
    for (const bool floating : {false, true}) {
        if (floating) floatPane();
        const HWND root = GetAncestor(findPane(), GA_ROOT);
        if (floating) {
            EXPECT_EQ(fw::widthOf(onScreen(root)),
                      fw::widthOf(onScreen(open.frame->handle())) * 2 / 3);
        }
        for (const HWND control : {filterEdit(1), details(), button("Reject")}) {
            SetFocus(control);
            SetActiveWindow(other);
            EXPECT_NE(GetFocus(), control);
            SetActiveWindow(root);
            pump();
            EXPECT_EQ(GetFocus(), control) << floating;
        }
    }
    DestroyWindow(other);
}

}  // namespace
