// What the steps of a play script do and look at.
#include <algorithm>

#include "console/console.h"
#include "console/files.h"
#include "console/play_driver.h"
#include "console/ui_input.h"
#include "console/ui_probe.h"
#include "framework/controls.h"

namespace zek {
namespace {

constexpr char kHotKey[] = "Ctrl+M";

// What a list shows, for a message: the texts of the first rows.
std::string shownIn(HWND list) {
    if (list == nullptr) return "the list is not shown";
    const int count = ui::rowCount(list);
    std::string text = std::to_string(count) + " rows";
    for (int row = 0; row < std::min(count, 10); ++row)
        text += (row == 0 ? ": " : ", ") + ui::cellText(list, row, 0) + "/" +
                ui::cellText(list, row, 2);
    return text;
}

std::string expectedCount(HWND list, int wanted) {
    if (list != nullptr && ui::rowCount(list) == wanted) return {};
    return "expected " + std::to_string(wanted) + " rows, saw " + shownIn(list);
}

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

}  // namespace

int CPlayDriver::number() const {
    return toNumber(argument()).value_or(0);
}

int CPlayDriver::rowNamed(std::size_t index) const {
    const HWND list = ui::mainList();
    return list != nullptr ? ui::findRow(list, rowOf(argument(index))) : -1;
}

bool CPlayDriver::logContains(bool wholeLine) const {
    const std::vector<LogLine>& lines = m_console.log().lines(LogTab::log);
    return std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(m_logMark), lines.end(),
                       [&](const LogLine& line) {
                           return wholeLine ? line.text == argument()
                                            : line.text.find(argument()) != std::string::npos;
                       });
}

// --- Waiting and expecting -----------------------------------------------------------------------

CPlayDriver::Outcome CPlayDriver::rows() {
    return expectedCount(ui::mainList(), number());
}

CPlayDriver::Outcome CPlayDriver::details() {
    return expectedCount(ui::detailsList(), number());
}

CPlayDriver::Outcome CPlayDriver::row() {
    const HWND list = ui::mainList();
    const int found = rowNamed(0);
    if (found < 0) return "there is no row " + argument() + ": " + shownIn(list);
    const int column = ui::columnNamed(list, argument(1));
    if (column < 0) return "there is no column " + argument(1);
    const std::string text = ui::cellText(list, found, column);
    if (text == argument(2)) return {};
    return "expected \"" + argument(2) + "\", saw \"" + text + "\"";
}

CPlayDriver::Outcome CPlayDriver::logHas() {
    return logContains(false) ? "" : "no line in the log has \"" + argument() + "\"";
}

CPlayDriver::Outcome CPlayDriver::logHasLine() {
    return logContains(true) ? "" : "no line in the log is \"" + argument() + "\"";
}

CPlayDriver::Outcome CPlayDriver::logHasNot() {
    return logContains(true) ? "a line in the log is \"" + argument() + "\"" : "";
}

CPlayDriver::Outcome CPlayDriver::message() {
    const HWND dialog = ui::openDialog();
    if (dialog == nullptr) return "expected \"" + argument() + "\", saw no message box";
    const std::string text = ui::dialogText(dialog);
    if (text.find(argument()) != std::string::npos) return {};
    return "expected \"" + argument() + "\", saw \"" + text + "\"";
}

CPlayDriver::Outcome CPlayDriver::detail() {
    const HWND list = ui::detailsList();
    const int found = ui::findText(list, 0, argument());
    if (found < 0) return "there is no detail \"" + argument() + "\": " + shownIn(list);
    const std::string text = ui::cellText(list, found, ui::columnNamed(list, argument(1)));
    if (text == argument(2)) return {};
    return "expected \"" + argument(2) + "\", saw \"" + text + "\"";
}

CPlayDriver::Outcome CPlayDriver::clean() {
    return m_console.grownBetweenUnloads();
}

// --- The workbench -------------------------------------------------------------------------------

CPlayDriver::Outcome CPlayDriver::hotKey() {
    if (isTimeToAct()) pressKeyNamed(kHotKey);
    return ui::mainList() != nullptr ? "" : "expected the workbench, saw no list of it";
}

CPlayDriver::Outcome CPlayDriver::select() {
    const HWND list = ui::mainList();
    for (std::size_t index = 0; index < m_step->arguments.size(); ++index)
        if (rowNamed(index) < 0) return "there is no row " + argument(index) + ": " + shownIn(list);
    ui::selectOnly(list, rowNamed(0));
    for (std::size_t index = 1; index < m_step->arguments.size(); ++index)
        ui::alsoSelect(list, rowNamed(index));
    return {};
}

CPlayDriver::Outcome CPlayDriver::sort() {
    const HWND list = ui::mainList();
    const int column = ui::columnNamed(list, argument());
    if (column < 0) return "there is no column " + argument();
    ui::clickCaption(list, column);
    return {};
}

CPlayDriver::Outcome CPlayDriver::filter() {
    const HWND list = ui::mainList();
    const int column = ui::columnNamed(list, argument());
    const HWND box = column >= 0 ? ui::filterEdit(list, column) : nullptr;
    if (box == nullptr) return "there is no filter box for " + argument();
    SetFocus(box);
    SetWindowTextA(box, argument(1).c_str());
    ui::pressKey("Enter", box);
    return {};
}

CPlayDriver::Outcome CPlayDriver::doubleClick() {
    const HWND list = ui::mainList();
    const int found = rowNamed(0);
    if (found < 0) return "there is no row " + argument() + ": " + shownIn(list);
    ui::doubleClickRow(list, found);
    return {};
}

CPlayDriver::Outcome CPlayDriver::listMenu() {
    const HWND list = ui::mainList();
    if (list == nullptr) return "the list is not shown";
    return choosePopup(argument(), [list] { ui::contextClickRow(list, 0); });
}

CPlayDriver::Outcome CPlayDriver::headerMenu() {
    const HWND list = ui::mainList();
    const int column = ui::columnNamed(list, argument());
    if (column < 0) return "there is no column " + argument();
    return choosePopup(argument(1), [=] { ui::contextClickHeader(list, column); });
}

// By the keys: Down to the entry, which passes separators over, and Enter.
CPlayDriver::Outcome CPlayDriver::choosePopup(const std::string& entry,
                                              const std::function<void()>& open) {
    const HWND popup = ui::openMenu();
    if (popup == nullptr) {
        if (isTimeToAct()) open();
        return "no menu opens";
    }
    const auto menu = reinterpret_cast<HMENU>(SendMessageA(popup, MN_GETHMENU, 0, 0));
    const int index = ui::itemNamed(menu, entry);
    if (index < 0) fail("the menu has no \"" + entry + "\"");
    for (int each = 0; each <= index; ++each)
        if (GetMenuItemID(menu, each) != 0) ui::pressKey("Down", popup);
    ui::pressKey("Enter", popup);
    return {};
}

HWND CPlayDriver::dialogControl() const {
    const HWND dialog = ui::openDialog();
    const HWND control = dialog != nullptr ? GetDlgItem(dialog, number()) : nullptr;
    return control != nullptr && IsWindowVisible(control) != 0 && IsWindowEnabled(control) != 0
               ? control
               : nullptr;
}

CPlayDriver::Outcome CPlayDriver::focus() {
    const HWND control = dialogControl();
    if (control == nullptr) return "no dialog with a control " + argument() + " that takes input";
    SendMessageA(ui::openDialog(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    return {};
}

CPlayDriver::Outcome CPlayDriver::choose() {
    if (Outcome unreachable = focus(); !unreachable.empty()) return unreachable;
    const HWND control = dialogControl();
    if (ui::choose(control, argument(1))) return {};
    return "expected an item \"" + argument(1) + "\", saw \"" + ui::shownText(control) + "\"";
}

CPlayDriver::Outcome CPlayDriver::controlText() {
    const HWND dialog = ui::openDialog();
    const HWND control = dialog != nullptr ? GetDlgItem(dialog, number()) : nullptr;
    if (control == nullptr) return "no dialog with a control " + argument() + " is open";
    const std::string text = ui::shownText(control);
    if (text == argument(1)) return {};
    return "expected \"" + argument(1) + "\", saw \"" + text + "\"";
}

CPlayDriver::Outcome CPlayDriver::press() {
    const HWND button = ui::findButton(argument());
    if (button == nullptr) return "there is no button \"" + argument() + "\" that can be pressed";
    ui::click(button);
    return {};
}

CPlayDriver::Outcome CPlayDriver::type() {
    return ui::type(argument()) ? "" : "no window has the focus";
}

CPlayDriver::Outcome CPlayDriver::key() {
    return pressKeyNamed(argument());
}

CPlayDriver::Outcome CPlayDriver::pressKeyNamed(const std::string& name) {
    const bool isPressed = ui::pressKey(name, m_console.frameWindow());
    PostMessageA(handle(), kReleaseKeys, 0, 0);
    return isPressed ? "" : "the key " + name + " cannot be pressed";
}

void CPlayDriver::onReleaseKeys() {
    ui::releaseModifiers();
}

CPlayDriver::Outcome CPlayDriver::closeMessage() {
    const HWND dialog = ui::openDialog();
    if (m_closing != nullptr) return dialog != m_closing ? "" : "the message box stays open";
    const HWND button = dialog != nullptr ? ui::findButton("OK") : nullptr;
    if (button == nullptr) return "no message box with OK is open";
    m_closing = dialog;
    ui::click(button);
    return "the message box stays open";
}

// The editor is whatever in the list has taken the focus from it.
CPlayDriver::Outcome CPlayDriver::edit() {
    const HWND list = ui::detailsList();
    if (m_closing != nullptr) return GetFocus() != m_closing ? "" : "the editor stays open";
    const int row = ui::findText(list, 0, argument());
    if (row < 0) return "there is no detail \"" + argument() + "\": " + shownIn(list);
    if (m_tries > 1 && IsChild(list, GetFocus()) != 0) {
        m_closing = GetFocus();
        fw::Edit(m_closing).selectAll();
        ui::type(argument(1));
        ui::pressKey("Enter", m_closing);
    } else if (isTimeToAct()) {
        ui::selectOnly(list, row);
        ui::pressKey("F2", list);
    }
    return "no editor opens";
}

CPlayDriver::Outcome CPlayDriver::closePane() {
    const HWND pane = ui::findPane();
    if (pane == nullptr) return "there is no pane";
    if (IsWindowVisible(pane) == 0) return {};
    if (isTimeToAct()) {
        if (isFloating(pane, m_console.frameWindow()))
            PostMessageA(GetAncestor(pane, GA_ROOT), WM_CLOSE, 0, 0);
        else
            ui::pressCaptionClose(pane);
    }
    return "the pane stays open";
}

CPlayDriver::Outcome CPlayDriver::dock() {
    const HWND pane = ui::findPane();
    if (pane == nullptr || IsWindowVisible(pane) == 0) return "the pane is not shown";
    const bool isThere = isAtSide(pane, m_console.frameWindow(), argument());
    if (isThere && ui::openMenu() == nullptr) return {};
    if (isTimeToAct()) movePane(pane, argument());
    return "the pane is not at " + argument();
}

// By the caption: a double-click changes between docked and floating, its menu docks at a side.
void CPlayDriver::movePane(HWND pane, const std::string& side) {
    const bool floats = isFloating(pane, m_console.frameWindow());
    if (ui::openMenu() != nullptr)
        ui::pressKey(side.substr(0, 1), pane);
    else if (floats || side == "float")
        ui::doubleClickCaption(floats ? GetAncestor(pane, GA_ROOT) : pane);
    else
        ui::contextClickCaption(pane);
}

// Somebody outside takes the picture: the file "request" in the folder holds its name, and goes
// when the picture is taken. The first tries give the windows time to reach the screen.
CPlayDriver::Outcome CPlayDriver::screenshot() {
    if (m_shotsFolder.empty()) {
        if (m_tries == 1)
            printLine("screenshot " + argument() + ": no picture without a --shots folder");
        return {};
    }
    constexpr int kTriesBefore = 10;
    const std::string request = m_shotsFolder + "\\request";
    if (m_tries < kTriesBefore) return "the picture is not asked for yet";
    if (m_tries == kTriesBefore && !replaceFile(request, argument() + "\n"))
        fail("cannot write " + request);
    return !exists(request) ? "" : "nobody took the picture: " + request + " is still there";
}

// --- The console ---------------------------------------------------------------------------------

CPlayDriver::Outcome CPlayDriver::submitNext() {
    return chooseMenu("Maker>Submit Next Change");
}

CPlayDriver::Outcome CPlayDriver::submitAll() {
    return chooseMenu("Maker>Submit All Changes");
}

CPlayDriver::Outcome CPlayDriver::submitStorm() {
    m_console.makers().submitStorm(number());
    return {};
}

// A change may be decided that the checker does not see; its row then need not be there.
CPlayDriver::Outcome CPlayDriver::decide() {
    const PlayRow wanted = rowOf(argument());
    std::string key = wanted.text;
    if (wanted.by != PlayRow::By::key) {
        const HWND list = ui::mainList();
        const int found = rowNamed(0);
        if (found < 0) return "there is no row " + argument() + ": " + shownIn(list);
        key = ui::cellText(list, found, ui::columnNamed(list, "Key"));
    }
    if (!m_console.makers().decide(key, argument(1) == "accepted"))
        fail("the server refuses: " + m_console.log().lines(LogTab::server).back().text);
    return {};
}

CPlayDriver::Outcome CPlayDriver::user() {
    if (m_tries == 1) {
        const Outcome outcome = chooseMenu("User>" + argument());
        if (!outcome.empty()) fail(outcome);
    }
    return m_console.session() > m_sessionBefore ? "" : "the user is still the same";
}

CPlayDriver::Outcome CPlayDriver::menu() {
    return chooseMenu(argument());
}

CPlayDriver::Outcome CPlayDriver::chooseMenu(const std::string& path) {
    const HWND frame = m_console.frameWindow();
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

CPlayDriver::Outcome CPlayDriver::quit() {
    m_step = std::prev(m_steps.end());
    return {};
}

}  // namespace zek
