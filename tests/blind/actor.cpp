#include "tests/blind/actor.h"

#include <commctrl.h>

#include <algorithm>

#include "tests/blind/places.h"
#include "tests/windows/test_host.h"

namespace blind {
namespace {

using hand::Keys;

constexpr int kMaxLoopSteps = 25;  // then a loop is ended, whatever it is
constexpr const char* kTyped[] = {"12a", "77.5", "5",      "MAKER0", "MAKER1",
                                  "usr", ">5",   "<none>", "a~b",    "*1",
                                  "360", "rms",  "x y",    "why",    "--ALL-- "};

struct KeyChoice {
    const char* name;
    WORD key;
    Keys keys;
    int weight;
};
constexpr KeyChoice kKeyChoices[] = {
    {"Tab", VK_TAB, {}, 8},
    {"Shift+Tab", VK_TAB, hand::kShift, 4},
    {"Enter", VK_RETURN, {}, 12},
    {"Esc", VK_ESCAPE, {}, 5},
    {"Space", VK_SPACE, {}, 6},
    {"Up", VK_UP, {}, 4},
    {"Down", VK_DOWN, {}, 6},
    {"Left", VK_LEFT, {}, 2},
    {"Right", VK_RIGHT, {}, 2},
    {"Shift+Up", VK_UP, hand::kShift, 3},
    {"Shift+Down", VK_DOWN, hand::kShift, 4},
    {"Ctrl+Down", VK_DOWN, hand::kCtrl, 2},
    {"Ctrl+Space", VK_SPACE, hand::kCtrl, 2},
    {"Home", VK_HOME, {}, 1},
    {"End", VK_END, {}, 1},
    {"Page Down", VK_NEXT, {}, 1},
    {"F2", VK_F2, {}, 6},
    {"F4", VK_F4, {}, 2},
    {"Alt+Down", VK_DOWN, hand::kAlt, 2},
    {"F5", VK_F5, {}, 1},
    {"Shift+F5", VK_F5, hand::kShift, 1},
    {"F6", VK_F6, {}, 2},
    {"Ctrl+A", 'A', hand::kCtrl, 1},
    {"Ctrl+C", 'C', hand::kCtrl, 1},
    {"Shift+G", 'G', hand::kShift, 1},
    {"Menu", VK_APPS, {}, 1},
    {"Ctrl+Shift+Y", 'Y', hand::kCtrlShift, 3},
    {"Ctrl+Shift+N", 'N', hand::kCtrlShift, 2},
    {"Ctrl+Shift+U", 'U', hand::kCtrlShift, 3},
    {"Ctrl+Shift+C", 'C', hand::kCtrlShift, 1},
    {"Ctrl+Shift+D", 'D', hand::kCtrlShift, 1},
    {"Ctrl+Shift+P", 'P', hand::kCtrlShift, 2},
    {"Ctrl+Shift+Enter", VK_RETURN, hand::kCtrlShift, 3},
    {"F8", VK_F8, {}, 1},
    {"Delete", VK_DELETE, {}, 1},
    {"Backspace", VK_BACK, {}, 2},
    {"M", 'M', {}, 2},
    {"1", '1', {}, 2},
};

constexpr struct {
    WORD key;
    Keys keys;
    const char* press;
} kChords[] = {{'Y', hand::kCtrlShift, "Accept"},
               {'N', hand::kCtrlShift, "Reject"},
               {'U', hand::kCtrlShift, "Update"},
               {VK_F5, {}, "Recover"}};

bool same(Keys a, Keys b) {
    return a.ctrl == b.ctrl && a.shift == b.shift && a.alt == b.alt;
}

// What the first key-down presses.
void announceKey(Act& act, const KeyChoice& choice, const Sight& sight) {
    if (!sight.keysReachPane()) return;
    const bool dropped = std::ranges::any_of(sight.main.boxes, &Box::dropped) ||
                         std::ranges::any_of(sight.details.boxes, &Box::dropped) ||
                         sight.editor != nullptr;
    for (const auto& chord : kChords) {
        if (chord.key != choice.key || !same(chord.keys, choice.keys)) continue;
        const HWND pressed = FindWindowExA(sight.pane, nullptr, "Button", chord.press);
        act.press = buttonOf(sight.pane, pressed);
        act.certain = !act.press.empty() && !dropped;
    }
    if (choice.key == VK_F8) act.press = kOpenNeighbour;
    if (choice.key == VK_RETURN && same(choice.keys, hand::kCtrlShift)) {
        act.press = kOpenNext;
        act.key = 0;  // no Enter for what has the focus
        return;
    }
    if (choice.key != VK_SPACE && choice.key != VK_RETURN) return;
    act.press = buttonOf(sight.pane, sight.focus);
    act.certain = !act.press.empty() && same(choice.keys, {});
    if (choice.key == VK_RETURN && sight.focus == sight.main.window) {
        act.press = kOpenFocused;
        act.certain = same(choice.keys, {});
    }
}

bool inThisThread(HWND window) {
    return window != nullptr && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

// ---- What ----

Keys someModifiers(Dice& dice) {
    static constexpr struct {
        Keys keys;
        int weight;
    } choices[] = {{{}, 80}, {hand::kCtrl, 8}, {hand::kShift, 8}, {hand::kCtrlShift, 4}};
    return dice.weighted(choices).keys;
}

Act keyAct(Dice& dice, const Sight& sight) {
    const KeyChoice& choice = dice.weighted(kKeyChoices);
    const int repeats = dice.chance(12) ? 1 + dice.below(12) : 0;
    Act act{.name = choice.name, .run = [=] { hand::hold(choice.key, repeats, choice.keys); }};
    act.key = choice.key;
    if (repeats > 0) act.name += " held, " + std::to_string(repeats) + " repeats";
    act.name += " in " + classOf(sight.focus) + " '" + textOf(sight.focus) + "'";
    announceKey(act, choice, sight);
    return act;
}

Act mouseAct(Dice& dice, const Sight& sight) {
    const Place found = somewhere(dice, sight);
    if (!found || !inThisThread(WindowFromPoint(*found))) return keyAct(dice, sight);
    const POINT at = *found;
    const HWND under = WindowFromPoint(at);
    const std::string on = words(at);
    const std::string pressed = buttonOf(sight.pane, under);
    Act act;
    act.inDropList = classOf(under) == "ComboLBox";
    const int gesture = dice.below(100);
    if (gesture < 62) {
        const Keys keys = someModifiers(dice);
        act.name =
            std::string(keys.ctrl ? "Ctrl+" : "") + (keys.shift ? "Shift+" : "") + "click " + on;
        act.run = [at, keys] { hand::click(at, keys); };
        act.press = pressed;
        act.certain = !pressed.empty() && GetCapture() == nullptr;
    } else if (gesture < 85) {
        act.name = "double-click " + on;
        act.run = [at] { hand::doubleClick(at); };
        act.press = under == sight.main.window ? kOpenSelected : pressed;
    } else if (gesture < 90) {
        act.name = "right click " + on;
        act.run = [at] { hand::click(at, {}, hand::Button::right); };
    } else if (gesture < 95) {
        const POINT to =
            inWindow(dice, dice.chance(80) ? sight.pane : GetAncestor(sight.pane, GA_ROOT));
        const bool escape = dice.chance(20);
        act.name = "drag " + on + " to " + words(to) + (escape ? " and Esc" : "");
        act.run = [=] { hand::drag(at, to, escape); };
        if (WindowFromPoint(to) == under) act.press = pressed;
    } else {
        const int notches = dice.below(5) - 2;
        act.name = "wheel " + std::to_string(notches) + " " + on;
        act.run = [at, notches] { hand::wheel(at, notches); };
    }
    return act;
}

Act typeAct(Dice& dice, const Sight& sight) {
    const char* text = dice.oneOf(kTyped);
    // A blank presses the button that has the focus.
    if (!buttonOf(sight.pane, sight.focus).empty()) return keyAct(dice, sight);
    return {.name = "type \"" + std::string(text) + "\" into " + classOf(sight.focus),
            .run = [text] { hand::type(text); },
            .key = 'A'};
}

}  // namespace

Act Actor::serverActOf(std::string (Server::*move)()) {
    Act act{.name = "server:", .run = {}, .byHand = false};
    if (m_dice.chance(4)) {
        act.name = "server, and nothing can be sent until the next action:";
        host().sends = false;
    }
    act.run = [this, move] {
        m_loopWords += " " + (m_server.*move)();
        pump();
    };
    return act;
}

Act Actor::serverAct() {
    static constexpr struct {
        std::string (Server::*act)();
        int weight;
    } moves[] = {{&Server::publishNew, 30},
                 {&Server::publishAgain, 12},
                 {&Server::publishOutcome, 22},
                 {&Server::answerSomething, 20}};
    return serverActOf(m_dice.weighted(moves).act);
}

Act Actor::hotKeyAct() {
    return {.name = "hot key",
            .run =
                [this] {
                    m_hotKey();
                    pump();
                },
            .byHand = false};
}

// ---- Habits: without them a blind hand would rarely get to a value that can be edited ----

std::optional<Act> Actor::answerAct(const Sight&) {
    return serverActOf(&Server::answerSomething);
}

// A double-click on a row, of limits if there is one in sight.
std::optional<Act> Actor::openAct(const Sight& sight) {
    Place at;
    for (int tries = 0; tries < 5; ++tries) {
        at = inRow(m_dice, sight.main);
        LVHITTESTINFO hit{};
        if (!at || WindowFromPoint(*at) != sight.main.window) return std::nullopt;
        hit.pt = *at;
        ScreenToClient(sight.main.window, &hit.pt);
        const auto row =
            SendMessageA(sight.main.window, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        const auto change = m_server.pending().find(sight.main.cell(static_cast<int>(row), "Key"));
        if (change != m_server.pending().end() && change->second.code == "360") break;
    }
    return Act{.name = "double-click " + words(*at),
               .run = [at = *at] { hand::doubleClick(at); },
               .press = kOpenSelected};
}

std::optional<Act> Actor::editAct(const Sight& sight) {
    const int row = m_dice.below(static_cast<int>(sight.details.rows.size()));
    const int column = sight.details.column("Value");
    if (column < 0) return std::nullopt;
    const POINT at = hand::cell(sight.details.window, row, column);
    if (WindowFromPoint(at) != sight.details.window) return std::nullopt;
    return Act{.name = "double-click the value of " + sight.details.cell(row, "Field"),
               .run = [at] { hand::doubleClick(at); }};
}

std::optional<Act> Actor::valueAct(const Sight&) {
    static constexpr const char* values[] = {"77.5", "5", "12a", "640", "e", "d", "0.5"};
    const char* text = m_dice.oneOf(values);
    return Act{.name = "type the value " + std::string(text),
               .run = [text] { hand::type(text); },
               .key = 'A'};
}

std::optional<Act> Actor::updateAct(const Sight& sight) {
    const HWND update = FindWindowExA(sight.pane, nullptr, "Button", "Update");
    if (WindowFromPoint(hand::middle(update)) != update) return std::nullopt;
    Act act{.name = "click Update",
            .run = [at = hand::middle(update)] { hand::click(at); },
            .press = buttonOf(sight.pane, update)};
    act.certain = !act.press.empty() && GetCapture() == nullptr;
    return act;
}

// An empty list is soon dull: the filters that empty it go, one by one.
std::optional<Act> Actor::emptyBoxAct(const Sight& sight) {
    for (const Box& box : sight.main.boxes) {
        const POINT middle = hand::middle(box.window), at{middle.x - 4, middle.y};
        if (box.text.empty() || box.dropped || !IsChild(box.window, WindowFromPoint(at))) continue;
        return Act{.name = "click into box " + box.column + " and Esc",
                   .run =
                       [at] {
                           hand::click(at);
                           hand::key(VK_ESCAPE);
                       },
                   .key = VK_ESCAPE};
    }
    return std::nullopt;
}

Act Actor::next(const Sight& sight) {
    static constexpr struct {
        bool (*when)(const Actor&, const Sight&);
        int percent;
        std::optional<Act> (Actor::*make)(const Sight&);
    } habits[] = {
        {[](const Actor& self, const Sight&) { return self.m_server.owesAnswer(); }, 30,
         &Actor::answerAct},
        {[](const Actor&, const Sight& seen) { return seen.editor != nullptr; }, 25,
         &Actor::valueAct},
        {[](const Actor&, const Sight& seen) { return !seen.tag.empty(); }, 15, &Actor::editAct},
        {[](const Actor&, const Sight& seen) { return !seen.tag.empty(); }, 3, &Actor::updateAct},
        {[](const Actor&, const Sight& seen) { return seen.details.rows.empty(); }, 12,
         &Actor::openAct},
        {[](const Actor& self, const Sight& seen) {
             return seen.main.rows.size() * 3 < self.m_server.pending().size();
         },
         15, &Actor::emptyBoxAct},
    };
    static constexpr struct {
        Act (*make)(Actor&, const Sight&);
        int weight;
    } kinds[] = {{[](Actor& self, const Sight& seen) { return mouseAct(self.m_dice, seen); }, 400},
                 {[](Actor& self, const Sight& seen) { return keyAct(self.m_dice, seen); }, 340},
                 {[](Actor& self, const Sight& seen) { return typeAct(self.m_dice, seen); }, 60},
                 {[](Actor& self, const Sight&) { return self.serverAct(); }, 110},
                 {[](Actor& self, const Sight&) {
                      return Act{.name = "pause", .run = self.m_pause, .pause = true};
                  },
                  4},
                 {[](Actor& self, const Sight&) { return self.hotKeyAct(); }, 10}};
    m_loopSteps = 0;
    // An act of its own: what has the focus then is known only afterwards.
    if (!inThisThread(GetForegroundWindow()))
        return Act{.name = "back to the front",
                   .run = [root = GetAncestor(sight.pane, GA_ROOT)] { SetForegroundWindow(root); }};
    if (IsWindowVisible(sight.pane) == 0) return hotKeyAct();
    const RECT seen = visiblePart(sight.pane);
    if (seen.right - seen.left < 100 || seen.bottom - seen.top < 100)
        SetWindowPos(GetAncestor(sight.pane, GA_ROOT), nullptr, 100, 100, 700, 600, SWP_NOZORDER);
    for (const auto& habit : habits)
        if (habit.when(*this, sight) && m_dice.chance(habit.percent))
            if (const auto act = (this->*habit.make)(sight)) return *act;
    if (!sight.keysReachPane() && m_dice.chance(40)) return hotKeyAct();
    return m_dice.weighted(kinds).make(*this, sight);
}

// ---- In loops ----

// A click beside a menu ends it and goes on to what lies below.
void Actor::clickIn(HWND window) {
    const POINT at = inWindow(m_dice, window);
    m_loopWords += " (" + words(at) + ")";
    m_loopPress = buttonOf(findPane(), WindowFromPoint(at));
    hand::click(at);
}

void Actor::clickInDialog() {
    std::vector<HWND> children;
    findWindow(GetActiveWindow(), [&children](HWND child) {
        if (IsWindowVisible(child) != 0) children.push_back(child);
        return false;
    });
    if (!children.empty()) clickIn(m_dice.oneOf(children));
}

void Actor::answerLoop() {
    static constexpr struct {
        const char* name;
        void (*act)(Actor&);
        int weight;
    } moves[] = {
        {"Esc", [](Actor&) { hand::key(VK_ESCAPE); }, 24},
        {"Enter", [](Actor&) { hand::key(VK_RETURN); }, 18},
        {"Space", [](Actor&) { hand::key(VK_SPACE); }, 6},
        {"Tab", [](Actor&) { hand::key(VK_TAB); }, 8},
        {"Down", [](Actor&) { hand::key(VK_DOWN); }, 12},
        {"Y", [](Actor&) { hand::key('Y'); }, 8},
        {"N", [](Actor&) { hand::key('N'); }, 8},
        {"why", [](Actor&) { hand::type("why"); }, 8},
        {"click in it", [](Actor& self) { self.clickInDialog(); }, 10},
        {"click in the pane", [](Actor& self) { self.clickIn(findPane()); }, 4},
        {"Ctrl+Shift+Y", [](Actor&) { hand::key('Y', hand::kCtrlShift); }, 2},
        {"F5", [](Actor&) { hand::key(VK_F5); }, 2},
        {"outcome", [](Actor& self) { self.m_server.publishOutcome(); }, 4},
        {"publish", [](Actor& self) { self.m_server.publishNew(); }, 4},
        {"answer", [](Actor& self) { self.m_server.answerSomething(); }, 3},
    };
    const auto& move = m_dice.weighted(moves);
    const std::string where = textOf(GetActiveWindow());
    if (++m_loopSteps > kMaxLoopSteps) {
        m_loopWords += " <ended>";
        EndMenu();
        for (const WPARAM command : {IDCANCEL, IDNO, IDOK})
            PostMessageA(GetActiveWindow(), WM_COMMAND, command, 0);
        return;
    }
    m_loopWords += std::string(" [") + where + ": " + move.name + "]";
    move.act(*this);
}

}  // namespace blind
