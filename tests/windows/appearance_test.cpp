// A list that takes what the appearance and font dialogs give, stores it and has it again.
#include <gtest/gtest.h>

#include "listctrl/dialogs/customized_appearance.h"
#include "res/resource_ids.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

HWND item(int id) {
    return GetDlgItem(GetActiveWindow(), id);
}

// Takes the entry with this text, as the mouse would.
void choose(int id, const char* entry) {
    const auto index = SendMessageA(item(id), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(entry));
    ASSERT_GE(index, 0) << entry;
    SendMessageA(item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageA(GetActiveWindow(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(item(id)));
}

hand::Step clicking(int id) {
    return [id] { hand::click(item(id)); };
}

// In the platform's dialog.
hand::Step takingColor(const char* red, const char* green, const char* blue) {
    return [=] {
        SetWindowTextA(item(706), red);
        SetWindowTextA(item(707), green);
        SetWindowTextA(item(708), blue);
        hand::click(item(IDOK));
    };
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
        hand::clickRow(mainList(), 0);
        hand::during([] { hand::key('C', hand::kCtrlShift); },
                     {[] {
                          EXPECT_EQ(textOf(GetActiveWindow()),
                                    "Customize Appearance :Maker-Checker");
                          hand::click(item(IDC_APPEARANCE_COLOR));
                      },
                      takingColor("0", "0", "64"),
                      [] {
                          choose(IDC_APPEARANCE_PROPERTY, "Text");
                          hand::click(item(IDC_KEYWORD_COLUMN_UNLOCK));
                      },
                      [] {
                          choose(IDC_KEYWORD_COLUMN, "Entity Name");
                          hand::click(item(IDC_APPEARANCE_COLOR));
                      },
                      takingColor("255", "0", "0"),
                      [] {
                          hand::click(item(IDC_KEYWORD_TEXT));
                          hand::type("BUY");
                          hand::click(item(IDC_KEYWORD_ADD));
                      },
                      clicking(IDC_APPEARANCE_COLOR), takingColor("255", "255", "255"),
                      clicking(IDC_APPEARANCE_FONT),
                      [] {
                          choose(IDC_FONT_FACE, "Tahoma");
                          choose(IDC_FONT_SIZE, "24");
                          hand::click(item(IDC_FONT_OK));
                      },
                      clicking(IDC_APPEARANCE_APPLY)});
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
