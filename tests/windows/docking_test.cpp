// Docking: the drag with its preview, hidden and back by the hot key, and a frame without a site.
#include "sdk/docking.h"
#include "tests/windows/test_host.h"

namespace {

RECT inFrame(const MainFrame& frame, HWND window) {
    RECT place = onScreen(window);
    MapWindowPoints(nullptr, frame.handle(), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// On the caption strip of the pane, or of what floats with it.
POINT grip(HWND window = findPane()) {
    const RECT place = onScreen(window);
    return {place.left + 100, place.top + 8};
}

POINT onFrame(const MainFrame& frame, LONG x, LONG y) {
    POINT at{x, y};
    ClientToScreen(frame.handle(), &at);
    return at;
}

HWND preview() {
    return FindWindowA("MakerChecker.DropPreview", nullptr);
}

bool floats() {
    return (GetWindowLongPtrA(GetParent(findPane()), GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0;
}

TEST(Pane, ADragShowsWhereThePaneWillBeAndEscForgetsIt) {
    const OpenWorkbench open;
    const MainFrame& frame = *open.frame;
    const RECT pane = onScreen(findPane());
    hand::drag({pane.left + 300, pane.bottom + 2}, {pane.left + 300, pane.bottom - 60});
    const RECT client = frame.clientRect();
    const POINT drops[] = {{client.right / 2, 3},
                           {3, client.bottom / 2},
                           {client.right / 2, client.bottom - 3},
                           {600, 400}};
    for (const POINT drop : drops) {
        const RECT before = inFrame(frame, findPane());
        const POINT target = onFrame(frame, drop.x, drop.y);
        hand::drag(grip(), target, true, [] { EXPECT_NE(preview(), nullptr); });
        EXPECT_EQ(preview(), nullptr);
        const RECT after = inFrame(frame, findPane());
        EXPECT_TRUE(EqualRect(&before, &after));

        RECT promised{};
        hand::drag(grip(), target, false, [&] { promised = inFrame(frame, preview()); });
        EXPECT_EQ(preview(), nullptr);
        const RECT kept = inFrame(frame, floats() ? GetParent(findPane()) : findPane());
        EXPECT_TRUE(EqualRect(&promised, &kept)) << drop.x << ", " << drop.y;
        if (floats()) hand::doubleClick(grip(GetParent(findPane())));
        hand::drag(grip(), onFrame(frame, client.right / 2, 3));
    }
}

TEST(Pane, FloatsAgainWhereTheHandLeftIt) {
    const OpenWorkbench open;
    floatPane();
    const HWND window = GetParent(findPane());
    const auto dockAndFloat = [&] {
        hand::doubleClick(grip(window));
        ASSERT_FALSE(floats());
        hand::doubleClick(grip());
        ASSERT_TRUE(floats());
    };
    const POINT from = grip(window);
    RECT left = onScreen(window);
    hand::drag(from, {from.x + 70, from.y + 45});
    OffsetRect(&left, 70, 45);
    RECT place = onScreen(window);
    EXPECT_TRUE(EqualRect(&place, &left)) << "moved";
    dockAndFloat();
    place = onScreen(window);
    EXPECT_TRUE(EqualRect(&place, &left)) << "moved, docked";

    hand::drag({left.right - 2, left.bottom - 2}, {left.right + 28, left.bottom - 42});
    left.right += 30, left.bottom -= 40;
    dockAndFloat();
    place = onScreen(window);
    EXPECT_TRUE(EqualRect(&place, &left)) << "resized, docked";
}

TEST(Pane, FloatsInSightThoughItsMonitorIsGone) {
    OpenWorkbench open;
    floatPane();
    const HWND window = GetParent(findPane());
    const std::function<void()> ways[] = {[&] {
                                              SendMessageA(window, WM_CLOSE, 0, 0);
                                              open.plugin.hotKey();
                                          },
                                          [&] {
                                              SendMessageA(window, WM_NCLBUTTONDBLCLK, HTCAPTION,
                                                           0);
                                              hand::doubleClick(grip());
                                          }};
    for (const auto& comeBack : ways) {
        const RECT before = onScreen(window);
        SetWindowPos(window, nullptr, 5000, -3000, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        SendMessageA(window, WM_ENTERSIZEMOVE, 0, 0);
        SendMessageA(window, WM_EXITSIZEMOVE, 0, 0);
        comeBack();
        pump();
        EXPECT_TRUE(floats());
        const RECT now = onScreen(window);
        EXPECT_NE(MonitorFromPoint({now.left + 50, now.top + 5}, MONITOR_DEFAULTTONULL), nullptr);
        EXPECT_EQ(now.right - now.left, before.right - before.left);
    }
}

TEST(Pane, IsHiddenWhenClosedUntilTheHotKey) {
    OpenWorkbench open;
    for (const bool floating : {false, true}) {
        if (floating) hand::drag(grip(), onFrame(*open.frame, 600, 400));
        const StoredSetting size("VOSK_DIALOG_BAR_SIZE", "1000", nullptr);
        if (floating)
            SendMessageA(GetParent(findPane()), WM_CLOSE, 0, 0);
        else
            SendMessageA(findPane(), WM_NCLBUTTONDOWN, HTCLOSE, 0);
        ASSERT_NE(findPane(), nullptr);
        EXPECT_FALSE(IsWindowVisible(findPane()));
        EXPECT_EQ(open.frame->inner().height(), static_cast<int>(open.frame->clientRect().bottom));
        EXPECT_EQ(size.text().empty(), !floating) << "the floating size is kept when it closes";
        open.plugin.publish(pending(floating ? "2" : "1", "339"));
        open.plugin.hotKey();
        pump();
        EXPECT_TRUE(IsWindowVisible(findPane()));
        EXPECT_EQ(floats(), floating);
        EXPECT_EQ(rowCount(mainList()), floating ? 2 : 1);
    }
    EXPECT_EQ(host().subscriptions.size(), 1u);
}

// A frame that keeps where panes were gives it back to the first that docks.
TEST(Pane, DocksAtTheSideThatItsFrameRemembers) {
    std::optional<fw::DockPosition> kept;
    for (const unsigned side : {kDockTop, kDockRight}) {
        LoadedPlugin plugin;
        plugin.init();
        MainFrame frame;
        frame.remember(kept);
        plugin.hotKey();
        pump();
        ASSERT_TRUE(kept);
        EXPECT_EQ(kept->side, side);
        const RECT client = frame.clientRect();
        if (side == kDockTop) {
            hand::drag(grip(), onFrame(frame, client.right - 3, client.bottom / 2));
            EXPECT_EQ(kept->side, kDockRight);
            kept->extent = 400;
        } else {
            EXPECT_EQ(client.right - inFrame(frame, findPane()).left, 400);
        }
    }
}

}  // namespace
