// The holder frame with its bars, titles and settings, in a window of its own; and the pane's
// lay-out in the real plug-in.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "frames/holder_frame.h"
#include "settings/settings_store.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

namespace fs = std::filesystem;

class ScratchFiles final : public CProfileFiles {
public:
    ScratchFiles() {
        fs::remove_all(root);
        fs::create_directories(root / "Ostravine");
    }
    ~ScratchFiles() override { fs::remove_all(root); }
    std::string applicationData() override { return root.string(); }
    std::string content() const {
        std::ifstream file(root / "Ostravine" / "VoskTrader" / "UserSetting.ini", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    const fs::path root =
        fs::temp_directory_path() / ("frames" + std::to_string(GetCurrentProcessId()));
};

RECT inParent(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// A holder with two plain windows, 400 pixels along its direction.
class Frames : public testing::Test {
protected:
    void open(CVTHolderFrame::Direction direction = CVTHolderFrame::Direction::rows) {
        rows = direction == CVTHolderFrame::Direction::rows;
        holder = std::make_unique<CVTHolderFrame>(store, direction);
        const RECT place = rows ? RECT{0, 0, 300, 406} : RECT{0, 0, 406, 300};
        ASSERT_TRUE(holder->create(host.handle(), place, 1024));
        std::vector<HeldView> views;
        for (const char* name : {"Upper", "Lower"})
            views.push_back(
                {CreateWindowExA(WS_EX_CLIENTEDGE, "Static", name, WS_CHILD | WS_VISIBLE, 0, 0, 0,
                                 0, holder->handle(), nullptr, nullptr, nullptr),
                 name, std::string(name) + " key"});
        upper = views[0].window;
        holder->setViews(std::move(views));
        bar = holder->bar(0);
    }
    // The start of the bar: what the upper view and its frame take.
    int split() const {
        const RECT place = inParent(bar);
        return static_cast<int>(rows ? place.top : place.left);
    }
    void send(UINT message, int along) const {
        const LPARAM at = rows ? MAKELPARAM(20, along) : MAKELPARAM(along, 20);
        SendMessageA(bar, message, MK_LBUTTON, at);
    }

    ScratchFiles files;
    CSettingsStore store{files};
    MainFrame host{false};
    bool rows = true;
    std::unique_ptr<CVTHolderFrame> holder;
    HWND upper = nullptr, bar = nullptr;
};

TEST_F(Frames, ABarIsDraggedWithLiveFeedbackAndEscPutsItBack) {
    for (const auto direction :
         {CVTHolderFrame::Direction::rows, CVTHolderFrame::Direction::columns}) {
        open(direction);
        ASSERT_EQ(split(), 200);
        send(WM_LBUTTONDOWN, 2);
        send(WM_MOUSEMOVE, 52);
        EXPECT_EQ(split(), 250) << "while the button is still down";
        send(WM_MOUSEMOVE, 22);
        EXPECT_EQ(split(), 270);
        send(WM_LBUTTONUP, 2);
        EXPECT_EQ(split(), 270);
        send(WM_LBUTTONDOWN, 2);
        send(WM_MOUSEMOVE, 999);
        EXPECT_EQ(split(), 310) << "the lower view keeps its least size";
        ReleaseCapture();  // what Esc does
        EXPECT_EQ(split(), 270);
        send(WM_LBUTTONDBLCLK, 2);
        EXPECT_EQ(split(), 200);
        holder.reset();
    }
}

TEST_F(Frames, ABarWithTheFocusObeysItsKeys) {
    open();
    const struct {
        WPARAM key;
        int at;
    } keys[] = {{VK_DOWN, 208}, {VK_UP, 200},  {VK_RIGHT, 200}, {VK_HOME, 90},
                {VK_UP, 90},    {VK_END, 310}, {VK_UP, 302},    {VK_SPACE, 200}};
    for (const auto& each : keys) {
        SendMessageA(bar, WM_KEYDOWN, each.key, 1);
        EXPECT_EQ(split(), each.at) << each.key;
    }
}

// Sizes are written when the frame goes, and what is written is never applied.
TEST_F(Frames, SizesAreStoredAndLeftWhereTheyAre) {
    open();
    send(WM_LBUTTONDOWN, 2);
    send(WM_MOUSEMOVE, 52);
    send(WM_LBUTTONUP, 2);
    EXPECT_EQ(files.content(), "");
    holder->move({0, 0, 300, 806});  // the shares stay
    DestroyWindow(holder->handle());
    EXPECT_EQ(files.content(),
              "[HOLDER_FRAME_SPLITTER_SIZE]\r\nUpper key=500\r\nLower key=300\r\n");
    open();
    EXPECT_EQ(split(), 200);
}

TEST_F(Frames, AViewStandsInItsFlatFrameWithoutABorderOfItsOwn) {
    open();
    const RECT view = inParent(upper);
    EXPECT_EQ(view.left, 1);
    EXPECT_EQ(view.right, 299);
    EXPECT_EQ(view.bottom, 199);
    EXPECT_GT(view.top, 10) << "below the title";
    EXPECT_EQ(GetWindowLongPtrA(upper, GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
    for (const int height : {150, 20, 0, 406}) holder->move({0, 0, 300, height});
    EXPECT_EQ(split(), 200);
}

// ---- In the plug-in ----

TEST(PaneLayout, ButtonsAndListsStayInSightInASmallPane) {
    const OpenWorkbench open;
    const HWND pane = findPane();
    for (const int width : {1000, 400, 240, 120, 40}) {
        SetWindowPos(pane, nullptr, 0, 0, width, 500, SWP_NOMOVE | SWP_NOZORDER);
        RECT client{}, overlap{};
        GetClientRect(pane, &client);
        const RECT lists = inParent(GetParent(mainList()));
        EXPECT_GE(lists.top, 55);
        EXPECT_LE(lists.bottom, client.bottom);
        for (const char* text : {"Accept", "Reject", "Update", "Recover"}) {
            const RECT place = inParent(button(text));
            EXPECT_GE(place.left, 0) << text << width;
            EXPECT_LE(place.right, client.right) << text << width;
            EXPECT_FALSE(IntersectRect(&overlap, &place, &lists)) << text << width;
        }
    }
    SetWindowPos(pane, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
}

TEST(PaneLayout, AFloatingPaneKeepsItsSizeFromSessionToSession) {
    const std::string path = settingsStore().GetUserSettingPath();
    fs::create_directories(fs::path(path).parent_path());
    const auto stored = [&] {
        char value[32]{};
        GetPrivateProfileStringA("VOSK_DIALOG_BAR_SIZE", "1000", "", value, sizeof value,
                                 path.c_str());
        return std::string(value);
    };
    WritePrivateProfileStringA("VOSK_DIALOG_BAR_SIZE", "1000", "640,420", path.c_str());
    { const OpenWorkbench docked; }
    EXPECT_EQ(stored(), "640,420") << "a pane that never floated says nothing";
    {
        const OpenWorkbench open;
        SendMessageA(findPane(), WM_NCLBUTTONDBLCLK, HTCAPTION, 0);
        RECT client{};
        GetClientRect(findPane(), &client);
        EXPECT_EQ(client.right, 640);
        EXPECT_EQ(client.bottom, 420);
        SetWindowPos(GetParent(findPane()), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    }
    EXPECT_EQ(stored(), "220,320") << "its least size";
    WritePrivateProfileStringA("VOSK_DIALOG_BAR_SIZE", "1000", nullptr, path.c_str());
}

}  // namespace
