#include "listctrl/model/list_summary.h"

#include "text/count_text.h"

namespace mc {

std::string summaryText(const ListSummary& summary) {
    std::string text;
    const auto add = [&text](std::string part) {
        if (!text.empty()) text += ", ";
        text += part;
    };
    if (!summary.work.empty()) add(std::string(summary.work));
    if (summary.rows != summary.records)
        add(countText(summary.rows) + " of " + countText(summary.records) + " shown");
    if (summary.filters != 0)
        add(countText(summary.filters) + (summary.filters == 1 ? " filter" : " filters"));
    if (!summary.quickFilter.empty()) add(std::string(summary.quickFilter));
    if (summary.selected != 0) add(countText(summary.selected) + " selected");
    if (summary.notLookedAt != 0) add(countText(summary.notLookedAt) + " not looked at");
    return text;
}

}  // namespace mc
