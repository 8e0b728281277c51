#include "details/model/line_groups.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace mc {

LineGroups::LineGroups() {
    m_rows.setCellReader(text);
    m_rows.setArrange([this](std::vector<Slot>& passing) { arrange(passing); });
}

LineGroups::~LineGroups() = default;

std::string_view LineGroups::text(const void* line, int column) {
    static constexpr std::array cells{&sMCListStruct::caption, &sMCListStruct::value,
                                      &sMCListStruct::oldValue};
    const auto place = static_cast<std::size_t>(column);
    if (place >= cells.size()) return {};
    return static_cast<const Line*>(line)->row->*cells[place];
}

void LineGroups::append(std::vector<DetailGroup> groups) {
    for (DetailGroup& group : groups) {
        m_items.push_back(std::make_unique<Item>());
        m_items.back()->group = std::move(group);
        insert(*m_items.back());
    }
    // The store judged each line alone; headings are judged with their lines.
    m_rows.filter();
}

void LineGroups::insert(Item& item) {
    item.lines.push_back({&item, &item.group.header});
    for (sMCListStruct& row : item.group.rows) item.lines.push_back({&item, &row});
    for (Line& line : item.lines) {
        line.slot = m_rows.insertItem(m_rows.storedCount(), &line).slot;
        if (line.row->edited) m_edited.push_back(&line);
    }
}

void LineGroups::clear() {
    m_rows.reset();
    m_edited.clear();
    m_items.clear();
}

void LineGroups::replace(std::vector<DetailGroup> groups) {
    std::set<std::string> folded;
    for (const auto& item : m_items)
        if (item->folded) folded.insert(item->group.header.caption);
    const auto focused = m_rows.focusedRow();
    clear();
    append(std::move(groups));
    for (const auto& item : m_items) item->folded = folded.contains(item->group.header.caption);
    m_rows.filter();
    if (focused) m_rows.setFocus(std::min(*focused, m_rows.rowCount() - 1));
}

void LineGroups::addEdited(std::vector<Slot>& passing) const {
    const auto before = [this](Slot a, Slot b) {
        return m_rows.storedPosition(a) < m_rows.storedPosition(b);
    };
    for (const Line* line : m_edited) {
        const auto at = std::lower_bound(passing.begin(), passing.end(), line->slot, before);
        if (at == passing.end() || *at != line->slot) passing.insert(at, line->slot);
    }
}

// In stored order: each heading comes before its lines, whether it passed itself or not.
void LineGroups::arrange(std::vector<Slot>& passing) const {
    addEdited(passing);
    std::vector<Slot> shown;
    shown.reserve(passing.size() + m_items.size());
    const Item* heading = nullptr;
    for (const Slot slot : passing) {
        const Line& line = *static_cast<const Line*>(m_rows.record(slot));
        if (line.item != heading) shown.push_back(line.item->lines.front().slot);
        heading = line.item;
        if (!line.isHeading() && (!line.item->folded || line.row->edited)) shown.push_back(slot);
    }
    passing.swap(shown);
}

LineGroups::Line* LineGroups::lineOf(int mnemonic) const {
    for (const auto& item : m_items)
        for (Line& line : item->lines)
            if (mnemonic != 0 && line.row->mnemonic == mnemonic) return &line;
    return nullptr;
}

bool LineGroups::folded(const Line& line) const {
    return line.item->folded;
}

void LineGroups::setFolded(const Line& line, bool folded) {
    if (line.item->folded == folded) return;
    line.item->folded = folded;
    m_rows.filter();
}

std::optional<std::size_t> LineGroups::headingRow(const Line& line) const {
    return m_rows.rowOf(line.item->lines.front().slot);
}

void LineGroups::rowChanged(Line& line) {
    std::erase(m_edited, &line);
    if (line.row->edited) m_edited.push_back(&line);
    m_rows.refreshShown(line.slot);
}

bool LineGroups::holdsEdits(const Line& line) const {
    return std::any_of(m_edited.begin(), m_edited.end(),
                       [&](const Line* each) { return each->item == line.item; });
}

bool LineGroups::endEdits(bool restore) {
    for (Line* line : m_edited) {
        sMCListStruct& row = *line->row;
        if (restore) row.value = std::move(row.received);
        row.edited = row.overOlder = false;
        m_rows.refreshShown(line->slot);
    }
    const bool any = !m_edited.empty();
    m_edited.clear();
    return any;
}

}  // namespace mc
