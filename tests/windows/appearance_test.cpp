// The appearance and font dialogs, driven by messages, and the list that takes what they give.
#include <gtest/gtest.h>

#include <algorithm>

#include "listctrl/dialogs/customized_appearance.h"
#include "listctrl/dialogs/font_setting.h"
#include "res/resource_ids.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

using Texts = std::vector<std::string>;

HWND item(HWND dialog, int id) {
    return GetDlgItem(dialog, id);
}

std::string textOf(HWND window) {
    char text[256]{};
    GetWindowTextA(window, text, sizeof text);
    return text;
}

void push(HWND dialog, int id) {
    SendMessageA(item(dialog, id), BM_CLICK, 0, 0);
}

// Takes the entry with this text, as the mouse would.
void choose(HWND dialog, int id, const char* entry) {
    const auto place = SendMessageA(item(dialog, id), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(entry));
    ASSERT_GE(place, 0) << entry;
    SendMessageA(item(dialog, id), CB_SETCURSEL, static_cast<WPARAM>(place), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(item(dialog, id)));
}

void addKeyword(HWND dialog, const char* text) {
    SetWindowTextA(item(dialog, IDC_KEYWORD_TEXT), text);
    push(dialog, IDC_KEYWORD_ADD);
}

Texts keywords(HWND dialog) {
    const HWND list = item(dialog, IDC_KEYWORD_LIST);
    Texts texts;
    for (int row = 0; row < rowCount(list); ++row) texts.push_back(rowTexts(list, row, 1)[0]);
    return texts;
}

// Though the dialog itself is not yet.
bool isShown(HWND window) {
    return (GetWindowLongPtrA(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

LONG height(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place.bottom - place.top;
}

// Runs the appearance dialog; `act` works in it, then "Apply Settings" is pressed, or `close`.
struct Outcome {
    std::optional<Appearance> result;
    Texts messages;
};
Outcome runDialog(const AppearanceQuestion& question, const std::function<void(HWND)>& act,
                  int close = IDC_APPEARANCE_APPLY) {
    const MainFrame frame;
    DialogTrap trap([&](HWND dialog) {
        if (item(dialog, IDC_APPEARANCE_PROPERTY) != nullptr) act(dialog);
    });
    trap.pressed = close;
    Outcome run{askAppearance(frame.handle(), question), {}};
    run.messages = trap.texts;
    return run;
}

AppearanceQuestion question() {
    return {"", {"Name", "Type"}, {0xFFFFFF, 0x10, "Tahoma", "9", ColumnId{1}, {{"tab", 0xFF}}}};
}

TEST(Appearance, TheKeywordGroupShowsForTextOnly) {
    const Outcome run = runDialog(question(), [](HWND dialog) {
        EXPECT_EQ(textOf(dialog), "Customized Appearance");
        EXPECT_EQ(textOf(item(dialog, IDC_APPEARANCE_PROPERTY)), "Background");
        EXPECT_EQ(textOf(item(dialog, IDC_APPEARANCE_FONT)), "Tahoma, 9");
        const LONG small = height(dialog);
        for (int round = 0; round < 2; ++round) {
            choose(dialog, IDC_APPEARANCE_PROPERTY, "Text");
            EXPECT_TRUE(isShown(item(dialog, IDC_KEYWORD_LIST)));
            EXPECT_EQ(height(dialog), small + height(item(dialog, IDC_KEYWORD_GROUP)));
            choose(dialog, IDC_APPEARANCE_PROPERTY, "Background");
            EXPECT_FALSE(isShown(item(dialog, IDC_KEYWORD_LIST)));
            EXPECT_EQ(height(dialog), small);
        }
    });
    EXPECT_EQ(run.result, question().current) << "nothing was changed";
}

TEST(Appearance, KeywordsAreAddedInOrderAndDeleted) {
    const Outcome run = runDialog(question(), [](HWND dialog) {
        choose(dialog, IDC_APPEARANCE_PROPERTY, "Text");
        for (const char* each : {"sell", "BUY", "", "a,b", "gone"}) addKeyword(dialog, each);
        EXPECT_EQ(keywords(dialog), (Texts{"gone", "sell", "BUY", "tab"}));
        EXPECT_EQ(textOf(item(dialog, IDC_KEYWORD_TEXT)), "");
        const HWND list = item(dialog, IDC_KEYWORD_LIST);
        selectRows(list, {0, 3});
        SendMessageA(list, WM_KEYDOWN, 'X', 1);
        EXPECT_EQ(rowCount(list), 4);
        SendMessageA(list, WM_KEYDOWN, VK_DELETE, 1);
        EXPECT_EQ(keywords(dialog), (Texts{"sell", "BUY"}));
        EXPECT_FALSE(IsWindowEnabled(item(dialog, IDC_KEYWORD_COLUMN)));
        push(dialog, IDC_KEYWORD_COLUMN_UNLOCK);
        EXPECT_TRUE(IsWindowEnabled(item(dialog, IDC_KEYWORD_COLUMN)));
        choose(dialog, IDC_KEYWORD_COLUMN, "Name");
    });
    ASSERT_TRUE(run.result);
    EXPECT_EQ(appearanceText(*run.result), "FFFFFF,10,Tahoma,9,0,sell,10,buy,10,");
    ASSERT_EQ(run.messages.size(), 3u);
    EXPECT_EQ(run.messages[1], "Enter text to add a new keyword to list");
    EXPECT_EQ(run.messages[2], "A keyword cannot contain commas or control characters");
}

TEST(Appearance, ColorsAndFontAreChosenInDialogsOfTheirOwn) {
    const MainFrame frame;
    const DialogTrap trap([](HWND dialog) {
        if (item(dialog, IDC_APPEARANCE_PROPERTY) != nullptr) {
            push(dialog, IDC_APPEARANCE_COLOR);
            choose(dialog, IDC_APPEARANCE_PROPERTY, "Text");
            push(dialog, IDC_APPEARANCE_FONT);
        } else if (item(dialog, IDC_FONT_SIZE) != nullptr) {
            choose(dialog, IDC_FONT_FACE, "Tahoma");
            choose(dialog, IDC_FONT_SIZE, "22");
        } else {
            for (const int part : {706, 707, 708})  // red, green, blue
                SetWindowTextA(item(dialog, part), std::to_string(part - 700).c_str());
        }
    });
    const auto result = askAppearance(frame.handle(), question());
    ASSERT_TRUE(result);
    EXPECT_EQ(appearanceText(*result), "80706,10,Tahoma,22,1,tab,FF,");
}

TEST(Appearance, WhatCannotBeCustomizedIsDisabled) {
    AppearanceQuestion fixed = question();
    fixed.customizable = false;
    runDialog(fixed, [](HWND dialog) {
        for (const int id : {IDC_APPEARANCE_PROPERTY, IDC_KEYWORD_COLUMN, IDC_APPEARANCE_COLOR,
                             IDC_KEYWORD_COLUMN_UNLOCK, IDC_KEYWORD_TEXT, IDC_KEYWORD_ADD})
            EXPECT_FALSE(IsWindowEnabled(item(dialog, id))) << id;
    });
    EXPECT_EQ(runDialog(
                  question(), [](HWND dialog) { addKeyword(dialog, "x"); }, IDCANCEL)
                  .result,
              std::nullopt);
}

// Arial is chosen where it is installed; without a selection the caller's face stays.
TEST(Appearance, TheFontDialogBeginsWithArialAndEight) {
    const MainFrame frame;
    for (const bool selects : {true, false}) {
        Texts faces;
        const DialogTrap trap([&](HWND dialog) {
            const HWND combo = item(dialog, IDC_FONT_FACE);
            char face[LF_FACESIZE]{};
            for (int i = 0; SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(i),
                                         reinterpret_cast<LPARAM>(face)) >= 0;
                 ++i)
                faces.emplace_back(face);
            EXPECT_EQ(textOf(item(dialog, IDC_FONT_SIZE)), "8");
            EXPECT_EQ(SendMessageA(item(dialog, IDC_FONT_SIZE), CB_GETCOUNT, 0, 0), 16);
            if (!selects) SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        });
        CFontSettingDlg dialog("Own Face", "33");
        EXPECT_TRUE(dialog.ask(frame.handle()));
        const bool hasArial = std::ranges::find(faces, "Arial") != faces.end();
        EXPECT_EQ(dialog.GetFontName(), selects && hasArial ? "Arial" : "Own Face");
        EXPECT_EQ(dialog.GetFontSize(), "8");
        EXPECT_GT(faces.size(), 3u);
        EXPECT_EQ(std::set(faces.begin(), faces.end()).size(), faces.size()) << "each once";
    }
}

// ---- The list ----

constexpr char kSection[] = "CUSTOMIZE_LISTS";
constexpr char kKey[] = "Maker checker List-4000";

int rowHeight() {
    RECT place{LVIR_BOUNDS, 0, 0, 0};
    SendMessageA(mainList(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&place));
    return static_cast<int>(place.bottom - place.top);
}

// Whether a colour shows in a row of the main list.
bool shows(int row, COLORREF color) {
    RedrawWindow(mainList(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    RECT place{LVIR_BOUNDS, 0, 0, 0};
    SendMessageA(mainList(), LVM_GETITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&place));
    const HDC dc = GetDC(mainList());
    bool found = false;
    for (LONG y = place.top; y < place.bottom && !found; ++y)
        for (LONG x = 0; x < 300 && !found; ++x) found = GetPixel(dc, x, y) == color;
    ReleaseDC(mainList(), dc);
    return found;
}

class AppearanceOfList {
public:
    AppearanceOfList() {
        open.plugin.publish(pending("1", "340", {{31003, "III sell III"}}));
        open.plugin.publish(pending("2", "340", {{31003, "III Buy III"}}));
        pump();
    }
    OpenWorkbench open;
};

TEST(Appearance, AppliesToTheListIsStoredAndComesBack) {
    const StoredSetting stored(kSection, kKey, nullptr);
    constexpr COLORREF background = RGB(0, 0, 64);
    constexpr COLORREF red = RGB(255, 0, 0);
    const char* const text = "400000,FFFFFF,Tahoma,24,0,buy,FF,";
    int plain = 0;
    {
        const AppearanceOfList list;
        plain = rowHeight();
        DialogTrap trap([](HWND dialog) {
            if (item(dialog, IDC_FONT_SIZE) != nullptr) {
                choose(dialog, IDC_FONT_FACE, "Tahoma");
                return choose(dialog, IDC_FONT_SIZE, "24");
            }
            if (item(dialog, IDC_APPEARANCE_PROPERTY) == nullptr) {
                const bool first = GetPropA(GetWindow(dialog, GW_OWNER), "second") == nullptr;
                const bool key = GetPropA(GetWindow(dialog, GW_OWNER), "keyword") != nullptr;
                SetWindowTextA(item(dialog, 706), first ? "0" : "255");
                SetWindowTextA(item(dialog, 707), first || key ? "0" : "255");
                SetWindowTextA(item(dialog, 708), first ? "64" : key ? "0" : "255");
                return;
            }
            EXPECT_EQ(textOf(dialog), "Customize Appearance :Maker-Checker");
            push(dialog, IDC_APPEARANCE_COLOR);
            SetPropA(dialog, "second", dialog);
            choose(dialog, IDC_APPEARANCE_PROPERTY, "Text");
            push(dialog, IDC_KEYWORD_COLUMN_UNLOCK);
            choose(dialog, IDC_KEYWORD_COLUMN, "Entity Name");
            SetPropA(dialog, "keyword", dialog);
            push(dialog, IDC_APPEARANCE_COLOR);
            addKeyword(dialog, "BUY");
            RemovePropA(dialog, "keyword");
            push(dialog, IDC_APPEARANCE_COLOR);
            RemovePropA(dialog, "second");
            push(dialog, IDC_APPEARANCE_FONT);
        });
        BYTE before[256]{}, down[256]{};
        GetKeyboardState(before);
        down[VK_CONTROL] = down[VK_SHIFT] = 0x80;
        SetKeyboardState(down);
        SendMessageA(mainList(), WM_KEYDOWN, 'C', 1);
        SetKeyboardState(before);
        EXPECT_EQ(stored.text(), text);
        EXPECT_GT(rowHeight(), 2 * plain);
    }
    const AppearanceOfList list;
    EXPECT_GT(rowHeight(), 2 * plain);
    EXPECT_EQ(SendMessageA(mainList(), LVM_GETBKCOLOR, 0, 0), static_cast<LRESULT>(background));
    selectRows(mainList(), {});
    EXPECT_TRUE(shows(0, background));
    EXPECT_TRUE(shows(0, RGB(255, 255, 255)));
    EXPECT_FALSE(shows(0, red)) << "no keyword";
    EXPECT_TRUE(shows(1, red));
    SetFocus(mainList());
    selectRows(mainList(), {1});
    EXPECT_FALSE(shows(1, red)) << "the selection's colours win";
    EXPECT_TRUE(shows(1, GetSysColor(COLOR_HIGHLIGHT)));
}

TEST(Appearance, ValuesThatCannotBeUsedLeaveTheListAsItIs) {
    int plain = 0;
    const struct {
        const char* text;
        bool customized;
    } cases[] = {{nullptr, false},
                 {"400000,FFFF", false},
                 {"xyz,0,Tahoma,24", false},
                 {"400000,0,No Such Face,8,99,buy,FF,", true},
                 {"400000,0,Tahoma,big,0,buy", true}};
    for (const auto& each : cases) {
        const StoredSetting stored(kSection, kKey, each.text);
        const AppearanceOfList list;
        if (plain == 0) plain = rowHeight();
        const auto background =
            static_cast<COLORREF>(SendMessageA(mainList(), LVM_GETBKCOLOR, 0, 0));
        EXPECT_EQ(background, each.customized ? RGB(0, 0, 64) : GetSysColor(COLOR_WINDOW))
            << each.text;
        EXPECT_NEAR(rowHeight(), plain, 6) << each.text;
        EXPECT_FALSE(shows(1, RGB(255, 0, 0)));
    }
}

}  // namespace
