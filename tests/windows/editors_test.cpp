// The editors of list cells, over a plain list-view in a window whose keys are filtered as a
// pane's are.
#include "editors/cell_editor.h"
#include "editors/combo_control.h"
#include "editors/date_time_control.h"
#include "editors/edit_control.h"
#include "editors/price_control.h"
#include "framework/dialog.h"
#include "framework/key_filter.h"
#include "listctrl/clipboard.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

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

    template <class Control, class... Arguments>
    HWND open(const char* text, Arguments&&... arguments) {
        log.clear();
        editor = std::make_unique<CCellEditor>(
            *this, std::make_unique<Control>(std::forward<Arguments>(arguments)...));
        const auto font = reinterpret_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
        EXPECT_TRUE(editor->open(list, kCell, font, text));
        return GetFocus();
    }

    void editEnding(EditEnd how, const std::optional<std::string>& typed) override {
        static constexpr const char* names[] = {"commit", "cancel", "next", "previous"};
        log.push_back(names[static_cast<int>(how)] + (typed ? " " + *typed : std::string()));
        if (destroys) editor.reset();
    }
    void editRefused(const std::string& message) override {
        log.push_back(message);
        fw::showMessageBox(message);
    }

    HWND list, other;
    std::unique_ptr<CCellEditor> editor;
    Texts log;
    bool destroys = false;  // the editor, as soon as it asks

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {fw::on<fw::kPaneKey, &Bed::onPaneKey>()};
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    void onPaneKey(UINT key, bool repeated) {
        const bool shift = GetKeyState(VK_SHIFT) < 0;
        if (editor != nullptr && editor->owns(GetFocus()) &&
            editor->dialogKey(key, shift, repeated))
            return;
        // The key was taken from the queue: as a pane does, the bed hands it on.
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

    std::string text() const { return bed.editor->text(); }
    bool isOpen() const { return IsWindowVisible(bed.editor->handle()) != 0; }

    Bed bed;
    fw::CKeyFilter keys;
};

TEST_F(Editors, TakeTheirAllowedCharactersOnly) {
    const HWND edit = bed.open<CEditControl>("5", kDigits);
    hand::type(
        "1<2a\xE9"
        "3");
    EXPECT_EQ(text(), "123");
    hand::key('Z', hand::kCtrl);
    EXPECT_EQ(text(), "5") << "undo";
    hand::key('Z', hand::kCtrl);
    hand::key(VK_END);
    copyToClipboard(bed.handle(), "4,5");
    SendMessageA(edit, WM_PASTE, 0, 0);
    EXPECT_EQ(text(), "123") << "a text without its comma would be another number";
    copyToClipboard(bed.handle(), "45\r\nx");
    hand::key('V', hand::kCtrl);
    EXPECT_EQ(text(), "12345");
    copyToClipboard(bed.handle(), std::string(253, '1'));
    hand::key('V', hand::kCtrl);
    EXPECT_EQ(text(), "12345") << "too long as a whole";
    hand::key('A', hand::kCtrl);
    hand::key('V', hand::kCtrl);
    hand::type("4455");
    EXPECT_EQ(text(), std::string(253, '1').append("44"));
    // What came in another way is looked at in the end.
    SetWindowTextA(edit, "7<8");
    const DialogTrap trap;
    hand::key(VK_RETURN);
    EXPECT_EQ(bed.log, Texts{"\"7<8\" has characters that cannot be used here"});
    EXPECT_TRUE(isOpen());
}

// While the mouse is held, or another program is in front, no message opens.
TEST_F(Editors, ARefusedTextWaitsUntilTheUserIsBack) {
    const HWND edit = bed.open<CPriceControl>("1", kDigits);
    hand::type("-");
    const DialogTrap trap;
    const auto settle = [] {
        const ULONGLONG end = GetTickCount64() + 300;
        hand::waitUntil([end] { return GetTickCount64() > end; });
    };
    SetFocus(bed.other);
    SetCapture(bed.other);
    settle();
    EXPECT_TRUE(bed.log.empty());
    ReleaseCapture();
    EXPECT_TRUE(hand::waitUntil([&] { return GetFocus() == edit; }));
    EXPECT_EQ(bed.log.size(), 1u);

    bed.log.clear();
    SetActiveWindow(nullptr);  // what the thread sees when another program comes to the front
    ASSERT_EQ(GetFocus(), nullptr);
    settle();
    EXPECT_TRUE(bed.log.empty() && isOpen());
    SetActiveWindow(bed.handle());
    EXPECT_TRUE(hand::waitUntil([&] { return GetFocus() == edit && !bed.log.empty(); }));
    EXPECT_EQ(bed.log.size(), 1u);
}

TEST_F(Editors, MayBeDestroyedAtAnyTime) {
    bed.destroys = true;
    bed.open<CEditControl>("1", "");
    hand::key(VK_RETURN);
    bed.open<CEditControl>("2", "");
    hand::type("3");
    SetFocus(bed.other);
    EXPECT_EQ(bed.log, Texts{"commit 3"});
    EXPECT_EQ(bed.editor, nullptr);

    // Behind its own message box, and before that opened.
    bed.open<CPriceControl>("1", "");
    hand::type("x");
    {
        const DialogTrap trap([this](HWND) { bed.editor.reset(); });
        hand::key(VK_RETURN);
    }
    EXPECT_EQ(bed.log, Texts{"\"x\" is not a number"});
    bed.open<CPriceControl>("1", "");
    hand::type("x");
    SetFocus(bed.other);
    bed.editor.reset();
    pump();
    EXPECT_TRUE(bed.log.empty());

    // With the list's window, and with the focus in it.
    bed.open<CPriceControl>("1", "");
    hand::type("x");
    DestroyWindow(bed.list);
    pump();
    EXPECT_TRUE(bed.editor->leave());
    EXPECT_TRUE(bed.log.empty());
}

const Texts kChoices{"E", "D"};

HWND droppedList(HWND combo) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(combo, &info);
    return info.hwndList;
}

TEST_F(Editors, AChoiceIsTakenByKeyOrMouse) {
    HWND combo = bed.open<CComboControl>("E", kChoices);
    hand::wheel(combo, -1);
    EXPECT_EQ(text(), "E");
    hand::key(VK_DOWN);
    EXPECT_TRUE(bed.log.empty());
    hand::key(VK_RETURN);
    EXPECT_EQ(bed.log, Texts{"commit D"});

    bed.open<CComboControl>("yes", kChoices);
    EXPECT_EQ(text(), "yes") << "nothing changes silently";
    hand::key(VK_DOWN);
    SetFocus(bed.other);
    EXPECT_EQ(bed.log, Texts{"commit E"});

    combo = bed.open<CComboControl>("E", kChoices);
    hand::key(VK_F4);
    ASSERT_TRUE(SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0));
    hand::key(VK_DOWN);
    hand::key(VK_ESCAPE);
    EXPECT_FALSE(SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0));
    EXPECT_TRUE(bed.log.empty() && isOpen()) << "Esc closed the list only";
    EXPECT_EQ(text(), "E");
    hand::key(VK_DOWN);
    EXPECT_TRUE(bed.log.empty()) << "chosen, not taken from the list";
    hand::key(VK_UP);
    hand::key(VK_F4);
    hand::key(VK_DOWN);
    hand::key(VK_RETURN);
    EXPECT_EQ(bed.log, Texts{"commit D"});

    combo = bed.open<CComboControl>("E", kChoices);
    bed.editor->openedWithMouse();
    const HWND choices = droppedList(combo);
    RECT list{};
    GetWindowRect(choices, &list);
    const auto row = static_cast<LONG>(SendMessageA(choices, LB_GETITEMHEIGHT, 0, 0));
    hand::click(POINT{list.left + 5, list.top + row + row / 2});
    EXPECT_EQ(bed.log, Texts{"commit D"});
}

TEST_F(Editors, DatesGoInAndOutInTheirForm) {
    constexpr auto date = DateTimeForm::date, dateAndTime = DateTimeForm::dateAndTime;
    const struct {
        const char* before;
        DateTimeForm form;
        std::vector<WORD> keys;  // then another window has the focus
        const char* log;
    } cases[] = {
        {"31/12/2023", date, {VK_UP, VK_RETURN}, "commit 01/12/2023"},
        {"05/06/2024", date, {'7', VK_RETURN}, "commit 07/06/2024"},  // typed digits count
        {"05/06/2024 10:20:30", dateAndTime, {VK_RIGHT, VK_UP}, "commit 05/07/2024 10:20:30"},
        // What was not touched comes back as it was.
        {"5/6/2024", date, {VK_RETURN}, "commit"},
        {"soon", date, {VK_RETURN}, "commit"},
        {"", date, {VK_RETURN}, "commit"},
    };
    for (const auto& each : cases) {
        bed.open<CDateTimeControl>(each.before, each.form);
        for (const WORD key : each.keys) hand::key(key);
        SetFocus(bed.other);
        EXPECT_EQ(bed.log, Texts{each.log}) << each.before;
    }
}

}  // namespace
