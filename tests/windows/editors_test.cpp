// The editors of list cells, over a plain list-view in a window whose keys are filtered as a
// pane's are.
#include <gtest/gtest.h>

#include "editors/combo_editor.h"
#include "editors/date_time_editor.h"
#include "editors/edit_editor.h"
#include "editors/price_editor.h"
#include "framework/dialog.h"
#include "framework/key_filter.h"
#include "listctrl/clipboard.h"
#include "tests/windows/test_host.h"

namespace {

using Log = std::vector<std::string>;

constexpr char kDigits[] = "0123456789.-";
constexpr RECT kCell{40, 30, 200, 46};

// The window and the list, which owns one editor.
class Bed final : public fw::CWindow, public CellEditorOwner {
public:
    Bed() {
        static const fw::WindowClass windowClass{"Test.Bed", 0, IDC_ARROW, COLOR_3DFACE};
        create(windowClass, "Bed", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN, 0,
               RECT{20, 20, 620, 420}, nullptr, 0);
        list = child(WC_LISTVIEWA, LVS_REPORT | WS_CLIPCHILDREN, RECT{0, 0, 500, 300});
        other = child(WC_EDITA, 0, RECT{0, 310, 100, 30});
        SetForegroundWindow(handle());
        SetFocus(list);
    }

    template <class Editor, class... Arguments>
    HWND open(const char* text, Arguments&&... arguments) {
        log.clear();
        editor = std::make_unique<Editor>(*this, std::forward<Arguments>(arguments)...);
        const auto font = reinterpret_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
        EXPECT_TRUE(editor->open(list, kCell, font, text));
        return GetFocus();
    }

    void editEnding(EditEnd how, const std::string& text) override {
        static constexpr const char* names[] = {"commit", "cancel", "next", "previous"};
        log.push_back(names[static_cast<int>(how)] + (" " + text));
        if (destroys) editor.reset();
    }
    void editRefused(const std::string& message) override {
        log.push_back(message);
        fw::showMessageBox(message);
    }

    HWND list, other;
    std::unique_ptr<CCellEditor> editor;
    Log log;
    bool destroys = false;  // the editor, as soon as it asks

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {fw::on<fw::kPaneKey, &Bed::onPaneKey>()};
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    void onPaneKey(UINT key, bool) {
        if (editor != nullptr && editor->owns(GetFocus()) && editor->dialogKey(key, false, false)) return;
        SendMessageA(GetFocus(), WM_KEYDOWN, key, 1);
    }
    HWND child(const char* windowClass, DWORD style, RECT place) {
        return CreateWindowExA(0, windowClass, "", WS_CHILD | WS_VISIBLE | style, place.left,
                               place.top, place.right, place.bottom, handle(), nullptr, nullptr,
                               nullptr);
    }
};

class Editors : public testing::Test {
protected:
    Editors() : keys(bed.handle()) {}

    void type(const char* text) {
        for (const char* c = text; *c != '\0'; ++c)
            PostMessageA(GetFocus(), WM_CHAR, static_cast<unsigned char>(*c), 1);
        pump();
    }
    void key(WPARAM virtualKey) {
        PostMessageA(GetFocus(), WM_KEYDOWN, virtualKey, 1);
        pump();
    }
    std::string text() const { return bed.editor->text(); }
    bool isOpen() const { return IsWindowVisible(bed.editor->handle()) != 0; }

    Bed bed;
    fw::CKeyFilter keys;
};

TEST_F(Editors, KeysEndTheEditOnce) {
    const struct {
        WPARAM key;
        const char* told;
    } cases[] = {{VK_RETURN, "commit new"}, {VK_ESCAPE, "cancel new"}, {VK_TAB, "next new"}};
    for (const auto& each : cases) {
        bed.open<CEditEditor>("old", "");
        type("new");
        key(VK_LEFT);
        EXPECT_TRUE(isOpen());
        key(each.key);
        EXPECT_EQ(bed.log, Log{each.told});
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(GetFocus(), bed.list);
        bed.editor->leave();
        EXPECT_EQ(bed.log.size(), 1u);
    }
    bed.open<CEditEditor>("old", "");
    EXPECT_TRUE(bed.editor->dialogKey(VK_TAB, true, false));
    EXPECT_FALSE(bed.editor->dialogKey(VK_DOWN, false, false));
    EXPECT_EQ(bed.log, Log{"previous old"});
}

TEST_F(Editors, TakeTheirAllowedCharactersOnly) {
    const HWND edit = bed.open<CEditEditor>("5", kDigits);
    type(
        "1<2\xE9"
        "a3\t");
    EXPECT_EQ(text(), "123");
    type("\x1A");
    EXPECT_EQ(text(), "5") << "undo";
    type("\x1A");
    key(VK_END);
    copyToClipboard(bed.handle(), "4,5");
    SendMessageA(edit, WM_PASTE, 0, 0);
    EXPECT_EQ(text(), "123") << "a text without its comma would be another number";
    copyToClipboard(bed.handle(), "45\r\nx");
    type("\x16");
    EXPECT_EQ(text(), "12345");
    copyToClipboard(bed.handle(), std::string(253, '1'));
    SendMessageA(edit, WM_PASTE, 0, 0);
    EXPECT_EQ(text(), "12345") << "too long as a whole";
    type(
        "\x01\x16"
        "4455");
    EXPECT_EQ(text(), std::string(253, '1').append("44"));
    // What came in another way is looked at in the end; what stood there before is not.
    SetWindowTextA(edit, "7<8");
    DialogTrap trap;
    key(VK_RETURN);
    EXPECT_EQ(bed.log, Log{"\"7<8\" has characters that cannot be used here"});
    EXPECT_TRUE(isOpen());
    bed.open<CEditEditor>("7<8", kDigits);
    key(VK_RETURN);
    EXPECT_EQ(bed.log, Log{"commit 7<8"});
}

TEST_F(Editors, ARefusedNumberStaysOpenAndIsSelected) {
    bed.open<CPriceEditor>("1500.00", "0123456789.-a");
    type("12a");
    DialogTrap trap;
    key(VK_RETURN);
    key(VK_TAB);
    const std::string message = "\"12a\" is not a number";
    EXPECT_EQ(bed.log, (Log{message, message}));
    EXPECT_EQ(trap.texts, bed.log);
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(bed.editor->owns(GetFocus()));
    SendMessageA(GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    key(VK_HOME);
    SendMessageA(GetFocus(), EM_SETSEL, 0, -1);
    type("-1.5");
    key(VK_UP);
    key(VK_RETURN);
    EXPECT_EQ(bed.log.back(), "commit -1.5");
}

TEST_F(Editors, TheFocusGoingElsewhereCommits) {
    bed.open<CPriceEditor>("1", kDigits);
    type("2");
    SetFocus(bed.other);
    EXPECT_EQ(bed.log, Log{"commit 2"}) << "at once: a button may be on its way";
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(GetFocus(), bed.other);

    // A refused text: the message comes after the change of focus, then the edit is cancelled.
    bed.open<CPriceEditor>("1", kDigits);
    type("-");
    DialogTrap trap;
    SetFocus(bed.other);
    EXPECT_TRUE(bed.log.empty());
    SetFocus(GetWindow(bed.editor->handle(), GW_CHILD));
    pump();
    EXPECT_TRUE(bed.log.empty() && isOpen()) << "the focus came back";
    SetFocus(bed.other);
    pump();
    EXPECT_EQ(bed.log, (Log{"\"-\" is not a number", "cancel -"}));
    EXPECT_EQ(trap.texts.size(), 1u);
    EXPECT_FALSE(isOpen());

}

TEST_F(Editors, MayBeDestroyedAtAnyTime) {
    bed.destroys = true;
    bed.open<CEditEditor>("1", "");
    key(VK_RETURN);
    bed.open<CEditEditor>("2", "");
    SetFocus(bed.other);
    EXPECT_EQ(bed.log, Log{"commit 2"});
    EXPECT_EQ(bed.editor, nullptr);

    // Behind its own message box, and before that opened.
    bed.open<CPriceEditor>("x", "");
    {
        const DialogTrap trap([this](HWND) { bed.editor.reset(); });
        key(VK_RETURN);
    }
    EXPECT_EQ(bed.log, Log{"\"x\" is not a number"});
    bed.open<CPriceEditor>("x", "");
    SetFocus(bed.other);
    bed.editor.reset();
    pump();
    EXPECT_TRUE(bed.log.empty());

    // With the list's window, and with the focus in it.
    bed.open<CPriceEditor>("x", "");
    DestroyWindow(bed.list);
    pump();
    bed.editor->leave();
    EXPECT_TRUE(bed.log.empty());
}

const std::vector<std::string> kChoices{"E", "D"};

HWND droppedList(HWND combo) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(combo, &info);
    return info.hwndList;
}

TEST_F(Editors, AChoiceIsTakenByKeyOrMouse) {
    HWND combo = bed.open<CComboEditor>("E", kChoices);
    SendMessageA(combo, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
    EXPECT_EQ(text(), "E");
    key(VK_DOWN);
    EXPECT_TRUE(bed.log.empty());
    key(VK_RETURN);
    EXPECT_EQ(bed.log, Log{"commit D"});

    bed.open<CComboEditor>("yes", kChoices);
    EXPECT_EQ(text(), "yes") << "nothing changes silently";
    key(VK_DOWN);
    SetFocus(bed.other);
    EXPECT_EQ(bed.log, Log{"commit E"});

    combo = bed.open<CComboEditor>("E", kChoices);
    key(VK_F4);
    ASSERT_TRUE(SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0));
    key(VK_DOWN);
    key(VK_ESCAPE);
    EXPECT_FALSE(SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(bed.log.empty() && isOpen()) << "Esc closed the list only";
    EXPECT_EQ(text(), "E");
    key(VK_DOWN);
    EXPECT_TRUE(bed.log.empty()) << "chosen, not taken from the list";
    key(VK_UP);
    key(VK_F4);
    key(VK_DOWN);
    key(VK_RETURN);
    EXPECT_EQ(bed.log, Log{"commit D"});

    combo = bed.open<CComboEditor>("E", kChoices);
    bed.editor->openedWithMouse();
    const HWND choices = droppedList(combo);
    const auto row = SendMessageA(choices, LB_GETITEMHEIGHT, 0, 0);
    const LPARAM second = MAKELPARAM(5, row + row / 2);
    PostMessageA(choices, WM_MOUSEMOVE, 0, second);
    PostMessageA(choices, WM_LBUTTONDOWN, MK_LBUTTON, second);
    PostMessageA(choices, WM_LBUTTONUP, 0, second);
    pump();
    EXPECT_EQ(bed.log, Log{"commit D"});
}

TEST_F(Editors, DatesGoInAndOutInTheirForm) {
    bed.open<CDateTimeEditor>("31/12/2023", DateTimeForm::date);
    key(VK_UP);
    key(VK_RETURN);
    EXPECT_EQ(bed.log, Log{"commit 01/12/2023"});

    bed.open<CDateTimeEditor>("05/06/2024", DateTimeForm::date);
    type("7");
    key(VK_RETURN);
    EXPECT_EQ(bed.log, Log{"commit 07/06/2024"}) << "typed digits count at Enter";

    bed.open<CDateTimeEditor>("05/06/2024 10:20:30", DateTimeForm::dateAndTime);
    key(VK_RIGHT);
    key(VK_UP);
    SetFocus(bed.other);
    EXPECT_EQ(bed.log, Log{"commit 05/07/2024 10:20:30"});

    // Over the calendar: Esc closes only that; a picked day is a change, and the editor stays.
    const HWND picker = bed.open<CDateTimeEditor>("05/06/2024", DateTimeForm::date);
    const auto calendar = [picker] {
        return reinterpret_cast<HWND>(SendMessageA(picker, DTM_GETMONTHCAL, 0, 0));
    };
    const auto clickAt = [](HWND window, int x, int y) {
        SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
        pump();
    };
    RECT room{};
    GetClientRect(picker, &room);
    clickAt(picker, room.right - 6, room.bottom / 2);
    ASSERT_TRUE(IsWindowVisible(calendar()));
    bed.editor->dialogKey(VK_ESCAPE, false, false);
    pump();
    EXPECT_FALSE(IsWindowVisible(calendar()));
    EXPECT_TRUE(bed.log.empty() && isOpen());
    clickAt(picker, room.right - 6, room.bottom / 2);
    GetClientRect(calendar(), &room);
    clickAt(calendar(), room.right / 2, room.bottom / 2);
    EXPECT_FALSE(IsWindowVisible(calendar()));
    EXPECT_TRUE(bed.log.empty() && isOpen());
    EXPECT_NE(text(), "05/06/2024");
    EXPECT_EQ(text().substr(2), "/06/2024");

    // What was not touched comes back as it was.
    for (const char* before : {"5/6/2024", "soon", ""}) {
        bed.open<CDateTimeEditor>(before, DateTimeForm::date);
        key(VK_RETURN);
        EXPECT_EQ(bed.log, Log{std::string("commit ") + before});
    }
    SYSTEMTIME now{};
    GetLocalTime(&now);
    const HWND today = bed.open<CDateTimeEditor>("soon", DateTimeForm::date);
    SYSTEMTIME shown{};
    SendMessageA(today, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&shown));
    EXPECT_EQ(shown.wYear, now.wYear);
}

TEST_F(Editors, CoverTheirCell) {
    const auto check = [this](HWND control) {
        RECT editor{}, inner{};
        GetWindowRect(bed.editor->handle(), &editor);
        GetWindowRect(control, &inner);
        MapWindowPoints(nullptr, bed.list, reinterpret_cast<POINT*>(&editor), 2);
        MapWindowPoints(nullptr, bed.list, reinterpret_cast<POINT*>(&inner), 2);
        EXPECT_EQ(editor.left, kCell.left);
        EXPECT_EQ(editor.right, kCell.right);
        EXPECT_LE(editor.top, kCell.top);
        EXPECT_GE(editor.bottom, kCell.bottom);
        EXPECT_GE(inner.top, editor.top);
        EXPECT_LE(inner.bottom, editor.bottom);
    };
    check(bed.open<CEditEditor>("x", ""));
    check(bed.open<CComboEditor>("E", kChoices));
    check(bed.open<CDateTimeEditor>("01/01/2024", DateTimeForm::date));
}

TEST_F(Editors, AHundredEditsLeaveNothingBehind) {
    const auto edits = [this] {
        bed.open<CPriceEditor>("1", kDigits);
        key(VK_RETURN);
        bed.open<CComboEditor>("E", kChoices);
        SetFocus(bed.other);
        bed.open<CDateTimeEditor>("01/01/2024", DateTimeForm::date);
        bed.editor.reset();
    };
    edits();  // what the platform keeps from the first time on
    const DWORD gdi = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const DWORD user = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    for (int i = 0; i < 100; ++i) edits();
    EXPECT_EQ(GetWindow(bed.list, GW_CHILD), ListView_GetHeader(bed.list));
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), gdi);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), user);
}

}  // namespace
