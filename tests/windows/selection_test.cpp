// What mouse and keys select in the main list, what the parent is told of it, what others are
// answered, and what the buttons then decide.
#include "tests/windows/test_host.h"

namespace {

using hand::kCtrl;
using hand::kShift;

int ask(UINT message, int start, LPARAM more) {
    return static_cast<int>(SendMessageA(mainList(), message, static_cast<WPARAM>(start), more));
}

int focused() {
    return ask(LVM_GETNEXTITEM, -1, LVNI_FOCUSED);
}

// Counts what the list tells its parent of the selection; `act` is done with it.
class Told {
public:
    explicit Told(std::function<void()> act = {})
        : m_parent(GetParent(mainList())), m_act(std::move(act)) {
        SetWindowSubclass(m_parent, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    ~Told() { RemoveWindowSubclass(m_parent, procedure, 1); }
    Told(const Told&) = delete;
    Told& operator=(const Told&) = delete;
    int take() { return std::exchange(m_count, 0); }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                                      DWORD_PTR object) {
        auto& self = *reinterpret_cast<Told*>(object);
        const auto* notice = reinterpret_cast<const NMLISTVIEW*>(l);
        if (message == WM_NOTIFY && notice->hdr.code == static_cast<UINT>(LVN_ITEMCHANGED) &&
            notice->iItem == -1) {
            const bool any = SendMessageA(mainList(), LVM_GETSELECTEDCOUNT, 0, 0) > 0;
            EXPECT_EQ(notice->uChanged, static_cast<UINT>(LVIF_STATE));
            EXPECT_EQ(notice->uNewState, any ? static_cast<UINT>(LVIS_SELECTED) : 0u);
            EXPECT_EQ(notice->uOldState, any ? 0u : static_cast<UINT>(LVIS_SELECTED));
            ++self.m_count;
            if (self.m_act) self.m_act();
        }
        return DefSubclassProc(window, message, w, l);
    }

    HWND m_parent;
    std::function<void()> m_act;
    int m_count = 0;
};

// Ten changes, with the keys 10 to 19.
struct Ten : OpenWorkbench {
    Ten() {
        for (const char* name : {"Bela", "asha", "Chitra", "ASHOK", "deepa", "Esha", "Gopal",
                                 "arun 1", "arun 2", "arun 3"})
            publish(name);
        pump();
    }
    void publish(const char* name) {
        plugin.publish(pending(std::to_string(m_key++), "340", {{31003, name}}));
    }

private:
    int m_key = 10;
};

TEST(Selection, EachGestureSelectsWhatItSays) {
    Ten open;
    const auto program = [](int row, UINT state, UINT mask) {
        LVITEMA item{};
        item.state = state;
        item.stateMask = mask;
        ask(LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
    };
    const struct {
        const char* what;
        std::function<void()> act;  // row 4 was clicked
        ListRows selected;
        int focused;
        int told;
    } cases[] = {
        {"Ctrl adds", [] { hand::clickRow(mainList(), 6, kCtrl); }, {4, 6}, 6, 1},
        {"Shift+Up, held", [] { hand::hold(VK_UP, 1, kShift); }, {2, 3, 4}, 2, 2},
        {"Ctrl+A", [] { hand::key('A', kCtrl); }, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 4, 1},
        {"AltGr and a letter", [] { hand::key('A', {.ctrl = true, .alt = true}); }, {4}, 4, 0},
        {"letters", [] { hand::type("ash"); }, {1}, 1, 2},
        {"a blank behind letters and a move",
         [] {
             hand::type("g");
             hand::key(VK_UP, kCtrl);
             hand::key(VK_SPACE);
         },
         {5, 6},
         5,
         2},
        {"a second right click at once",
         [] {
             POINT at = hand::cell(mainList(), 6);
             ScreenToClient(mainList(), &at);
             SendMessageA(mainList(), WM_RBUTTONDBLCLK, MK_RBUTTON, MAKELPARAM(at.x, at.y));
         },
         {6},
         6,
         1},
        {"a program", [&] { program(7, LVIS_SELECTED, LVIS_SELECTED); }, {4, 7}, 4, 1},
        {"for all", [&] { program(-1, 0, LVIS_SELECTED | LVIS_FOCUSED); }, {}, -1, 1},
    };
    Told told;
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        hand::clickRow(mainList(), 4);
        told.take();
        each.act();
        EXPECT_EQ(selectedRows(), each.selected);
        EXPECT_EQ(focused(), each.focused);
        EXPECT_EQ(told.take(), each.told);
    }
}

TEST(Selection, WhatRowsDoIsNotTold) {
    Ten open;
    hand::clickRow(mainList(), 1);
    hand::clickRow(mainList(), 3, kShift);
    Told told;
    open.publish("Zoya");
    open.plugin.publish(outcome("12", "accepted"));
    pump();
    EXPECT_EQ(selectedRows(), (ListRows{1, 2}));
    hand::click(
        captionPoint(0));  // ASHOK, Bela, Chitra, Esha, Gopal, Zoya, arun 1 to 3, asha, deepa
    EXPECT_EQ(selectedRows(), (ListRows{0, 8}));
    hand::click(filterEdit(0));
    hand::type("ashok");
    hand::key(VK_RETURN);
    EXPECT_EQ(selectedRows(), ListRows{0});
    hand::key(VK_ESCAPE);
    EXPECT_EQ(selectedRows(), ListRows{0}) << "a row that was filtered out is deselected";
    EXPECT_EQ(told.take(), 0);
    Sleep(300);  // until the hand can have seen what the list selected
    takeSent();
    hand::click(button("Accept"));
    EXPECT_EQ(takeSent(51803), Texts{"13"});
}

TEST(Selection, OthersAreAnswered) {
    Ten open;
    hand::clickRow(mainList(), 2);
    hand::clickRow(mainList(), 7, kCtrl);
    LVFINDINFOA bytes{};
    bytes.flags = LVFI_PARTIAL;
    bytes.psz = "ARUN";
    LVFINDINFOW wide{};
    wide.flags = LVFI_STRING | LVFI_WRAP;
    wide.psz = L"bela";
    LVFINDINFOA data{};
    data.flags = LVFI_PARAM;
    const auto at = [](const auto& info) { return reinterpret_cast<LPARAM>(&info); };
    const struct {
        UINT message;
        int start;
        LPARAM more;
        int answer;
    } cases[] = {
        {LVM_GETNEXTITEM, 7, LVNI_ABOVE | LVNI_SELECTED, 2},
        {LVM_GETNEXTITEM, -1, LVNI_FOCUSED | LVNI_SELECTED, 7},
        {LVM_GETNEXTITEM, 4, LVNI_TOLEFT, -1},
        {LVM_GETSELECTIONMARK, 0, 0, 7},
        {LVM_SETSELECTIONMARK, 0, -1, 7},
        {LVM_GETSELECTIONMARK, 0, 0, -1},
        {LVM_FINDITEMA, 7, at(bytes), 8},
        {LVM_FINDITEMA, 9, at(bytes), -1},
        {LVM_FINDITEMW, 5, at(wide), 0},
        {LVM_FINDITEMA, -1, at(data), -1},
    };
    for (const auto& each : cases)
        EXPECT_EQ(ask(each.message, each.start, each.more), each.answer)
            << std::hex << each.message << " " << each.start << " " << each.more;
    LVITEMINDEX index{2, 0};
    EXPECT_EQ(SendMessageA(mainList(), LVM_GETNEXTITEMINDEX, reinterpret_cast<WPARAM>(&index),
                           LVNI_SELECTED),
              TRUE);
    EXPECT_EQ(index.iItem, 7);
}

TEST(Selection, WhoIsToldMayEndTheList) {
    Ten open;
    const Told told([&] { open.plugin.exit(); });
    hand::doubleClickRow(mainList(), 3);
    EXPECT_EQ(findPane(), nullptr);
}

// From below the rows, with a frame; Esc puts back what was selected.
TEST(Selection, AMarqueeSelectsTheRowsItTouches) {
    const OpenWorkbench open({"1", "2", "3", "4"});
    hand::clickRow(mainList(), 0);
    POINT from = hand::cell(mainList(), 3);
    from.y += 40;
    const POINT to{from.x + 60, hand::cell(mainList(), 2).y};
    POINT edge{from.x, from.y - 10};
    ScreenToClient(mainList(), &edge);
    Told told;
    hand::drag(from, to, false, [&] {
        EXPECT_EQ(selectedRows(), (ListRows{2, 3}));
        EXPECT_TRUE(pressLine().starts_with("Accept 2 changes")) << pressLine();
        EXPECT_EQ(pixel(mainList(), edge.x, edge.y), GetSysColor(COLOR_HIGHLIGHT));
    });
    EXPECT_LE(told.take(), 3) << "the press and two moves";
    EXPECT_NE(pixel(mainList(), edge.x, edge.y), GetSysColor(COLOR_HIGHLIGHT));
    hand::clickRow(mainList(), 1, kShift);
    EXPECT_EQ(selectedRows(), (ListRows{1, 2, 3})) << "from the row where it began";
    hand::drag(from, hand::cell(mainList(), 0), true);
    EXPECT_EQ(selectedRows(), (ListRows{1, 2, 3}));
    hand::click(from);
    EXPECT_EQ(selectedRows(), ListRows{});
}

}  // namespace
