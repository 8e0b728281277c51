#include "workbench/model/shown_answers.h"

#include <algorithm>
#include <functional>

namespace mc {
namespace {

// Tells two answers apart by the texts of their rows.
std::size_t printOf(const std::vector<DetailGroup>& groups) {
    std::size_t print = groups.size();
    const auto add = [&print](const sMCListStruct& row) {
        for (const std::string* text : {&row.caption, &row.value, &row.oldValue})
            print = print * 31 + std::hash<std::string>()(*text);
    };
    for (const DetailGroup& group : groups) {
        add(group.header);
        std::for_each(group.rows.begin(), group.rows.end(), add);
    }
    return print;
}

}  // namespace

bool ShownAnswers::compare(const std::vector<DetailGroup>& groups) {
    const std::size_t print = printOf(groups);
    if (m_first == 0) m_first = m_last = print;
    m_differs = print != std::exchange(m_last, print);
    return print != m_first;
}

}  // namespace mc
