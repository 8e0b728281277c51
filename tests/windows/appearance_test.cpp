// A list that takes what the appearance and font dialogs give, stores it and has it again.
#include <gtest/gtest.h>

#include "listctrl/dialogs/customized_appearance.h"
#include "res/resource_ids.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

using Texts = std::vector<std::string>;

HWND item(HWND dialog, int id) {
    return GetDlgItem(dialog, id);
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
    for (LONG y = place.top; y < place.bottom; ++y)
        for (LONG x = 0; x < 300; ++x)
            if (pixel(mainList(), static_cast<int>(x), static_cast<int>(y)) == color) return true;
    return false;
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
        hand::clickRow(mainList(), 0);
        hand::key('C', hand::kCtrlShift);
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

}  // namespace
