#include "details/model/line_groups.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "details/model/field_change.h"

namespace mc {

LineGroups::LineGroups() {
    m_rows.texts().setReader([this](Slot line, ColumnId column) { return text(line, column); });
    m_rows.passing().setArrange([this](std::vector<Slot>& passing) { arrange(passing); });
}

std::string_view LineGroups::text(Slot line, ColumnId column) const {
    static constexpr std::array cells{&sMCListStruct::caption, &sMCListStruct::value,
                                      &sMCListStruct::oldValue};
    if (toIndex(column) >= cells.size()) return {};
    return m_lines[line].row->*cells[toIndex(column)];
}

void LineGroups::append(std::vector<DetailGroup> groups) try {
    for (DetailGroup& content : groups) {
        Group& group = m_groups.emplace_back(std::move(content), static_cast<Slot>(m_lines.size()));
        addLine(group, group.content.header);
        for (sMCListStruct& row : group.content.rows) addLine(group, row);
    }
    // The store judged each line alone; headings are judged with their lines.
    m_rows.filter();
} catch (...) {
    clear();
    throw;
}

void LineGroups::addLine(Group& group, sMCListStruct& row) {
    Line& line = m_lines.emplace_back(&group, &row, static_cast<Slot>(m_lines.size()));
    m_rows.insertItem(line.slot, line.slot);
    if (row.edited) m_edited.push_back(&line);
}

void LineGroups::clear() {
    m_rows.reset();
    m_edited.clear();
    m_lines.clear();
    m_groups.clear();
}

void LineGroups::replace(std::vector<DetailGroup> groups) {
    std::set<std::string> folded;
    for (const Group& group : m_groups)
        if (group.folded) folded.insert(group.content.header.caption);
    const auto focused = m_rows.selection().focusedRow();
    clear();
    append(std::move(groups));
    for (Group& group : m_groups) group.folded = folded.contains(group.content.header.caption);
    m_rows.filter();
    if (focused) m_rows.selection().setFocus(std::min(*focused, m_rows.rowCount() - 1));
}

void LineGroups::addEdited(std::vector<Slot>& passing) const {
    for (const Line* line : m_edited) {
        const auto at = std::lower_bound(passing.begin(), passing.end(), line->slot);
        if (at == passing.end() || *at != line->slot) passing.insert(at, line->slot);
    }
}

// In stored order: each heading comes before its lines, whether it passed itself or not.
void LineGroups::arrange(std::vector<Slot>& passing) const {
    addEdited(passing);
    std::vector<Slot> shown;
    shown.reserve(passing.size() + m_groups.size());
    const Group* heading = nullptr;
    for (const Slot slot : passing) {
        const Line& line = m_lines[slot];
        if (line.group != heading) shown.push_back(line.group->heading);
        heading = line.group;
        if (!line.isHeading() && (!line.group->folded || line.row->edited)) shown.push_back(slot);
    }
    passing.swap(shown);
}

LineGroups::Line* LineGroups::lineAt(std::size_t row) {
    const Slot slot = m_rows.slotAt(row);
    return slot != kNoSlot ? &m_lines[slot] : nullptr;
}

LineGroups::Line* LineGroups::lineOf(int mnemonic) {
    for (Line& line : m_lines)
        if (mnemonic != 0 && line.row->mnemonic == mnemonic) return &line;
    return nullptr;
}

void LineGroups::setFolded(const Line& line, bool folded) {
    if (line.group->folded == folded) return;
    line.group->folded = folded;
    m_rows.filter();
}

const ValueMarks& LineGroups::marks(Line& line, const UnseenSigns& signs) const {
    if (line.marks == nullptr)
        line.marks = std::make_unique<const ValueMarks>(marksOf(*line.row, signs));
    return *line.marks;
}

void LineGroups::rowChanged(Line& line) {
    line.marks.reset();
    std::erase(m_edited, &line);
    if (line.row->edited) m_edited.push_back(&line);
    m_rows.texts().reread(line.slot);
}

bool LineGroups::holdsEdits(const Line& line) const {
    return std::any_of(m_edited.begin(), m_edited.end(),
                       [&](const Line* each) { return each->group == line.group; });
}

namespace {

// An update sent the row's value: what the maker asked for is no more.
void noteSent(sMCListStruct& row) {
    const std::string old = row.sent != nullptr ? row.sent->old : row.oldValue;
    if (row.sent != nullptr) row.sent = std::make_shared<const SentAmount>(row.value, old);
    row.change = fieldChange(row.value, old.empty() ? std::nullopt : std::optional(old),
                             row.sent != nullptr ? CompareAs::number : CompareAs::text);
}

}  // namespace

bool LineGroups::endEdits(bool restore) {
    for (Line* line : m_edited) {
        sMCListStruct& row = *line->row;
        if (restore)
            row.value = std::move(row.received);
        else
            noteSent(row);
        row.edited = row.overOlder = false;
        line->marks.reset();
        m_rows.texts().reread(line->slot);
    }
    const bool any = !m_edited.empty();
    m_edited.clear();
    return any;
}

}  // namespace mc
