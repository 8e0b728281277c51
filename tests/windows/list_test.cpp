// The main list as a checker uses it: sorting, selecting, copying, exporting, fitting.
#include <gtest/gtest.h>

#include <cstdlib>

#include "sdk/host_services.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

HWND header() {
    return reinterpret_cast<HWND>(SendMessageA(mainList(), LVM_GETHEADER, 0, 0));
}

Texts column(int column) {
    Texts texts;
    for (int row = 0; row < rowCount(mainList()); ++row)
        texts.push_back(rowTexts(mainList(), row)[static_cast<std::size_t>(column)]);
    return texts;
}

RECT headerItem(int item) {
    RECT place{};
    SendMessageA(header(), HDM_GETITEMRECT, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&place));
    return place;
}

void clickHeader(int item) {
    const RECT place = headerItem(item);
    const LPARAM at = MAKELPARAM((place.left + place.right) / 2, place.top + 5);
    SendMessageA(header(), WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageA(header(), WM_LBUTTONUP, 0, at);
    pump();
}

int sortImage(int item) {
    HDITEMA info{};
    info.mask = HDI_IMAGE | HDI_FORMAT;
    SendMessageA(header(), HDM_GETITEMA, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&info));
    return (info.fmt & HDF_IMAGE) != 0 ? info.iImage : 0;
}

// The filter box of a column.
HWND filterBox(int item) {
    return GetDlgItem(header(), 5000 + item);
}
HWND filterEdit(int item) {
    return FindWindowExA(filterBox(item), nullptr, "Edit", nullptr);
}

void key(HWND focus, WPARAM virtualKey) {
    SetFocus(focus);
    PostMessageA(focus, WM_KEYDOWN, virtualKey, 1);
    pump();
}

// A key with modifiers, as the list sees it: their state is the thread's.
void keyWith(WPARAM virtualKey, std::initializer_list<int> modifiers) {
    BYTE before[256]{};
    GetKeyboardState(before);
    BYTE down[256]{};
    for (const int modifier : modifiers) down[modifier] = 0x80;
    SetFocus(mainList());
    SetKeyboardState(down);
    SendMessageA(mainList(), WM_KEYDOWN, virtualKey, 1);
    SetKeyboardState(before);
    pump();
}

class List : public testing::Test {
protected:
    List() {
        const struct {
            const char *key, *code, *user;
        } changes[] = {{"9", "340", "Bela"},
                       {"10", "339", "asha"},
                       {"100", "340", "Chitra"},
                       {"11", "365", "ASHOK"},
                       {"2", "340", "deepa"}};
        for (const auto& each : changes)
            open.plugin.publish(pending(each.key, each.code, {{31003, each.user}}));
    }
    OpenWorkbench open;
};

TEST_F(List, SortsByAClickOnACaption) {
    clickHeader(2);  // keys are numbers
    EXPECT_EQ(column(2), (Texts{"2", "9", "10", "11", "100"}));
    EXPECT_EQ(sortImage(2), 1);
    clickHeader(2);
    EXPECT_EQ(column(2), (Texts{"100", "11", "10", "9", "2"}));
    EXPECT_EQ(sortImage(2), 2);
    clickHeader(0);  // names are bytes
    EXPECT_EQ(column(0), (Texts{"ASHOK", "Bela", "Chitra", "asha", "deepa"}));
    EXPECT_EQ(sortImage(2), 0);

    // What arrives goes to its place.
    open.plugin.publish(pending("3", "340", {{31003, "Badri"}}));
    EXPECT_EQ(column(0), (Texts{"ASHOK", "Badri", "Bela", "Chitra", "asha", "deepa"}));
}

std::string clipboardText() {
    std::string text;
    if (OpenClipboard(nullptr) == 0) return "<closed>";
    if (const HANDLE data = GetClipboardData(CF_TEXT)) {
        text = static_cast<const char*>(GlobalLock(data));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
}

TEST_F(List, CopiesTheSelectedRowsWhereTheHostLetsIt) {
    selectRows(mainList(), {1, 3});
    keyWith('C', {VK_CONTROL});
    EXPECT_EQ(clipboardText(),
              "asha\tADD USER\t10\tMAKER1\t\t\t\r\nASHOK\tDELETE USER\t11\tMAKER1\t\t\t\r\n");
    host().restricted = {64169};
    selectRows(mainList(), {0});
    keyWith('C', {VK_CONTROL});
    EXPECT_EQ(clipboardText().substr(0, 4), "asha");
    host().restricted.clear();
    const HiddenExport hidden(kPuIsFunctionRestricted);
    keyWith('C', {VK_CONTROL});
    EXPECT_EQ(clipboardText().substr(0, 4), "asha");
}

TEST_F(List, ExportsWhatItShows) {
    char folder[MAX_PATH]{};
    GetTempPathA(sizeof folder, folder);
    SetEnvironmentVariableA("ZEK_EXPORT_DIR", folder);
    DialogTrap boxes;
    keyWith('E', {VK_SHIFT});
    EXPECT_EQ(boxes.texts, Texts{"File is generated"});
    SetEnvironmentVariableA("ZEK_EXPORT_DIR", "Z:\\no such folder");
    keyWith('E', {VK_SHIFT});
    SetWindowTextA(filterBox(0), "nobody");
    key(filterEdit(0), VK_RETURN);
    keyWith('E', {VK_SHIFT});
    EXPECT_EQ(boxes.texts,
              (Texts{"File is generated", "File generation Failed", "No Items in the List"}));
    host().restricted = {64169};
    keyWith('E', {VK_SHIFT});
    EXPECT_EQ(boxes.texts.size(), 3u);
    SetEnvironmentVariableA("ZEK_EXPORT_DIR", nullptr);
}

TEST_F(List, GridLinesComeAndGo) {
    const auto grid = [] {
        return (SendMessageA(mainList(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_GRIDLINES) !=
               0;
    };
    EXPECT_FALSE(grid());
    keyWith('G', {VK_SHIFT});
    EXPECT_TRUE(grid());
    keyWith('G', {VK_SHIFT});
    EXPECT_FALSE(grid());
}

TEST(ListProfile, BringsColumnsBackWithWhatTheUserDefined) {
    const StoredProfile stored(
        "0,1,75,1,-1,0,2,0,120,3,-1,0,4,-1,0,5,-1,0,6,2,80,Twice#2*\"2\"#2 * Key");
    OpenWorkbench open;
    for (const char* key : {"30", "4", "100"})
        open.plugin.publish(pending(key, "340", {{31003, std::string("U") + key}}));
    EXPECT_EQ(SendMessageA(header(), HDM_GETITEMCOUNT, 0, 0), 3);
    EXPECT_EQ(SendMessageA(mainList(), LVM_GETCOLUMNWIDTH, 0, 0), 120);
    EXPECT_EQ(rowTexts(mainList(), 0, 3), (Texts{"30", "U30", "60.00"}));
    clickHeader(2);
    EXPECT_EQ(column(2), (Texts{"8.00", "60.00", "200.00"}));
    SetWindowTextA(filterBox(2), ">50");
    key(filterEdit(2), VK_RETURN);
    EXPECT_EQ(column(1), (Texts{"U30", "U100"}));
}

TEST(ListProfile, AnInvalidExpressionIsToldOnceNotPerRow) {
    const StoredProfile stored(
        "0,0,75,1,1,75,2,2,75,3,3,75,4,4,75,5,5,75,6,6,80,Bad#2 \"2\"#2 Key");
    const DialogTrap boxes;
    OpenWorkbench open;
    for (const char* key : {"30", "4", "100"}) open.plugin.publish(pending(key, "340"));
    pumpUntil([&] { return !boxes.texts.empty(); });
    RedrawWindow(mainList(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    pump();
    EXPECT_EQ(boxes.texts, Texts{"Invalid Expression,while calculating value"});
    EXPECT_EQ(rowTexts(mainList(), 0, 7)[6], "");
}

TEST_F(List, TabGoesThroughButtonsFiltersAndLists) {
    Texts seen;
    SetFocus(button("Recover"));
    for (int i = 0; i < 7; ++i) {
        key(GetFocus(), VK_TAB);
        seen.push_back(GetFocus() == mainList()
                           ? "list"
                           : std::to_string(GetDlgCtrlID(GetParent(GetFocus()))));
    }
    EXPECT_EQ(seen, (Texts{"5000", "5001", "5002", "5003", "5004", "5005", "list"}));
}

}  // namespace
