// Texts and colours that can be read: exact edges, dark schemes, high contrast.
#include <algorithm>
#include <array>

#include "framework/model/contrast.h"
#include "tests/windows/replaced_import.h"
#include "tests/windows/test_host.h"

namespace {

// The last column of a cell, from its right edge, that is not its background.
int lastInk(HWND list, int row, int item) {
    const RECT cell = cellRect(list, row, item);
    const COLORREF ground = pixel(list, cell.right - 2, cell.top + 2);
    for (int x = cell.right - 2; x > cell.left; --x)
        for (int y = cell.top + 2; y < cell.bottom - 2; ++y)
            if (pixel(list, x, y) != ground) return cell.right - x;
    return -1;
}

// Whole texts and cut ones, in bold and not.
TEST(Screens, RightEdgesAreExact) {
    OpenWorkbench open;
    const char* const makers[] = {
        "1", "WA 11", "Tyo 31", "iiii421", "MMMMMMMMMMMMMMMM1", "Tllllllllllllllllllllllllllll1"};
    for (int row = 0; row < 6; ++row)
        open.plugin.publish(
            pending(std::to_string(row), "340", {{31003, "U"}, {54247, makers[row]}}));
    pump();
    std::set<int> whole, cut;
    for (int row = 0; row < 6; ++row) {
        const int edge = lastInk(mainList(), row, 3);
        (row < 4 ? whole : cut).insert(edge);
        EXPECT_NE(edge, -1);
    }
    EXPECT_EQ(whole.size(), 1u) << testing::PrintToString(whole);
    EXPECT_EQ(cut.size(), 1u) << testing::PrintToString(cut);
}

// The emulator knows no high contrast.
int s_asked = 0;
BOOL WINAPI answerHighContrast(UINT action, UINT size, void* result, UINT flags) {
    if (action != SPI_GETHIGHCONTRAST) return SystemParametersInfoW(action, size, result, flags);
    ++s_asked;
    static_cast<HIGHCONTRASTW*>(result)->dwFlags = HCF_HIGHCONTRASTON;
    return TRUE;
}

// White on black, as the black scheme has it, for a scope.
class BlackScheme {
public:
    BlackScheme() { apply({0, 0xFFFFFF, 0, 0xFFFFFF, 0xFFEB1A, 0, 0xFFFF00}); }
    ~BlackScheme() { apply(m_before); }

private:
    static constexpr int kElements[] = {COLOR_WINDOW,  COLOR_WINDOWTEXT, COLOR_BTNFACE,
                                        COLOR_BTNTEXT, COLOR_HIGHLIGHT,  COLOR_HIGHLIGHTTEXT,
                                        COLOR_HOTLIGHT};
    using Colors = std::array<COLORREF, std::size(kElements)>;
    static Colors present() {
        Colors colors;
        std::ranges::transform(kElements, colors.begin(), GetSysColor);
        return colors;
    }
    static void apply(const Colors& colors) {
        SetSysColors(static_cast<int>(std::size(kElements)), kElements, colors.data());
        pump();
        SendMessageA(GetAncestor(findPane(), GA_ROOT), WM_SYSCOLORCHANGE, 0, 0);
        pump();
    }
    const Colors m_before = present();
};

// The system's two colours and nothing between, docked and floating; a dark scheme without high
// contrast tints a changed value, and its text stays readable.
TEST(Screens, ChangedValuesFollowTheScheme) {
    OpenWorkbench open;
    open.openLimits();
    const auto ground = [] {
        const RECT cell = cellRect(details(), 2, 1);
        return pixel(details(), cell.left + 4, cell.top + 2);
    };
    const COLORREF light = ground();
    for (const bool floating : {false, true}) {
        if (floating) floatPane();
        {
            const BlackScheme black;
            EXPECT_NE(ground(), 0u) << "the changed value is tinted";
            EXPECT_GE(fw::contrast(ground(), RGB(255, 255, 255)), fw::kReadable);
        }
        const ReplacedImport system("SystemParametersInfoW", answerHighContrast);
        ASSERT_TRUE(system.found());
        const BlackScheme black;
        EXPECT_EQ(ground(), 0u);
        s_asked = 0;
        RedrawWindow(findPane(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        EXPECT_EQ(s_asked, 0) << "never while painting";
    }
    SendMessageA(GetAncestor(findPane(), GA_ROOT), WM_SETTINGCHANGE, 0, 0);
    pump();
    EXPECT_EQ(ground(), light);
}

}  // namespace
