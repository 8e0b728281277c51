// A list that takes what the appearance and font dialogs give, stores it and has it again.
#include "tests/windows/test_host.h"

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

int rowHeight() {
    return fw::heightOf(cellRect(mainList(), 0));
}

// Whether a colour shows in a row of the main list.
bool shows(int row, COLORREF color) {
    RedrawWindow(mainList(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const RECT place = cellRect(mainList(), row);
    for (LONG y = place.top; y < place.bottom; ++y)
        for (LONG x = 0; x < 300; ++x)
            if (pixel(mainList(), static_cast<int>(x), static_cast<int>(y)) == color) return true;
    return false;
}

struct SellAndBuy : OpenWorkbench {
    SellAndBuy() {
        plugin.publish(pending("1", "340", {{31003, "III sell III"}}));
        plugin.publish(pending("2", "340", {{31003, "III Buy III"}}));
        pump();
    }
};

TEST(List, AnAppearanceAppliesToTheListIsStoredAndComesBack) {
    const StoredSetting stored("CUSTOMIZE_LISTS", "Maker checker List-4000", nullptr);
    constexpr COLORREF background = RGB(0, 0, 64);
    constexpr COLORREF red = RGB(255, 0, 0);
    const char* const text = "400000,FFFFFF,Tahoma,24,0,buy,FF,";
    int plain = 0;
    {
        const SellAndBuy open;
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
    const SellAndBuy open;
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
