// The main list as a checker uses it: sorting, copying, exporting, columns of an older session.
#include "framework/header.h"
#include "listctrl/dialogs/progress.h"
#include "listctrl/model/list_commands.h"
#include "sdk/host_services.h"
#include "tests/windows/replaced_import.h"
#include "tests/windows/test_host.h"

namespace {

int sortImage(int item) {
    return fw::Header(header()).item(item).image;
}

struct Four : OpenWorkbench {
    Four() {
        const struct {
            const char *key, *code, *user;
        } changes[] = {{"9", "340", "Bela"},
                       {"10", "339", "asha"},
                       {"100", "340", "Chitra"},
                       {"11", "365", "ASHOK"}};
        for (const auto& each : changes)
            plugin.publish(pending(each.key, each.code, {{31003, each.user}}));
        hand::clickRow(mainList(), 0);
    }
};

TEST(List, SortsByAClickOnACaption) {
    Four open;
    hand::click(captionPoint(2));  // keys are numbers
    EXPECT_EQ(column(2), (Texts{"9", "10", "11", "100"}));
    EXPECT_EQ(sortImage(2), 1);
    hand::click(captionPoint(2));
    EXPECT_EQ(column(2), (Texts{"100", "11", "10", "9"}));
    EXPECT_EQ(sortImage(2), 2);
    hand::click(captionPoint(0));  // names are bytes
    EXPECT_EQ(column(0), (Texts{"ASHOK", "Bela", "Chitra", "asha"}));
    EXPECT_EQ(sortImage(2), 0);
    open.plugin.publish(pending("3", "340", {{31003, "Badri"}}));
    EXPECT_EQ(column(0), (Texts{"ASHOK", "Badri", "Bela", "Chitra", "asha"}));
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

TEST(List, CopiesTheSelectedRowsWhereTheHostLetsIt) {
    Four open;
    selectRows(mainList(), {1, 3});
    hand::key('C', hand::kCtrl);
    EXPECT_EQ(clipboardText(),
              "asha\tADD USER\t10\tMAKER1\t\t\t\r\nASHOK\tDELETE USER\t11\tMAKER1\t\t\t\r\n");
    selectRows(mainList(), {0});
    host().restricted = {64169};
    hand::key('C', hand::kCtrl);
    host().restricted.clear();
    const HiddenExport hidden(kPuIsFunctionRestricted);
    hand::key('C', hand::kCtrl);
    EXPECT_EQ(clipboardText().substr(0, 4), "asha");
}

TEST(List, ExportsWhatItShows) {
    Four open;
    char folder[MAX_PATH]{};
    GetTempPathA(sizeof folder, folder);
    SetEnvironmentVariableA("ZEK_EXPORT_DIR", folder);
    const DialogTrap boxes;
    hand::key('E', hand::kShift);
    SetEnvironmentVariableA("ZEK_EXPORT_DIR", "Z:\\no such folder");
    hand::key('E', hand::kShift);
    open.plugin.publish(outcome("9", "accepted"));
    for (const char* key : {"10", "100", "11"}) open.plugin.publish(outcome(key, "accepted"));
    hand::key('E', hand::kShift);
    host().restricted = {64169};
    hand::key('E', hand::kShift);
    EXPECT_EQ(boxes.texts,
              (Texts{"File is generated", "File generation Failed", "No Items in the List"}));
    SetEnvironmentVariableA("ZEK_EXPORT_DIR", nullptr);
}

// Only the user's input and painting are handled while work goes on.
TEST(List, ProgressIsSeenAndGivenUp) {
    OpenWorkbench open;
    PostMessageA(findPane(), WM_COMMAND, IDCANCEL, 0);
    const auto dialog = [] { return FindWindowA("#32770", "Copying"); };
    std::size_t last = 0, seenAt = 0;
    const auto work = [&](const mc::ProgressStep& step) {
        for (std::size_t row = 0; row < 5000 && step(row); ++row) {
            Sleep(1);
            last = row;
            if (seenAt != 0 || IsWindowVisible(dialog()) == 0) continue;
            seenAt = row;
            EXPECT_EQ(IsWindowEnabled(GetAncestor(findPane(), GA_ROOT)), 0);
            EXPECT_NE(textOf(GetDlgItem(dialog(), IDC_PROGRESS_TEXT)), "");
            keybd_event(VK_ESCAPE, 0, 0, 0);
            keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
        }
    };
    EXPECT_FALSE(mc::runWithProgress("Copying", 5000, work));
    EXPECT_GT(seenAt, 0u);
    EXPECT_LT(last, 4999u);
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_NE(IsWindowEnabled(GetAncestor(findPane(), GA_ROOT)), 0);
    MSG posted{};
    EXPECT_NE(PeekMessageA(&posted, findPane(), WM_COMMAND, WM_COMMAND, PM_REMOVE), 0);
    EXPECT_TRUE(mc::runWithProgress("Copying", 1, [](const auto& step) { step(0); }));
}

TEST(List, AnInvalidExpressionIsToldOnceNotPerRow) {
    const StoredProfile stored(
        "0,0,75,1,1,75,2,2,75,3,3,75,4,4,75,5,5,75,6,6,80,Bad#2 \"2\"#2 Key");
    const DialogTrap boxes;
    const OpenWorkbench open({"30", "4", "100"});
    hand::waitUntil([&] { return !boxes.texts.empty(); });
    RedrawWindow(mainList(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    pump();
    EXPECT_EQ(boxes.texts, Texts{"Invalid Expression,while calculating value"});
    EXPECT_EQ(rowTexts(mainList(), 0, 7)[6], "");
}

// Work is long for the plug-in: each look at the clock finds it far on. At the first look Esc is
// pressed, and another key behind it.
std::vector<WORD> theKeys;

ULONGLONG WINAPI fastClock() {
    static ULONGLONG now = 0;
    for (const WORD key : std::exchange(theKeys, {}))
        for (const DWORD up : {0, KEYEVENTF_KEYUP}) {
            INPUT input{};
            input.type = INPUT_KEYBOARD;
            input.ki.wVk = key;
            input.ki.dwFlags = up;
            SendInput(1, &input, sizeof input);
        }
    return now += 1000;
}

TEST(List, EscEndsLongWorkAndDoesNothingElse) {
    OpenWorkbench open;
    for (int i = 0; i < 4200; ++i)
        open.plugin.publish(pending(std::to_string(i * 11 % 4200 + 1000), "340",
                                    {{31003, "U" + std::to_string(i * 13 % 4200)}}));
    pump();
    hand::clickRow(mainList(), 3);
    hand::click(filterEdit(0));
    hand::type("U");
    hand::key(VK_RETURN);
    const LONG width = headerItem(0).right;
    const auto firstRows = [] {
        Texts keys;
        for (int row = 0; row < 20; ++row) keys.push_back(rowTexts(mainList(), row)[2]);
        return keys;
    };
    const Texts before = firstRows();
    const ReplacedImport clock("GetTickCount64", fastClock);
    ASSERT_TRUE(clock.found());
    const auto isAsBefore = [&](const char* what) {
        EXPECT_TRUE(theKeys.empty()) << what << " asked";
        EXPECT_EQ(firstRows(), before) << what;
        EXPECT_EQ(textOf(filterEdit(0)), "U") << what;
        EXPECT_EQ(headerItem(0).right, width) << what;
        EXPECT_NE(GetCursor(), LoadCursorA(nullptr, IDC_WAIT)) << what;
    };
    SetFocus(mainList());
    theKeys = {VK_ESCAPE, VK_DOWN};
    hand::click(captionPoint(2));
    isAsBefore("sort");
    EXPECT_EQ(selectedRows(), ListRows{4}) << "the other key came";
    theKeys = {VK_ESCAPE};
    SendMessageA(mainList(), WM_COMMAND, mc::kFitToDataCommand, 0);
    isAsBefore("fit");
    hand::click(filterEdit(0));
    theKeys = {VK_ESCAPE};
    hand::type("9");
    hand::key(VK_RETURN);
    isAsBefore("filter");
    theKeys = {VK_ESCAPE};
    hand::key(VK_F4);
    isAsBefore("choices");
    EXPECT_FALSE(isDropped(0));
    theKeys = {VK_DOWN, VK_ESCAPE};
    hand::click(captionPoint(2));
    EXPECT_NE(firstRows(), before) << "keys that were pressed before Esc come first";
}

}  // namespace
