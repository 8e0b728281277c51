// The pane on monitors of different dots per inch.
#include "console/holdings.h"
#include "framework/model/dots.h"
#include "framework/platform.h"
#include "tests/windows/screen_dpi.h"
#include "tests/windows/test_host.h"

namespace {

int fontHeight(HWND window) {
    LOGFONTA font{};
    GetObjectA(fw::fontOf(window), sizeof font, &font);
    return static_cast<int>(-font.lfHeight);
}

int tipHeight(int dpi) {
    LOGFONTW font{};
    GetObjectW(fw::systemFont(&NONCLIENTMETRICSW::lfStatusFont, dpi).get(), sizeof font, &font);
    return static_cast<int>(-font.lfHeight);
}

// What this program's own windows are told, for a scope.
struct AnsweredDots {
    AnsweredDots() : before(std::exchange(fw::newerWindows().dpiForWindow, ScreenDpi::answer)) {}
    ~AnsweredDots() { fw::newerWindows().dpiForWindow = before; }
    decltype(&GetDpiForWindow) before;
};

// A workbench on a screen of so many dots, with a mark in a row and the details of limits.
class Workbench {
public:
    explicit Workbench(int dpi, bool floats = false) : m_screen(dpi) {
        m_plugin.init();
        m_frame = std::make_unique<MainFrame>();
        m_frame->remember(m_place);
        SetWindowPos(m_frame->handle(), nullptr, 10, 10, fw::toPixels(560, dpi),
                     fw::toPixels(400, dpi), SWP_NOZORDER);
        m_plugin.hotKey();
        for (const char* key : {"6", "7", "8"})
            m_plugin.publish(pending(key, "360", {{54001, "C1"}}));
        pump();
        if (floats) floatPane();
        for (const int row : {0, 1}) {
            hand::doubleClickRow(mainList(), row);
            answer(limitsAnswer(std::to_string(6 + row)));
        }
        m_plugin.publish(pending("6", "360", {{54001, "C2"}}));  // a mark: changed since
        pump();
        hand::moveTo({1270, 890});
        host().sent.clear();
    }
    void moveTo(int dpi) {
        const HWND top = GetAncestor(findPane(), GA_ROOT);
        const RECT now = onScreen(top);
        if (m_width.pixels == 0) {
            m_width = {fw::widthOf(now), ScreenDpi::now()};
            m_height = {fw::heightOf(now), ScreenDpi::now()};
        }
        ScreenDpi::moveTo(
            dpi, top, {now.left, now.top, now.left + m_width.at(dpi), now.top + m_height.at(dpi)});
    }

private:
    const AnsweredDots m_dots;
    fw::Measure m_width, m_height;  // of the top-level window, as it was first
    LoadedPlugin m_plugin;
    const ScreenDpi m_screen;
    std::optional<fw::DockPosition> m_place = fw::DockPosition{kDockTop, 380};
    std::unique_ptr<MainFrame> m_frame;
};

TEST(Screens, ThePaneIsTheSameOnAScreenWhereverItWasBefore) {
    for (const bool floats : {false, true}) {
        SCOPED_TRACE(floats ? "floating" : "docked");
        std::map<int, std::vector<DWORD>> seen;
        if (!floats) {
            const Workbench fresh(144);
            seen[144] = picture(findPane());
        }
        Workbench open(96, floats);
        seen[96] = picture(findPane());
        EXPECT_GT(std::set<DWORD>(seen[96].begin(), seen[96].end()).size(), 5u);
        const int column = columnWidth(0), field = columnWidth(0, details());
        zek::Holdings before{};
        for (const int dpi : {144, 192, 120, 96, 192, 144, 120, 96}) {
            SCOPED_TRACE(dpi);
            open.moveTo(dpi);
            const std::vector<DWORD> now = picture(findPane());
            const auto [known, isNew] = seen.try_emplace(dpi, now);
            EXPECT_TRUE(isNew || known->second == now) << "another picture";
            for (const HWND window : {mainList(), details(), filterEdit(0), button("Accept")})
                EXPECT_EQ(fontHeight(window), MulDiv(8, dpi, 72)) << classOf(window);
            EXPECT_GE(tips().size(), 3u) << "of the buttons and of both lists' captions";
            for (const HWND tip : tips()) EXPECT_EQ(fontHeight(tip), tipHeight(dpi));
            const TEXTMETRICA font = fw::metricsOf(fw::fontOf(mainList()), mainList());
            EXPECT_EQ(hand::cell(mainList(), 1).y - hand::cell(mainList(), 0).y,
                      font.tmHeight + font.tmExternalLeading + 1);
            EXPECT_EQ(SendMessageA(filterBox(0), CB_GETITEMHEIGHT, 0, 0), font.tmHeight)
                << "a line of a drop-down";
            EXPECT_EQ(columnWidth(0), fw::toPixels(column, dpi));
            EXPECT_EQ(columnWidth(0, details()), fw::toPixels(field, dpi));
            if (dpi != 96) continue;
            const zek::Holdings held = zek::countHoldings();
            EXPECT_EQ(before.gdiObjects != 0 ? zek::grown(before, held) : "", "");
            before = held;
        }
    }
}

TEST(Screens, WhatIsOpenEndsAsIfTheFocusHadLeft) {
    const StoredProfile profile{nullptr, kDetailsList};
    Workbench open(96);
    constexpr int kNumber = 2;
    const int choice = rowCount(details()) - 1;

    hand::clickRow(mainList(), 0);
    const POINT row = hand::cell(mainList(), 1);
    hand::drag({onScreen(mainList()).right - 30, row.y}, row, false, [&] {
        EXPECT_EQ(selectedRows(), std::vector<int>{1});
        open.moveTo(192);
    });
    EXPECT_EQ(selectedRows(), std::vector<int>{0}) << "as before the marquee";
    open.moveTo(96);
    hand::doubleClickRow(mainList(), 1);
    answer(limitsAnswer("7"));
    host().sent.clear();

    edit(kNumber, "2500.129");
    open.moveTo(144);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(value(kNumber), "2500.13") << "kept";

    edit(kNumber, "12a");
    {
        const DialogTrap trap;
        open.moveTo(192);
        hand::waitUntil([&] { return !trap.texts.empty(); });
        EXPECT_EQ(trap.texts, Texts{"\"12a\" is not a number"});
    }
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(textOf(editor()), "12a");
    EXPECT_EQ(fontHeight(editor()), MulDiv(8, 192, 72));
    const RECT at = onScreen(editor());
    EXPECT_TRUE(PtInRect(&at, hand::cell(details(), kNumber, 1))) << "over its cell";
    hand::key(VK_ESCAPE);

    const std::string chosen = value(choice);
    hand::doubleClickRow(details(), choice, 1);
    hand::key(VK_DOWN);
    ASSERT_NE(editor(), nullptr);
    open.moveTo(120);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(value(choice), chosen) << "nothing was taken from the drop-down";

    hand::click(filterEdit(1));
    hand::type("x");
    hand::key(VK_F4);
    open.moveTo(144);
    EXPECT_FALSE(isDropped(1));
    EXPECT_EQ(textOf(filterEdit(1)), "x") << "what was being typed";
    EXPECT_EQ(GetFocus(), filterEdit(1));

    const LONG barAt = inParent(bar()).top;
    hand::drag(hand::middle(bar()), {200, 300}, false, [&] { open.moveTo(96); });
    open.moveTo(144);
    EXPECT_EQ(inParent(bar()).top, barAt);

    const int width = columnWidth(0, details());
    const POINT divider = captionPoint(0, details(), 1);
    hand::drag(divider, {divider.x + 40, divider.y}, false, [&] { open.moveTo(192); });
    open.moveTo(144);
    EXPECT_NEAR(columnWidth(0, details()), width + 40, 1) << "as far as it was dragged";
    EXPECT_EQ(takeSent(), Texts{}) << "nothing is decided";
}

TEST(Screens, WhatIsStoredIsOf96Dots) {
    StoredProfile profile;
    const StoredSetting bar("VOSK_DIALOG_BAR_SIZE", "1000", "500,400");
    {
        const Workbench open(144, true);
        RECT client{};
        GetClientRect(findPane(), &client);
        EXPECT_EQ(client.right, 750);
        EXPECT_EQ(client.bottom, 600);
        SetFocus(mainList());
        hand::key(VK_OEM_PERIOD, hand::kCtrlShift);
        EXPECT_EQ(columnWidth(0), fw::toPixels(83, 144)) << "8 wider";
        const POINT divider = captionPoint(1, mainList(), 1);
        hand::drag(divider, {divider.x + 37, divider.y});
        pump();
    }
    EXPECT_EQ(bar.text(), "500,400");
    EXPECT_EQ(profile.text(), "0,0,83,1,1,100,2,2,75,3,3,75,4,4,75,5,5,75");
}

}  // namespace
