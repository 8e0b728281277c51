// Editing limits in the details list by a real hand: what becomes of a text that is being typed
// when something else happens.
#include "listctrl/model/list_commands.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

const std::string kRefusal = "\"12a\" is not a number";

// Behind the heading and the entity: numbers to edit and, last, a choice.
Fields answerOfLimits() {
    Fields fields = limitsAnswer("7");
    fields.insert(fields.end(), {{64164, "300"}, {64036, "400"}, {64211, "11"}});
    return fields;
}

constexpr int kFirst = 2, kSecond = 3;

class CellEdits : public testing::Test {
protected:
    void SetUp() override { open.openLimits(answerOfLimits()); }
    static int last() { return rowCount(details()) - 1; }
    const StoredProfile profile{nullptr, kDetailsList};  // widths are dragged
    OpenWorkbench open{{"6"}};
};

TEST_F(CellEdits, ThePressLineCountsWhatIsBeingTyped) {
    hand::doubleClickRow(details(), kFirst, 1);
    hand::moveTo(hand::middle(button("Update")));
    EXPECT_EQ(pressLine(), "Update nothing: no value is edited");
    hand::type("77");
    EXPECT_EQ(pressLine(), "Update 1 value of 7 RMS Limits, Client - C1");
    hand::type("a");
    EXPECT_EQ(pressLine(), "Update nothing: the text in the editor cannot be kept");
    hand::key(VK_ESCAPE);
    EXPECT_EQ(pressLine(), "Update nothing: no value is edited");
}

TEST_F(CellEdits, KeysTakeLeaveAndGoOn) {
    edit(kFirst, "2500.129");
    hand::key(VK_RETURN);
    EXPECT_EQ(value(kFirst), "2500.13");
    EXPECT_EQ(GetFocus(), details());
    edit(kSecond, "9");
    hand::key(VK_ESCAPE);
    EXPECT_EQ(value(kSecond), "300.00");
    hand::key(VK_F2);
    hand::key(VK_TAB);  // untouched
    hand::type("25");
    EXPECT_EQ(selectedRows(details()), ListRows{kSecond + 1});
    hand::key(VK_TAB, hand::kShift);
    EXPECT_EQ(value(kSecond + 1), "25.00");
    hand::key(VK_ESCAPE);
    hand::doubleClickRow(details(), 1, 1);
    EXPECT_EQ(editor(), nullptr) << "a read-only row";
    EXPECT_EQ(takeSent(), Texts{}) << "no key of an editor decides";
    hand::click(button("Update"));
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 64031), "2500.13");
    EXPECT_EQ(sentField(host().sent[0], 64036), "25.00");
    EXPECT_EQ(sentField(host().sent[0], 64164), "<absent>");
    EXPECT_EQ(sentField(host().sent[0], 64037), "<absent>");
    hand::click(button("Update"));
    EXPECT_EQ(host().sent.size(), 1u) << "what has left is not sent again";
}

// Held keys stay in the editors: the next Enter decides nothing.
TEST_F(CellEdits, AHeldKeyNeverLeadsFromAnEditorToAButton) {
    const struct {
        const char* what;
        int row;
        WORD key;
        hand::Keys keys;
        HWND focus;
    } cases[] = {{"Tab", last() - 2, VK_TAB, {}, details()},
                 {"Shift+Tab", kSecond, VK_TAB, hand::kShift, details()},
                 {"Enter", kFirst, VK_RETURN, {}, details()},
                 {"Esc", kFirst, VK_ESCAPE, {}, details()}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        hand::doubleClickRow(details(), each.row, 1);
        hand::hold(each.key, 12, each.keys);
        EXPECT_EQ(editor(), nullptr);
        EXPECT_EQ(GetFocus(), each.focus);
        hand::key(VK_RETURN);
        EXPECT_EQ(takeSent(), Texts{});
    }
    hand::doubleClickRow(details(), kFirst, 1);
    hand::hold(VK_TAB, 2);
    EXPECT_NE(editor(), nullptr) << "from value to value";
    EXPECT_EQ(SendMessageA(details(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED),
              kFirst + 3);
}

// A refused text drops what was pressed or opened, is told of, and waits selected in its
// editor.
TEST_F(CellEdits, ARefusedTextStopsThePress) {
    const struct {
        const char* what;
        std::function<void()> act;
    } cases[] = {
        {"Ctrl+Shift+U", [] { hand::key('U', hand::kCtrlShift); }},
        {"Ctrl+Shift+Y", [] { hand::key('Y', hand::kCtrlShift); }},
        {"F5", [] { hand::key(VK_F5); }},
        {"Update", [] { hand::click(button("Update")); }},
        {"Accept", [] { hand::click(button("Accept")); }},
        {"Recover", [] { hand::click(button("Recover")); }},
        {"Enter", [] { hand::key(VK_RETURN); }},
        {"Tab", [] { hand::key(VK_TAB); }},
        {"another change", [] { hand::clickRow(mainList(), 0); }},
        {"another change's details", [] { hand::doubleClickRow(mainList(), 0); }},
        {"another value", [] { hand::doubleClickRow(details(), kSecond, 1); }},
        {"a heading", [] { hand::clickRow(details(), 0); }},
        {"a filter box", [] { hand::click(filterEdit(0, details())); }},
        {"a menu", [] { hand::click(hand::cell(details(), kSecond), {}, hand::Button::right); }},
        {"the wheel", [] { hand::wheel(header(details()), -1); }},
        {"a column's width",
         [] {
             const POINT from = captionPoint(0, details(), 1);
             hand::drag(from, {from.x + 40, from.y});
         }},
        {"Reset Filters", [] { PostMessageA(details(), WM_COMMAND, kResetFiltersCommand, 0); }},
    };
    edit(kFirst, "12a");
    const HWND typed = editor();
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        SendMessageA(typed, EM_SETSEL, 1, 1);
        DialogTrap boxes;
        each.act();
        EXPECT_TRUE(hand::waitUntil([&] { return !boxes.texts.empty() && GetFocus() == typed; }));
        // On a busy machine the two clicks of a double-click may be told of one by one.
        EXPECT_EQ(boxes.texts, Texts(boxes.texts.size(), kRefusal));
        EXPECT_LE(boxes.texts.size(), 2u);
        EXPECT_EQ(takeSent(), Texts{});
        ASSERT_EQ(editor(), typed);
        EXPECT_EQ(textOf(typed), "12a");
        EXPECT_EQ(SendMessageA(typed, EM_GETSEL, 0, 0), MAKELRESULT(0, 3));
        EXPECT_EQ(rowCount(details()), last() + 1);
        EXPECT_EQ(value(kFirst), "1500.00");
    }
    hand::key(VK_ESCAPE);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(GetFocus(), details());
}

// What was selected meanwhile empties the details once their text is let go.
TEST_F(CellEdits, ASelectionMadeWhileATextIsRefusedCountsAfterwards) {
    edit(kFirst, "12a");
    {
        const DialogTrap boxes;
        hand::clickRow(mainList(), 0);
        EXPECT_TRUE(hand::waitUntil([] { return GetFocus() == editor(); }));
    }
    EXPECT_GT(rowCount(details()), 0);
    hand::key(VK_ESCAPE);
    EXPECT_EQ(rowCount(details()), 0);
}

// Whatever moves cells ends an edit first, with its text in its own row.
TEST_F(CellEdits, AnEditorEndsBeforeItsCellMoves) {
    const auto rowPoint = [](int row) { return hand::cell(details(), row, 0); };
    const auto chooseResetFilters = [&] {
        PostMessageA(details(), WM_COMMAND, kResetFiltersCommand, 0);
        pump();
    };
    const struct {
        const char* what;
        std::function<void()> act;
        int row = kFirst;  // of the edited value afterwards
    } cases[] = {
        {"the wheel", [&] { hand::wheel(header(details()), -1); }},
        {"the wheel, sideways",
         [] { SendMessageA(details(), WM_MOUSEHWHEEL, MAKEWPARAM(0, 120), 0); }},
        {"the scroll bar", [] { SendMessageA(details(), WM_VSCROLL, SB_LINEDOWN, 0); }},
        {"a scrolling finger",
         [] {
             NMLVSCROLL scroll{};
             scroll.hdr = {details(), 4001, static_cast<UINT>(LVN_ENDSCROLL)};
             SendMessageA(GetParent(details()), WM_NOTIFY, 4001, reinterpret_cast<LPARAM>(&scroll));
         }},
        {"a wider column",
         [] {
             const POINT from = captionPoint(0, details(), 1);
             hand::drag(from, {from.x + 40, from.y});
         }},
        {"a fitted column", [] { hand::doubleClick(captionPoint(0, details(), 1)); }},
        {"a fold", [&] { hand::click(rowPoint(0)); }, 1},
        {"Reset Filters", chooseResetFilters},
        {"the captions' menu",
         [] {
             hand::during(
                 [] { hand::click(captionPoint(1, details(), 1), {}, hand::Button::right); }, {[] {
                     EXPECT_EQ(editor(), nullptr);
                     hand::key(VK_ESCAPE);
                 }});
         }},
        {"a narrower pane",
         [] {
             const POINT from = hand::middle(bar());
             hand::drag(from, {from.x, from.y - 30});
         }},
        {"a filter", [] { hand::click(filterEdit(0, details())), hand::type("x\b"); }},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        open.plugin.publish(outcome("7", "rejected"));
        SetUp();
        edit(kFirst, "2001");
        each.act();
        EXPECT_EQ(editor(), nullptr);
        EXPECT_EQ(value(each.row), "2001.00");
    }
}

// A pause in typing a filter ends while a value is already being edited.
void typeFilterBehindTheEditor(const char* text) {
    for (const char* c = text; *c != '\0'; ++c)
        PostMessageA(filterEdit(0, details()), WM_CHAR, static_cast<unsigned char>(*c), 1);
}

TEST_F(CellEdits, AFilterPassUnderAnEditorEndsItFirst) {
    edit(kFirst, "77");
    typeFilterBehindTheEditor("fin");
    EXPECT_TRUE(hand::waitUntil([] { return editor() == nullptr && rowCount(details()) == 3; }));
    EXPECT_EQ(value(1), "77.00") << "an unsent edit passes the filter";
    EXPECT_EQ(value(2), "300.00");
}

TEST_F(CellEdits, ARefusedTextWhoseRowIsFilteredAwayIsToldOf) {
    edit(kFirst, "12a");
    const DialogTrap boxes;
    typeFilterBehindTheEditor("fin");
    EXPECT_TRUE(hand::waitUntil([] { return editor() == nullptr && rowCount(details()) == 2; }));
    EXPECT_TRUE(hand::waitUntil([&] { return !boxes.texts.empty(); }));
    EXPECT_EQ(boxes.texts, Texts{kRefusal});
    EXPECT_EQ(value(1), "300.00");
}

// What cannot be kept from happening takes the editor of a refused text along with its cell.
TEST_F(CellEdits, AnEditorThatStaysFollowsItsCell) {
    edit(kFirst, "12a");
    const HWND typed = editor();
    const DialogTrap boxes;
    const auto liesOnItsCell = [&](int row = kFirst) {
        const RECT cell = onScreen(details(), cellRect(details(), row, 1));
        const RECT place = onScreen(GetParent(typed));
        return place.left == cell.left && place.top <= cell.top && place.bottom >= cell.bottom;
    };
    EXPECT_TRUE(liesOnItsCell());
    const POINT from = hand::middle(bar());
    hand::drag(from, {from.x, from.y - 30});
    EXPECT_TRUE(editor() == typed && liesOnItsCell()) << "another size";
    SendMessageA(details(), LVM_SETCOLUMNWIDTH, 0, 120);
    pump();
    EXPECT_TRUE(editor() == typed && liesOnItsCell()) << "a width from outside";
    answer(answerOfLimits());
    EXPECT_TRUE(editor() == typed && liesOnItsCell()) << "the details came again";
    typeFilterBehindTheEditor("cash");
    EXPECT_TRUE(hand::waitUntil([] { return rowCount(details()) == 2; }));
    pump();
    EXPECT_TRUE(editor() == typed && liesOnItsCell(1)) << "a filter hid the row before it";
    EXPECT_EQ(textOf(typed), "12a");
}

TEST_F(CellEdits, AnEditorOpensOverItsRowInAColumnWithoutWidth) {
    SendMessageA(details(), LVM_SETCOLUMNWIDTH, 1, 0);
    hand::clickRow(details(), kFirst);
    hand::key(VK_F2);
    const RECT row = onScreen(details(), cellRect(details(), kFirst));
    const RECT place = onScreen(GetParent(editor()));
    EXPECT_LE(place.top, row.top);
    EXPECT_GE(place.bottom, row.bottom);
}

// The strip above a list keeps its colour while a part of the list has the focus.
TEST_F(CellEdits, TheStripShowsTheFocusOfEditorsAndFilterBoxesToo) {
    const auto colour = [] {
        pump();
        const HWND holder = GetParent(details());
        UpdateWindow(holder);
        RECT list = onScreen(details());
        MapWindowPoints(nullptr, holder, reinterpret_cast<POINT*>(&list), 2);
        return pixel(holder, static_cast<int>(list.left) + 3, static_cast<int>(list.top) - 3);
    };
    hand::clickRow(mainList(), 1);
    const COLORREF plain = colour();
    hand::clickRow(details(), kFirst);
    const COLORREF focused = colour();
    EXPECT_NE(plain, focused);
    hand::click(filterEdit(0, details()));
    EXPECT_EQ(colour(), focused);
    hand::click(button("Update"));
    EXPECT_EQ(colour(), plain);
    hand::doubleClickRow(details(), kFirst, 1);
    EXPECT_EQ(colour(), focused);
}

TEST_F(CellEdits, AnOutcomeInTheMiddleOfAnEditDropsIt) {
    for (const char* text : {"77", "12a"}) {
        SetUp();
        edit(kFirst, text);
        open.plugin.publish(outcome("7", "accepted"));
        pump();
        EXPECT_EQ(rowCount(details()), 0);
        EXPECT_EQ(editor(), nullptr);
        hand::click(button("Update"));
        EXPECT_EQ(takeSent(), Texts{});
    }
}

TEST_F(CellEdits, AChoiceGoesOutAsTheServersWord) {
    hand::clickRow(details(), last());
    hand::key(VK_F2);
    hand::type("D");
    hand::key('U', hand::kCtrlShift);
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 64037), "no");
}

}  // namespace
