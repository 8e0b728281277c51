// The filter boxes under a real hand: what a box shows and what the list shows after each thing
// that a checker can do to it.
#include "tests/blind/watch.h"
#include "tests/windows/test_host.h"

namespace {

// The names in the first column, one behind the other.
std::string names() {
    std::string all;
    for (const std::string& name : column(0)) all += (all.empty() ? "" : " ") + name;
    return all;
}

void clickEdit(int item) {
    hand::click(filterEdit(item));
}
void clickArrow() {
    const RECT place = onScreen(filterBox(0));
    hand::click(POINT{place.right - 8, (place.top + place.bottom) / 2});
}
void clickLine(int line) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(filterBox(0), &info);
    RECT place{};
    SendMessageA(info.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(line),
                 reinterpret_cast<LPARAM>(&place));
    place = onScreen(info.hwndList, place);
    hand::click(POINT{place.left + 10, (place.top + place.bottom) / 2});
}
// The pause in typing comes when it is asked for, however slow the machine is.
blind::Watch* theTimers = nullptr;

const std::map<std::string, std::function<void()>>& steps() {
    static const std::map<std::string, std::function<void()>> table{
        {"(pause)", [] { theTimers->letTimersExpire(); }},
        {"(enter)", [] { hand::key(VK_RETURN); }},
        {"(esc)", [] { hand::key(VK_ESCAPE); }},
        {"(held esc)", [] { hand::hold(VK_ESCAPE, 5); }},
        {"(held enter)", [] { hand::hold(VK_RETURN, 5); }},
        {"(F4)", [] { hand::key(VK_F4); }},
        {"(Ctrl+down)", [] { hand::key(VK_DOWN, hand::kCtrl); }},
        {"(down)", [] { hand::key(VK_DOWN); }},
        {"(tab)", [] { hand::key(VK_TAB); }},
        {"(wheel)", [] { hand::wheel(filterEdit(0), -1); }},
        {"(arrow)", clickArrow},
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
        if (action.starts_with("(line "))
            clickLine(std::stoi(action.substr(6)));
        else if (step != steps().end())
            step->second();
        else
            hand::type(action.c_str());
    }
}

class Filters : public testing::Test {
protected:
    static constexpr char kAll[] = "MAKER1 MAKER10 MAKER05 RMS <none> a~b *x";

    Filters() {
        theTimers = &timers;
        int key = 20;
        for (const char* name : {"MAKER1", "MAKER10", "MAKER05", "RMS", "<none>", "a~b", "*x"})
            open.plugin.publish(pending(std::to_string(key++), "339", {{31003, name}}));
        pump();
    }
    OpenWorkbench open;
    blind::Watch timers;
};

TEST_F(Filters, ABoxSaysWhatIsFiltered) {
    const struct {
        const char* before;  // typed, and applied by Enter
        Texts actions;
        const char* box;
        const char* rows;
    } cases[] = {
        // A drop-down that opens and closes changes nothing, and what was typed waits its pause.
        {"", {"MAKER0", "(F4)", "(esc)"}, "MAKER0", kAll},
        {"", {"MAKER0", "(arrow)", "(arrow)", "(pause)"}, "MAKER0", "MAKER05"},
        {"", {"MAKER0", "(F4)", "(down)", "(esc)", "5"}, "MAKER05", kAll},
        {"RMS", {"(F4)", "(down)", "(down)", "(tab)", "(pause)"}, "RMS", "RMS"},
        {"RMS", {"(arrow)", "(down)", "(elsewhere)", "(pause)"}, "RMS", "RMS"},
        {"RMS", {"(F4)", "(held esc)"}, "RMS", "RMS"},
        // Another box applies its own text only.
        {"", {"MAKER0", "(F4)", "(esc)", "(other box)"}, "MAKER0", kAll},
        // A closed box does not step.
        {"RMS", {"(wheel)", "(pause)", "(enter)"}, "RMS", "RMS"},
        // A line that is taken is one whole value; typing makes it a pattern again.
        {"RMS", {"(arrow)", "(line 1)"}, "MAKER1", "MAKER1"},
        {"", {"(down)", "(line 7)", "(enter)"}, "*x", "*x"},
        {"", {"(F4)", "(down)", "(enter)"}, "MAKER1", "MAKER1"},
        {"", {"(F4)", "(down)", "(held enter)"}, "MAKER1", "MAKER1"},
        {"", {"(F4)", "(line 2)", "(other box)"}, "MAKER10", "MAKER10"},
        // With Ctrl by name.
        {"", {"(Ctrl+down)", "(line 2)"}, "<none>", "<none>"},
        // Typing in an open list leaves the lines that fit, and applies nothing by itself.
        {"", {"(F4)", "r0", "(line 1)"}, "MAKER05", "MAKER05"},
        {"", {"(F4)", "akeR", "(down)", "(down)", "(enter)"}, "MAKER10", "MAKER10"},
        {"", {"(F4)", "RMS", "(pause)", "(F4)", "(pause)"}, "RMS", "RMS"},
        // "--ALL-- " empties the box, and a text goes in as it is typed.
        {"RMS", {"(arrow)", "(line 0)"}, "", kAll},
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
        EXPECT_EQ(textOf(filterEdit(0)), each.box) << name;
        EXPECT_EQ(names(), each.rows) << name;
        EXPECT_FALSE(isDropped(0)) << name;
    }
    EXPECT_TRUE(host().sent.empty());
}

TEST_F(Filters, TheWheelOverAClosedBoxScrollsTheList) {
    for (int key = 100; key < 200; ++key)
        open.plugin.publish(pending(std::to_string(key), "339", {{31003, "MAKER1"}}));
    clickEdit(0);
    perform({"M", "(enter)"});
    const auto top = [] { return SendMessageA(mainList(), LVM_GETTOPINDEX, 0, 0); };
    hand::wheel(filterEdit(0), -1);
    const auto once = top();
    EXPECT_GT(once, 0);
    hand::wheel(filterBox(1), -1);
    EXPECT_GT(top(), once);
    EXPECT_EQ(textOf(filterEdit(0)), "M");
}

}  // namespace
