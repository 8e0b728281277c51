#include "console/play_turn.h"

#include <algorithm>

#include "console/console.h"
#include "console/ui_probe.h"

namespace zek {

int PlayTurn::number() const {
    return toNumber(argument()).value_or(0);
}

int PlayTurn::rowNamed(std::size_t index) const {
    const HWND list = ui::mainList();
    return list != nullptr ? ui::findRow(list, rowOf(argument(index))) : -1;
}

bool PlayTurn::logContains(bool wholeLine) const {
    const std::vector<LogLine>& lines = console.log().lines(LogTab::log);
    return std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(logMark), lines.end(),
                       [&](const LogLine& line) {
                           return wholeLine ? line.text == argument()
                                            : line.text.find(argument()) != std::string::npos;
                       });
}

std::string shownIn(HWND list) {
    if (list == nullptr) return "the list is not shown";
    const int count = ui::rowCount(list);
    std::string text = std::to_string(count) + " rows";
    for (int row = 0; row < std::min(count, 10); ++row)
        text += (row == 0 ? ": " : ", ") + ui::cellText(list, row, 0) + "/" +
                ui::cellText(list, row, 2);
    return text;
}

}  // namespace zek
