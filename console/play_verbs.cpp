#include "console/play_verbs.h"

#include <algorithm>
#include <functional>

#include "console/console.h"
#include "console/files.h"
#include "console/play_checks.h"
#include "console/ui_input.h"
#include "console/ui_probe.h"
#include "framework/controls.h"

namespace zek {
namespace {

constexpr char kHotKey[] = "Ctrl+M";

bool isFloating(HWND pane, HWND frame) {
    return GetAncestor(pane, GA_ROOT) != frame;
}

// Whether the pane lies along that side of the frame, or floats.
bool isAtSide(HWND pane, HWND frame, const std::string& side) {
    if (side == "float" || isFloating(pane, frame))
        return side == "float" && isFloating(pane, frame);
    const RECT rect = fw::rectInParent(pane);
    RECT room{};
    GetClientRect(frame, &room);
    const bool left = rect.left == room.left;
    const bool right = rect.right == room.right;
    const bool top = rect.top == room.top;
    if (side == "left") return left && !right;
    if (side == "right") return right && !left;
    return left && right && top == (side == "top");
}

Outcome pressKeyNamed(const PlayTurn& turn, const std::string& name) {
    const bool isPressed = ui::pressKey(name, turn.console.frameWindow());
    PostMessageA(turn.window, kReleaseKeys, 0, 0);
    return isPressed ? "" : "the key " + name + " cannot be pressed";
}

// By the keys: Down to the entry, which passes separators over, and Enter.
Outcome choosePopup(const PlayTurn& turn, const std::string& entry,
                    const std::function<void()>& open) {
    const HWND popup = ui::openMenu();
    if (popup == nullptr) {
        if (turn.isTimeToAct()) open();
        return "no menu opens";
    }
    const auto menu = reinterpret_cast<HMENU>(SendMessageA(popup, MN_GETHMENU, 0, 0));
    const int index = ui::itemNamed(menu, entry);
    if (index < 0) throw HopelessStep("the menu has no \"" + entry + "\"");
    for (int each = 0; each <= index; ++each)
        if (GetMenuItemID(menu, each) != 0) ui::pressKey("Down", popup);
    ui::pressKey("Enter", popup);
    return {};
}

HWND dialogControl(const PlayTurn& turn) {
    const HWND dialog = ui::openDialog();
    const HWND control = dialog != nullptr ? GetDlgItem(dialog, turn.number()) : nullptr;
    return control != nullptr && IsWindowVisible(control) != 0 && IsWindowEnabled(control) != 0
               ? control
               : nullptr;
}

// By the caption: a double-click changes between docked and floating, its menu docks at a side.
void movePane(const PlayTurn& turn, HWND pane, const std::string& side) {
    const bool floats = isFloating(pane, turn.console.frameWindow());
    if (ui::openMenu() != nullptr)
        ui::pressKey(side.substr(0, 1), pane);
    else if (floats || side == "float")
        ui::doubleClickCaption(floats ? GetAncestor(pane, GA_ROOT) : pane);
    else
        ui::contextClickCaption(pane);
}

Outcome chooseMenu(const PlayTurn& turn, const std::string& path) {
    const HWND frame = turn.console.frameWindow();
    HMENU menu = GetMenu(frame);
    std::string rest = path;
    for (auto bar = rest.find('>'); bar != std::string::npos; bar = rest.find('>')) {
        menu = GetSubMenu(menu, ui::itemNamed(menu, rest.substr(0, bar)));
        rest.erase(0, bar + 1);
    }
    const int index = menu != nullptr ? ui::itemNamed(menu, rest) : -1;
    const UINT state =
        index < 0 ? MF_GRAYED : GetMenuState(menu, static_cast<UINT>(index), MF_BYPOSITION);
    if ((state & MF_GRAYED) != 0) return "the menu has no \"" + path + "\" to choose";
    if (IsWindowEnabled(frame) == 0) return "the frame takes no input";
    PostMessageA(frame, WM_COMMAND, GetMenuItemID(menu, index), 0);
    return {};
}

// --- The workbench -------------------------------------------------------------------------------

Outcome hotKey(PlayTurn& turn) {
    if (turn.isTimeToAct()) pressKeyNamed(turn, kHotKey);
    return ui::mainList() != nullptr ? "" : "expected the workbench, saw no list of it";
}

Outcome select(PlayTurn& turn) {
    const HWND list = ui::mainList();
    for (std::size_t index = 0; index < turn.step->arguments.size(); ++index)
        if (turn.rowNamed(index) < 0)
            return "there is no row " + turn.argument(index) + ": " + shownIn(list);
    ui::selectOnly(list, turn.rowNamed(0));
    for (std::size_t index = 1; index < turn.step->arguments.size(); ++index)
        ui::alsoSelect(list, turn.rowNamed(index));
    return {};
}

Outcome sort(PlayTurn& turn) {
    const HWND list = ui::mainList();
    const int column = ui::columnNamed(list, turn.argument());
    if (column < 0) return "there is no column " + turn.argument();
    ui::clickCaption(list, column);
    return {};
}

Outcome filter(PlayTurn& turn) {
    const HWND list = ui::mainList();
    const int column = ui::columnNamed(list, turn.argument());
    const HWND box = column >= 0 ? ui::filterEdit(list, column) : nullptr;
    if (box == nullptr) return "there is no filter box for " + turn.argument();
    SetFocus(box);
    SetWindowTextA(box, turn.argument(1).c_str());
    ui::pressKey("Enter", box);
    return {};
}

Outcome doubleClick(PlayTurn& turn) {
    const HWND list = ui::mainList();
    const int found = turn.rowNamed(0);
    if (found < 0) return "there is no row " + turn.argument() + ": " + shownIn(list);
    ui::doubleClickRow(list, found);
    return {};
}

Outcome listMenu(PlayTurn& turn) {
    const HWND list = ui::mainList();
    if (list == nullptr) return "the list is not shown";
    return choosePopup(turn, turn.argument(), [list] { ui::contextClickRow(list, 0); });
}

Outcome headerMenu(PlayTurn& turn) {
    const HWND list = ui::mainList();
    const int column = ui::columnNamed(list, turn.argument());
    if (column < 0) return "there is no column " + turn.argument();
    return choosePopup(turn, turn.argument(1), [=] { ui::contextClickHeader(list, column); });
}

Outcome focus(PlayTurn& turn) {
    const HWND control = dialogControl(turn);
    if (control == nullptr)
        return "no dialog with a control " + turn.argument() + " that takes input";
    SendMessageA(ui::openDialog(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    return {};
}

Outcome choose(PlayTurn& turn) {
    if (Outcome unreachable = focus(turn); !unreachable.empty()) return unreachable;
    const HWND control = dialogControl(turn);
    if (ui::choose(control, turn.argument(1))) return {};
    return "expected an item \"" + turn.argument(1) + "\", saw \"" + ui::shownText(control) + "\"";
}

Outcome press(PlayTurn& turn) {
    const HWND button = ui::findButton(turn.argument());
    if (button == nullptr)
        return "there is no button \"" + turn.argument() + "\" that can be pressed";
    ui::click(button);
    return {};
}

Outcome type(PlayTurn& turn) {
    return ui::type(turn.argument()) ? "" : "no window has the focus";
}

Outcome key(PlayTurn& turn) {
    return pressKeyNamed(turn, turn.argument());
}

Outcome closeMessage(PlayTurn& turn) {
    const HWND dialog = ui::openDialog();
    if (turn.closing != nullptr) return dialog != turn.closing ? "" : "the message box stays open";
    const HWND button = dialog != nullptr ? ui::findButton("OK") : nullptr;
    if (button == nullptr) return "no message box with OK is open";
    turn.closing = dialog;
    ui::click(button);
    return "the message box stays open";
}

// The editor is whatever in the list has taken the focus from it.
Outcome edit(PlayTurn& turn) {
    const HWND list = ui::detailsList();
    if (turn.closing != nullptr) return GetFocus() != turn.closing ? "" : "the editor stays open";
    const int row = ui::findText(list, 0, turn.argument());
    if (row < 0) return "there is no detail \"" + turn.argument() + "\": " + shownIn(list);
    if (turn.tries > 1 && IsChild(list, GetFocus()) != 0) {
        turn.closing = GetFocus();
        fw::Edit(turn.closing).selectAll();
        ui::type(turn.argument(1));
        ui::pressKey("Enter", turn.closing);
    } else if (turn.isTimeToAct()) {
        ui::selectOnly(list, row);
        ui::pressKey("F2", list);
    }
    return "no editor opens";
}

Outcome closePane(PlayTurn& turn) {
    const HWND pane = ui::findPane();
    if (pane == nullptr) return "there is no pane";
    if (IsWindowVisible(pane) == 0) return {};
    if (turn.isTimeToAct()) {
        if (isFloating(pane, turn.console.frameWindow()))
            PostMessageA(GetAncestor(pane, GA_ROOT), WM_CLOSE, 0, 0);
        else
            ui::pressCaptionClose(pane);
    }
    return "the pane stays open";
}

Outcome dock(PlayTurn& turn) {
    const HWND pane = ui::findPane();
    if (pane == nullptr || IsWindowVisible(pane) == 0) return "the pane is not shown";
    const bool isThere = isAtSide(pane, turn.console.frameWindow(), turn.argument());
    if (isThere && ui::openMenu() == nullptr) return {};
    if (turn.isTimeToAct()) movePane(turn, pane, turn.argument());
    return "the pane is not at " + turn.argument();
}

// Somebody outside takes the picture: the file "request" in the folder holds its name, and goes
// when the picture is taken. The first tries give the windows time to reach the screen.
Outcome screenshot(PlayTurn& turn) {
    if (turn.shotsFolder.empty()) {
        if (turn.tries == 1)
            printLine("screenshot " + turn.argument() + ": no picture without a --shots folder");
        return {};
    }
    constexpr int kTriesBefore = 10;
    const std::string request = turn.shotsFolder + "\\request";
    if (turn.tries < kTriesBefore) return "the picture is not asked for yet";
    if (turn.tries == kTriesBefore && !replaceFile(request, turn.argument() + "\n"))
        throw HopelessStep("cannot write " + request);
    return !exists(request) ? "" : "nobody took the picture: " + request + " is still there";
}

// --- The console ---------------------------------------------------------------------------------

Outcome submitNext(PlayTurn& turn) {
    return chooseMenu(turn, "Maker>Submit Next Change");
}

Outcome submitAll(PlayTurn& turn) {
    return chooseMenu(turn, "Maker>Submit All Changes");
}

Outcome submitStorm(PlayTurn& turn) {
    turn.console.makers().submitStorm(turn.number());
    return {};
}

// A change may be decided that the checker does not see; its row then need not be there.
Outcome decide(PlayTurn& turn) {
    const PlayRow wanted = rowOf(turn.argument());
    std::string key = wanted.text;
    if (wanted.by != PlayRow::By::key) {
        const HWND list = ui::mainList();
        const int found = turn.rowNamed(0);
        if (found < 0) return "there is no row " + turn.argument() + ": " + shownIn(list);
        key = ui::cellText(list, found, ui::columnNamed(list, "Key"));
    }
    if (!turn.console.makers().decide(key, turn.argument(1) == "accepted"))
        throw HopelessStep("the server refuses: " +
                           turn.console.log().lines(LogTab::server).back().text);
    return {};
}

Outcome user(PlayTurn& turn) {
    if (turn.tries == 1) {
        const Outcome outcome = chooseMenu(turn, "User>" + turn.argument());
        if (!outcome.empty()) throw HopelessStep(outcome);
    }
    return turn.console.session() > turn.sessionBefore ? "" : "the user is still the same";
}

Outcome menu(PlayTurn& turn) {
    return chooseMenu(turn, turn.argument());
}

Outcome quit(PlayTurn& turn) {
    turn.quits = true;
    return {};
}

constexpr Verb kVerbs[] = {
    {PlayVerb::waitRows, VerbKind::wait, check::rows},
    {PlayVerb::waitDetails, VerbKind::wait, check::details},
    {PlayVerb::waitLog, VerbKind::wait, check::logHas},
    {PlayVerb::waitMessage, VerbKind::wait, check::message},
    {PlayVerb::expectRows, VerbKind::expect, check::rows},
    {PlayVerb::expectRow, VerbKind::expect, check::row},
    {PlayVerb::expectLog, VerbKind::expect, check::logHasLine},
    {PlayVerb::expectNoLog, VerbKind::expect, check::logHasNot},
    {PlayVerb::expectMessage, VerbKind::expect, check::message},
    {PlayVerb::expectText, VerbKind::expect, check::controlText},
    {PlayVerb::select, VerbKind::prepare, select},
    {PlayVerb::type, VerbKind::prepare, type},
    {PlayVerb::focus, VerbKind::prepare, focus},
    {PlayVerb::choose, VerbKind::prepare, choose},
    {PlayVerb::closeMessage, VerbKind::prepare, closeMessage},
    {PlayVerb::screenshot, VerbKind::prepare, screenshot},
    {PlayVerb::hotkey, VerbKind::act, hotKey},
    {PlayVerb::doubleClick, VerbKind::act, doubleClick},
    {PlayVerb::sort, VerbKind::act, sort},
    {PlayVerb::filter, VerbKind::act, filter},
    {PlayVerb::listMenu, VerbKind::act, listMenu},
    {PlayVerb::headerMenu, VerbKind::act, headerMenu},
    {PlayVerb::press, VerbKind::act, press},
    {PlayVerb::key, VerbKind::act, key},
    {PlayVerb::submitNext, VerbKind::act, submitNext},
    {PlayVerb::submitAll, VerbKind::act, submitAll},
    {PlayVerb::submitStorm, VerbKind::act, submitStorm},
    {PlayVerb::decide, VerbKind::act, decide},
    {PlayVerb::user, VerbKind::act, user},
    {PlayVerb::menu, VerbKind::act, menu},
    {PlayVerb::dock, VerbKind::act, dock},
    {PlayVerb::closePane, VerbKind::act, closePane},
    {PlayVerb::edit, VerbKind::act, edit},
    {PlayVerb::expectDetail, VerbKind::expect, check::detail},
    {PlayVerb::expectClean, VerbKind::expect, check::clean},
    {PlayVerb::quit, VerbKind::act, quit},
};

}  // namespace

const Verb& verbOf(const PlayStep& step) {
    return *std::ranges::find(kVerbs, step.verb, &Verb::verb);
}

}  // namespace zek
