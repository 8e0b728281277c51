// For people who do not see the screen or do not use a mouse: what a screen reader would say, high
// contrast, keys for what the mouse does, and where the focus comes back to.
#include <gtest/gtest.h>

#include <oleacc.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>
#include <tuple>
#include <utility>

#include "framework/high_contrast.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

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
    static void say(const std::string& text) {
        if (s_said.empty() || s_said.back() != text) s_said.push_back(text);
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

TEST(ScreenReader, HearsAChangeFoundOpenedReadEditedAndDecided) {
    OpenWorkbench open;
    open.plugin.publish(pending("6", "340", {{31003, "DLR6"}}));
    open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
    pump();
    const Reader reader;
    const struct {
        const char* what;
        std::function<void()> act;
        Texts said;
    } steps[] = {
        {"Down", [] { hand::key(VK_DOWN); }, {}},
        {"7, typed in the column of keys",
         [] {
             hand::key(VK_HOME);
             hand::key(VK_DOWN);
         },
         {}},
        {"Enter, and the details come",
         [] {
             hand::key(VK_RETURN);
             answer(limitsAnswer("7"));
         },
         {}},
        {"Tab to the details", [] { SetFocus(details()); }, {}},
        {"Down to a limit", [] { hand::key(VK_DOWN), hand::key(VK_DOWN), hand::key(VK_DOWN); }, {}},
        {"F2, 2500, Enter",
         [] {
             hand::key(VK_F2);
             hand::type("2500");
             hand::key(VK_RETURN);
         },
         {}},
        {"Ctrl+Shift+U", [] { hand::key('U', hand::kCtrlShift); }, {}},
        {"the outcome comes", [&] { open.plugin.publish(outcome("7", "accepted")); }, {}},
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

// The last column of a cell, from its right edge, that is not its background.
int lastInk(HWND list, int row, int item) {
    RECT cell{LVIR_BOUNDS, item, 0, 0};
    SendMessageA(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&cell));
    const COLORREF ground = pixel(list, cell.right - 2, cell.top + 2);
    for (int x = cell.right - 2; x > cell.left; --x)
        for (int y = cell.top + 2; y < cell.bottom - 2; ++y)
            if (pixel(list, x, y) != ground) return cell.right - x;
    return -1;
}

TEST(Readable, RightEdgesAreExact) {
    OpenWorkbench open;
    const char* const keys[] = {"1", "11", "421", "8001", "31071"};
    for (const char* key : keys) open.plugin.publish(pending(key, "340", {{31003, "U"}}));
    pump();
    std::set<int> edges;
    for (int row = 0; row < 5; ++row) edges.insert(lastInk(mainList(), row, 2));
    EXPECT_EQ(edges.size(), 1u);
    EXPECT_NE(*edges.begin(), -1);
}

// White on black, as the black scheme has it, for a scope.
class BlackScheme {
public:
    BlackScheme() { apply(HCF_HIGHCONTRASTON, {0, 0xFFFFFF, 0, 0xFFFFFF, 0xFFEB1A, 0}); }
    ~BlackScheme() { apply(0, m_before); }

private:
    static constexpr int kElements[] = {COLOR_WINDOW,  COLOR_WINDOWTEXT, COLOR_BTNFACE,
                                        COLOR_BTNTEXT, COLOR_HIGHLIGHT,  COLOR_HIGHLIGHTTEXT};
    using Colors = std::array<COLORREF, std::size(kElements)>;
    static Colors present() {
        Colors colors;
        std::ranges::transform(kElements, colors.begin(), GetSysColor);
        return colors;
    }
    static void apply(DWORD flags, const Colors& colors) {
        HIGHCONTRASTA setting{sizeof setting, flags, const_cast<char*>("")};
        SystemParametersInfoA(SPI_SETHIGHCONTRAST, sizeof setting, &setting, 0);
        SetSysColors(static_cast<int>(std::size(kElements)), kElements, colors.data());
        pump();
        SendMessageA(GetAncestor(findPane(), GA_ROOT), WM_SYSCOLORCHANGE, 0, 0);
        pump();
    }
    const Colors m_before = present();
};

std::set<COLORREF> colorsOf(HWND list, int row, int item) {
    RECT cell{LVIR_BOUNDS, item, 0, 0};
    SendMessageA(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&cell));
    std::set<COLORREF> colors;
    for (int x = cell.left + 2; x < cell.right - 2; ++x)
        for (int y = cell.top + 2; y < cell.bottom - 2; ++y) colors.insert(pixel(list, x, y));
    return colors;
}

TEST(Readable, HighContrastHasTheSystemsColorsOnly) {
    OpenWorkbench open;
    open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
    hand::doubleClickRow(mainList(), 0);
    answer(limitsAnswer("7"));
    pump();
    EXPECT_EQ(colorsOf(details(), 2, 1).count(0), 0u) << "changed: on yellow";
    for (const bool floating : {false, true}) {
        if (floating)
            hand::doubleClick(POINT{onScreen(findPane()).left + 300, onScreen(findPane()).top + 4});
        const BlackScheme black;
        const auto colors = colorsOf(details(), 2, 1);
        EXPECT_EQ(colors.count(RGB(255, 255, 255)), 1u);
        EXPECT_EQ(colors.count(0), 1u);
    }
    EXPECT_EQ(colorsOf(details(), 2, 1).count(0), 0u);
}

TEST(ByKey, ColumnsAreSortedAndWidened) {
    const StoredProfile profile;
    OpenWorkbench open;
    for (const char* key : {"2", "1"}) open.plugin.publish(pending(key, "340", {{31003, "U"}}));
    SetFocus(filterEdit(2));
    const auto width = [] {
        const RECT item = headerItem(2);
        return item.right - item.left;
    };
    const LONG before = width();
    hand::key('O', hand::kCtrlShift);
    EXPECT_EQ(column(2), (Texts{"1", "2"}));
    hand::key(VK_OEM_PERIOD, hand::kCtrlShift);
    EXPECT_EQ(width(), before + 8);
    SetFocus(mainList());
    hand::key(VK_OEM_COMMA, hand::kCtrlShift);
    hand::key(VK_OEM_COMMA, hand::kCtrlShift);
    EXPECT_EQ(width(), before - 8);
    EXPECT_EQ(textOf(filterEdit(2)), "");
}

TEST(ByKey, MenusOpenWhereTheFocusIs) {
    OpenWorkbench open;
    for (const char* key : {"1", "2"}) open.plugin.publish(pending(key, "340", {{31003, "U"}}));
    hand::clickRow(mainList(), 1, {}, 2);
    hand::moveTo({5, 5});
    const auto menuAt = [](WORD key, hand::Keys keys) {
        RECT menu{};
        hand::during([&] { hand::key(key, keys); }, {[&] {
                         menu = onScreen(FindWindowA("#32768", nullptr));
                         hand::key(VK_ESCAPE);
                     }});
        return POINT{menu.left, menu.top};
    };
    RECT row{LVIR_BOUNDS, 0, 0, 0};
    SendMessageA(mainList(), LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    MapWindowPoints(mainList(), nullptr, reinterpret_cast<POINT*>(&row), 2);
    RECT caption = headerItem(2);
    MapWindowPoints(header(), nullptr, reinterpret_cast<POINT*>(&caption), 2);
    for (const auto& [key, keys, expected] :
         {std::tuple{WORD{VK_APPS}, hand::Keys{}, POINT{row.left + 6, row.bottom}},
          std::tuple{WORD{VK_F10}, hand::kShift, POINT{row.left + 6, row.bottom}},
          std::tuple{WORD{VK_APPS}, hand::kCtrl, POINT{caption.left + 6, caption.bottom}}}) {
        const POINT at = menuAt(key, keys);
        EXPECT_NEAR(at.x, expected.x, 4) << key;
        EXPECT_NEAR(at.y, expected.y, 4) << key;
    }
}

TEST(ByKey, F1ListsTheKeys) {
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

TEST(ByKey, TheFocusComesBackWithTheProgram) {
    OpenWorkbench open;
    const HWND other = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                     nullptr, nullptr, nullptr);
    for (const bool floating : {false, true}) {
        if (floating)
            hand::doubleClick(POINT{onScreen(findPane()).left + 300, onScreen(findPane()).top + 4});
        const HWND root = GetAncestor(findPane(), GA_ROOT);
        if (floating) {
            RECT frame = onScreen(open.frame->handle()), pane = onScreen(root);
            EXPECT_EQ(pane.right - pane.left, (frame.right - frame.left) * 2 / 3);
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
