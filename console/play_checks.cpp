#include "console/play_checks.h"

#include "console/console.h"
#include "console/ui_probe.h"

namespace zek::check {
namespace {

std::string expectedCount(HWND list, int wanted) {
    if (list != nullptr && ui::rowCount(list) == wanted) return {};
    return "expected " + std::to_string(wanted) + " rows, saw " + shownIn(list);
}

}  // namespace

Outcome rows(PlayTurn& turn) {
    return expectedCount(ui::mainList(), turn.number());
}

Outcome details(PlayTurn& turn) {
    return expectedCount(ui::detailsList(), turn.number());
}

Outcome row(PlayTurn& turn) {
    const HWND list = ui::mainList();
    const int found = turn.rowNamed(0);
    if (found < 0) return "there is no row " + turn.argument() + ": " + shownIn(list);
    const int column = ui::columnNamed(list, turn.argument(1));
    if (column < 0) return "there is no column " + turn.argument(1);
    const std::string text = ui::cellText(list, found, column);
    if (text == turn.argument(2)) return {};
    return "expected \"" + turn.argument(2) + "\", saw \"" + text + "\"";
}

Outcome logHas(PlayTurn& turn) {
    return turn.logContains(false) ? "" : "no line in the log has \"" + turn.argument() + "\"";
}

Outcome logHasLine(PlayTurn& turn) {
    return turn.logContains(true) ? "" : "no line in the log is \"" + turn.argument() + "\"";
}

Outcome logHasNot(PlayTurn& turn) {
    return turn.logContains(true) ? "a line in the log is \"" + turn.argument() + "\"" : "";
}

Outcome message(PlayTurn& turn) {
    const HWND dialog = ui::openDialog();
    if (dialog == nullptr) return "expected \"" + turn.argument() + "\", saw no message box";
    const std::string text = ui::dialogText(dialog);
    if (text.find(turn.argument()) != std::string::npos) return {};
    return "expected \"" + turn.argument() + "\", saw \"" + text + "\"";
}

Outcome detail(PlayTurn& turn) {
    const HWND list = ui::detailsList();
    const int found = ui::findText(list, 0, turn.argument());
    if (found < 0) return "there is no detail \"" + turn.argument() + "\": " + shownIn(list);
    const std::string text = ui::cellText(list, found, ui::columnNamed(list, turn.argument(1)));
    if (text == turn.argument(2)) return {};
    return "expected \"" + turn.argument(2) + "\", saw \"" + text + "\"";
}

Outcome clean(PlayTurn& turn) {
    return turn.console.runs().grownBetweenUnloads();
}

Outcome controlText(PlayTurn& turn) {
    const HWND dialog = ui::openDialog();
    const HWND control = dialog != nullptr ? GetDlgItem(dialog, turn.number()) : nullptr;
    if (control == nullptr) return "no dialog with a control " + turn.argument() + " is open";
    const std::string text = ui::shownText(control);
    if (text == turn.argument(1)) return {};
    return "expected \"" + turn.argument(1) + "\", saw \"" + text + "\"";
}

}  // namespace zek::check
