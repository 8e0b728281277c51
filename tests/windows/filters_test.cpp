// The filter boxes under a real hand: what a box shows and what the list shows after each thing
// that a checker can do to it.
#include <gtest/gtest.h>

#include <map>

#include "listctrl/model/list_commands.h"
#include "res/resource_ids.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

using Texts = std::vector<std::string>;

HWND header() {
    return reinterpret_cast<HWND>(SendMessageA(mainList(), LVM_GETHEADER, 0, 0));
}
HWND box(int item) {
    return GetDlgItem(header(), 5000 + item);
}
HWND edit(int item) {
    return FindWindowExA(box(item), nullptr, "Edit", nullptr);
}
std::string shownIn(int item) {
    char text[300]{};
    GetWindowTextA(edit(item), text, sizeof text);
    return text;
}
bool dropped(int item = 0) {
    return SendMessageA(box(item), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

// The names in the first column, one behind the other.
std::string names() {
    std::string all;
    for (int row = 0; row < rowCount(mainList()); ++row)
        all += (row > 0 ? " " : "") + rowTexts(mainList(), row, 1)[0];
    return all;
}

void clickEdit(int item) {
    hand::click(edit(item));
}
void clickArrow() {
    RECT place{};
    GetWindowRect(box(0), &place);
    hand::click(POINT{place.right - 8, (place.top + place.bottom) / 2});
}
void clickLine(int line) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(box(0), &info);
    RECT place{};
    SendMessageA(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(line),
                 reinterpret_cast<LPARAM>(&place));
    MapWindowPoints(info.hwndList, HWND_DESKTOP, reinterpret_cast<POINT*>(&place), 2);
    hand::click(POINT{place.left + 10, (place.top + place.bottom) / 2});
}
void pause(DWORD milliseconds = 600) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    pumpUntil([&] { return GetTickCount64() >= end; });
}

const std::map<std::string, std::function<void()>>& steps() {
    static const std::map<std::string, std::function<void()>> table{
        {"(pause)", [] { pause(); }},
        {"(enter)", [] { hand::key(VK_RETURN); }},
        {"(esc)", [] { hand::key(VK_ESCAPE); }},
        {"(held esc)", [] { hand::hold(VK_ESCAPE, 5); }},
        {"(held enter)", [] { hand::hold(VK_RETURN, 5); }},
        {"(F4)", [] { hand::key(VK_F4); }},
        {"(alt down)", [] { hand::key(VK_DOWN, hand::kAlt); }},
        {"(alt up)", [] { hand::key(VK_UP, hand::kAlt); }},
        {"(down)", [] { hand::key(VK_DOWN); }},
        {"(up)", [] { hand::key(VK_UP); }},
        {"(page down)", [] { hand::key(VK_NEXT); }},
        {"(backspace)", [] { hand::key(VK_BACK); }},
        {"(tab)", [] { hand::key(VK_TAB); }},
        {"(wheel)", [] { hand::wheel(edit(0), -1); }},
        {"(arrow)", clickArrow},
        {"(line 0)", [] { clickLine(0); }},
        {"(line 1)", [] { clickLine(1); }},
        {"(line 2)", [] { clickLine(2); }},
        {"(line 5)", [] { clickLine(5); }},
        {"(line 6)", [] { clickLine(6); }},
        {"(line 7)", [] { clickLine(7); }},
        {"(elsewhere)", [] { clickEdit(3); }},
        // The other box applies something that every row passes.
        {"(other box)",
         [] {
             clickEdit(1);
             hand::type("add");
             hand::key(VK_RETURN);
         }},
    };
    return table;
}

void perform(const Texts& actions) {
    for (const std::string& action : actions) {
        const auto step = steps().find(action);
        if (step != steps().end())
            step->second();
        else
            hand::type(action.c_str());
    }
}

class Filters : public testing::Test {
protected:
    static constexpr char kAll[] = "MAKER1 MAKER10 MAKER05 RMS <none> a~b *x";

    Filters() {
        int key = 20;
        for (const char* name : {"MAKER1", "MAKER10", "MAKER05", "RMS", "<none>", "a~b", "*x"})
            open.plugin.publish(pending(std::to_string(key++), "339", {{31003, name}}));
        pump();
    }
    OpenWorkbench open;
};

TEST_F(Filters, ABoxSaysWhatIsFiltered) {
    const struct {
        const char* before;  // typed, and applied by Enter
        Texts actions;
        const char* box;
        const char* rows;
    } cases[] = {
        // A drop-down that opens and closes changes nothing, and what was typed waits its pause.
        {"", {"MAKER0", "(F4)", "(F4)"}, "MAKER0", kAll},
        {"", {"MAKER0", "(alt down)", "(alt up)"}, "MAKER0", kAll},
        {"", {"MAKER0", "(F4)", "(esc)"}, "MAKER0", kAll},
        {"", {"MAKER0", "(arrow)", "(arrow)", "(pause)"}, "MAKER0", "MAKER05"},
        {"", {"MAKER0", "(F4)", "(pause)", "(esc)"}, "MAKER0", "MAKER05"},
        {"", {"MAKER0", "(F4)", "(down)", "(esc)", "5"}, "MAKER05", kAll},
        {"RMS", {"(F4)", "(down)", "(esc)"}, "RMS", "RMS"},
        {"RMS", {"(F4)", "(down)", "(down)", "(tab)", "(pause)"}, "RMS", "RMS"},
        {"RMS", {"(arrow)", "(down)", "(elsewhere)", "(pause)"}, "RMS", "RMS"},
        {"RMS", {"(F4)", "(held esc)"}, "RMS", "RMS"},
        {"", {"MAKER1", "(F4)", "(enter)"}, "MAKER1", "MAKER1 MAKER10"},
        // Another box applies its own text only.
        {"", {"MAKER0", "(F4)", "(esc)", "(other box)"}, "MAKER0", kAll},
        {"RMS", {"x", "(other box)"}, "RMSx", "RMS"},
        {"RMS", {"x", "(other box)", "(pause)"}, "RMSx", ""},
        // A closed box does not step.
        {"RMS", {"(up)", "(page down)", "(up)", "(enter)"}, "RMS", "RMS"},
        {"RMS", {"(wheel)", "(pause)", "(enter)"}, "RMS", "RMS"},
        {"RMS", {"(down)", "(esc)", "(enter)"}, "RMS", "RMS"},
        // A line that is taken is one whole value; typing makes it a pattern again.
        {"RMS", {"(arrow)", "(line 1)"}, "MAKER1", "MAKER1"},
        {"", {"(F4)", "(line 5)"}, "<none>", "<none>"},
        {"", {"(alt down)", "(line 6)"}, "a~b", "a~b"},
        {"", {"(down)", "(line 7)", "(enter)"}, "*x", "*x"},
        {"", {"(F4)", "(down)", "(enter)"}, "MAKER1", "MAKER1"},
        {"", {"(F4)", "(down)", "(F4)"}, "MAKER1", "MAKER1"},
        {"", {"(F4)", "(down)", "(held enter)"}, "MAKER1", "MAKER1"},
        {"", {"MAKER0", "(F4)", "(down)", "(enter)"}, "MAKER05", "MAKER05"},
        {"", {"(F4)", "(line 2)", "(other box)"}, "MAKER10", "MAKER10"},
        {"", {"(F4)", "(line 2)", "MAKER1", "(enter)"}, "MAKER1", "MAKER1 MAKER10"},
        // "--ALL-- " empties the box, and a text goes in as it is typed.
        {"RMS", {"(arrow)", "(line 0)"}, "", kAll},
        {"RMS", {"(arrow)", "(line 0)", "RMS", "(pause)"}, "RMS", "RMS"},
        {"", {"(F4)", "(enter)"}, "", kAll},
        {"", {"(F4)", "(esc)", "RMS", "(enter)"}, "RMS", "RMS"},
        // Esc in a closed box.
        {"RMS", {"x", "(esc)"}, "", kAll},
    };
    for (const auto& each : cases) {
        clickEdit(1);
        hand::key(VK_ESCAPE);
        clickEdit(0);
        hand::key(VK_ESCAPE);
        hand::type(each.before);
        hand::key(VK_RETURN);
        perform(each.actions);
        const std::string name = testing::PrintToString(each.actions) + " from " + each.before;
        EXPECT_EQ(shownIn(0), each.box) << name;
        EXPECT_EQ(names(), each.rows) << name;
        EXPECT_FALSE(dropped()) << name;
    }
    EXPECT_TRUE(host().sent.empty());
}

TEST_F(Filters, RowsArriveAsTheyAreFilteredAndColumnsKeepTheirFilters) {
    const StoredProfile stored;
    clickEdit(0);
    perform({"(F4)", "(line 1)"});
    clickEdit(2);
    perform({"<50", "(enter)"});
    const auto publish = [this](const char* key, const char* name) {
        open.plugin.publish(pending(key, "339", {{31003, name}}));
    };
    publish("30", "maker1");
    publish("31", "MAKER11");
    publish("60", "MAKER1");
    EXPECT_EQ(names(), "MAKER1 maker1");

    DialogTrap dialog([](HWND window) {
        SetDlgItemTextA(window, IDC_UC_NAME, "One");
        SetDlgItemTextA(window, IDC_UC_EXPRESSION, "1");
    });
    SendMessageA(mainList(), WM_COMMAND, kAddColumnCommand, 0);
    pump();
    ASSERT_EQ(SendMessageA(header(), HDM_GETITEMCOUNT, 0, 0), 7);
    EXPECT_EQ(names(), "MAKER1 maker1");
    EXPECT_EQ(shownIn(0) + shownIn(2), "MAKER1<50");
    clickEdit(2);
    hand::key(VK_ESCAPE);
    EXPECT_EQ(names(), "MAKER1 maker1 MAKER1");
}

TEST_F(Filters, OnlyAnOpenDropDownHasLines) {
    open.plugin.publish(pending("40", "340", {{31003, "MAKER1"}}));
    const auto lines = [] {
        Texts texts;
        for (WPARAM i = 0; static_cast<LRESULT>(i) < SendMessageA(box(1), CB_GETCOUNT, 0, 0); ++i) {
            char text[64]{};
            SendMessageA(box(1), CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
            texts.emplace_back(text);
        }
        return texts;
    };
    clickEdit(1);
    hand::key(VK_F4);
    EXPECT_EQ(lines(), (Texts{"--ALL-- ", "ADD USER", "MODIFY USER"}));
    hand::key(VK_ESCAPE);
    EXPECT_EQ(lines(), Texts{});
}

TEST_F(Filters, TheWheelOverAClosedBoxScrollsTheList) {
    for (int key = 100; key < 200; ++key)
        open.plugin.publish(pending(std::to_string(key), "339", {{31003, "MAKER1"}}));
    clickEdit(0);
    perform({"M", "(enter)"});
    const auto top = [] { return SendMessageA(mainList(), LVM_GETTOPINDEX, 0, 0); };
    hand::wheel(edit(0), -1);
    const auto once = top();
    EXPECT_GT(once, 0);
    hand::wheel(box(1), -1);
    EXPECT_GT(top(), once);
    EXPECT_EQ(shownIn(0), "M");
}

// Counts moves, and selects the text when the size changes, as the platform's own control does.
int theMoves = 0;
LRESULT CALLBACK selectAtSize(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR) {
    theMoves += message == WM_WINDOWPOSCHANGING;
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    if (message == WM_SIZE)
        SendMessageA(FindWindowExA(window, nullptr, "Edit", nullptr), EM_SETSEL, 0, -1);
    return result;
}

TEST_F(Filters, WidthsChangeNoSelectionAndMoveOnlyWhatLiesBehind) {
    const auto selectedIn = [](int item) {
        DWORD first = 0, last = 0;
        SendMessageA(edit(item), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                     reinterpret_cast<LPARAM>(&last));
        return std::pair(first, last);
    };
    clickEdit(1);
    perform({"ADD", "(enter)"});
    clickEdit(0);
    perform({"MAKER", "(enter)"});
    hand::key(VK_LEFT);
    const auto selected = std::pair(selectedIn(0), selectedIn(1));
    EXPECT_EQ(selected.first, (std::pair<DWORD, DWORD>{4, 4}));
    EXPECT_EQ(selected.second, (std::pair<DWORD, DWORD>{0, 0})) << "seen from its beginning";
    SetWindowSubclass(box(0), selectAtSize, 1, 0);
    const auto widen = [](int item) {
        RECT place{};
        SendMessageA(header(), HDM_GETITEMRECT, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&place));
        POINT divider{place.right - 1, place.top + 8};
        ClientToScreen(header(), &divider);
        RECT before{}, after{};
        GetWindowRect(box(item), &before);
        hand::drag(divider, {divider.x + 40, divider.y});
        GetWindowRect(box(item), &after);
        EXPECT_EQ(after.right - after.left, before.right - before.left + 40);
    };
    theMoves = 0;
    widen(1);
    EXPECT_EQ(theMoves, 0);
    widen(0);
    EXPECT_GT(theMoves, 0);
    RemoveWindowSubclass(box(0), selectAtSize, 1);
    EXPECT_EQ(std::pair(selectedIn(0), selectedIn(1)), selected);
}

TEST_F(Filters, OnlyItsOwnTimerEndsThePause) {
    clickEdit(0);
    hand::type("RMS");
    for (const HWND window : {header(), box(0)}) SendMessageA(window, WM_TIMER, 1, 0);
    EXPECT_EQ(names(), kAll);
    pause();
    EXPECT_EQ(names(), "RMS");
}

}  // namespace
