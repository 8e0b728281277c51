#include "listctrl/model/line_groups.h"

#include <array>
#include <utility>

#include "listctrl/model/read_number.h"

namespace {

// The number that the whole text is, or none: a date is not a number because it begins like one.
std::optional<double> wholeNumber(std::string_view text) {
    if (text.find_first_not_of("0123456789.+-") != std::string_view::npos) return std::nullopt;
    if (text.find_first_of("+-", 1) != std::string_view::npos) return std::nullopt;
    if (text.find('.') != text.rfind('.')) return std::nullopt;
    return readNumber(text);
}

}  // namespace

bool valueChanged(const sMCListStruct& row) {
    if (row.value.empty() || row.oldValue.empty() || row.value == row.oldValue) return false;
    const auto value = wholeNumber(row.value);
    const auto oldValue = wholeNumber(row.oldValue);
    return !value || !oldValue || *value != *oldValue;
}

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
        line.changed = valueChanged(*line.row);
        line.slot = m_rows.insertItem(m_rows.storedCount(), &line).slot;
    }
}

void LineGroups::clear() {
    m_rows.reset();
    m_items.clear();
}

// In stored order: each heading comes before its lines, whether it passed itself or not.
void LineGroups::arrange(std::vector<Slot>& passing) const {
    std::vector<Slot> shown;
    shown.reserve(passing.size() + m_items.size());
    const Item* heading = nullptr;
    for (const Slot slot : passing) {
        const Line& line = *static_cast<const Line*>(m_rows.record(slot));
        if (line.item != heading) shown.push_back(line.item->lines.front().slot);
        heading = line.item;
        if (!line.isHeading() && !line.item->folded) shown.push_back(slot);
    }
    passing.swap(shown);
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
    line.changed = valueChanged(*line.row);
    m_rows.refreshShown(line.slot);
}

bool LineGroups::clearEdited() {
    bool any = false;
    for (const auto& item : m_items)
        for (sMCListStruct& row : item->group.rows) any = std::exchange(row.edited, false) || any;
    return any;
}
