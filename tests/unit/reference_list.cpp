#include "tests/unit/reference_list.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>

namespace mc::reference {

namespace {

std::string lower(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 128) c = static_cast<char>(std::tolower(c));
    return text;
}

bool matchesAlternative(const std::string& cell, const std::string& pattern) {
    const std::string text = lower(cell), wanted = lower(pattern);
    const char sign = wanted[0];
    if (sign == '*' && wanted.back() == '*') {
        const std::string inner = wanted.size() < 2 ? "" : wanted.substr(1, wanted.size() - 2);
        return text.find(inner) != std::string::npos;
    }
    if (sign == '*') {
        const std::string end = wanted.substr(1);
        return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
    }
    double value = 0, bound = 0;
    if ((sign == '>' || sign == '<') && std::sscanf(wanted.c_str() + 1, "%lf", &bound) == 1) {
        if (std::sscanf(text.c_str(), "%lf", &value) != 1) return false;
        return sign == '>' ? value > bound : value < bound;
    }
    return text.substr(0, wanted.size()) == wanted;
}

int sign(double difference) {
    return difference > 0 ? 1 : difference < 0 ? -1 : 0;
}

double number(const std::string& text) {
    return std::atof(text == "-" || text == "NA" ? "-1" : text.c_str());
}

// Of dd/mm/yyyy.
std::string yearFirst(const std::string& date) {
    if (date.size() != 10) return date;
    return date.substr(6) + date.substr(3, 2) + date.substr(0, 2);
}

}  // namespace

bool matches(const std::string& cell, const std::string& filter, bool exact, bool value) {
    if (filter.empty()) return true;
    if (value) return lower(cell) == lower(filter);
    std::string left = filter;
    while (!left.empty()) {
        const std::string alternative = left.substr(0, left.find('~'));
        left.erase(0, alternative.size() + 1);
        if (alternative.empty()) continue;
        if (exact ? lower(alternative) == lower(cell) : matchesAlternative(cell, alternative))
            return true;
    }
    return false;
}

int compare(int dataType, int direction, const std::string& a, const std::string& b) {
    switch (dataType) {
        case 1:
        case 4:
            return direction *
                   sign(static_cast<double>(std::atoll(b.c_str()) - std::atoll(a.c_str())));
        case 2:
        case 5:
        case 7:
        case 9:
            return direction * sign(number(b) - number(a));
        case 3:
        case 8:
            return direction * b.compare(a);
        case 6:
            if (a.size() != b.size()) return direction * b.compare(a);
            return direction * yearFirst(b).compare(yearFirst(a));
        default:
            return 0;
    }
}

std::size_t List::insertItem(std::size_t position, Record* record) {
    const bool inside = position != 0 && position < store.size();
    if (!inside) position = store.size();
    store.insert(store.begin() + static_cast<std::ptrdiff_t>(position), record);
    for (std::size_t& entry : map)
        if (entry >= position) ++entry;
    if (!passes(*record)) return position;
    ++itemCount;
    if (sorting)
        showSorted(position);
    else if (inside && position < map.size())
        map.insert(map.begin() + static_cast<std::ptrdiff_t>(position), position);
    else
        map.push_back(position);
    return position;
}

List::Outcome List::deleteItem(std::size_t row) {
    if (row >= itemCount) return {};
    const std::size_t place = mirrored(row);
    if (place >= map.size()) return {0, "Delete item: Item not found"};
    const std::size_t stored = map[place];
    Record* const gone = store[stored];
    Record* const after = row + 1 < itemCount ? at(row + 1) : nullptr;
    Record* const heir = after != nullptr || row == 0 ? after : at(row - 1);
    if (selected.erase(gone) != 0 && after != nullptr) selected.insert(after);
    if (focus == gone) focus = heir;
    if (anchor == gone) anchor = heir;
    map.erase(map.begin() + static_cast<std::ptrdiff_t>(place));
    for (std::size_t& entry : map)
        if (entry > stored) --entry;
    store.erase(store.begin() + static_cast<std::ptrdiff_t>(stored));
    --itemCount;
    return {1, ""};
}

List::Outcome List::deleteStored(std::size_t stored) {
    if (stored >= store.size()) return {};
    const auto found = std::find(map.begin(), map.end(), stored);
    if (found != map.end())
        return deleteItem(mirrored(static_cast<std::size_t>(found - map.begin())));
    for (std::size_t& entry : map)
        if (entry > stored) --entry;
    store.erase(store.begin() + static_cast<std::ptrdiff_t>(stored));
    return {1, ""};
}

void List::reset() {
    store.clear();
    map.clear();
    itemCount = 0;
    deselectHidden();
}

void List::refresh(Record* record) {
    const auto stored =
        static_cast<std::size_t>(std::find(store.begin(), store.end(), record) - store.begin());
    const auto shown = std::find(map.begin(), map.end(), stored);
    if (shown == map.end()) {
        if (!passes(*record)) return;
        ++itemCount;
        if (sorting) return showSorted(stored);
        map.insert(std::partition_point(map.begin(), map.end(),
                                        [&](std::size_t entry) { return entry < stored; }),
                   stored);
    } else if (!passes(*record)) {
        map.erase(shown);
        --itemCount;
        deselectHidden();
    } else if (sorting) {
        if ((shown == map.begin() || !before(stored, *(shown - 1))) &&
            (shown + 1 == map.end() || !before(*(shown + 1), stored)))
            return;
        map.erase(shown);
        showSorted(stored);
    }
}

void List::setFilter(const Filter& filter) {
    wanted.fit = true;
    std::erase_if(wanted.filters, [&](const Filter& each) { return each.column == filter.column; });
    if (!filter.text.empty()) wanted.filters.push_back(filter);
}

List::Outcome List::filter() {
    map.clear();
    if (!wanted.fit) {
        deselectHidden();
        return {0, "Error occured while filtering"};
    }
    m_judge = {wanted.filters, wanted.exactOnce || wanted.exactAlways};
    for (std::size_t stored = 0; stored < store.size(); ++stored)
        if (passes(*store[stored])) map.push_back(stored);
    wanted.exactOnce = false;
    itemCount = map.size();
    deselectHidden();
    if (sorting) sort(*sorting);
    return {1, ""};
}

void List::sort(const Sorting& by) {
    sorting = by;
    std::stable_sort(map.begin(), map.end(),
                     [this](std::size_t a, std::size_t b) { return before(a, b); });
}

void List::unsort() {
    sorting.reset();
    std::sort(map.begin(), map.end());
}

void List::select(std::size_t row, bool on) {
    Record* const record = at(row);
    if (record == nullptr) return;
    if (on)
        selected.insert(record);
    else
        selected.erase(record);
}

Record* List::at(std::size_t row) const {
    if (row >= itemCount || mirrored(row) >= map.size()) return nullptr;
    return store[map[mirrored(row)]];
}

std::map<std::string, std::size_t> List::counts(int column) const {
    std::map<std::string, std::size_t> found;
    for (const Record* record : store) {
        const std::string& text = record->cells[static_cast<std::size_t>(column)];
        if (!text.empty()) found[text] += passes(*record, column) ? 1U : 0U;
    }
    return found;
}

bool List::passes(const Record& record, int butColumn) const {
    return std::ranges::all_of(m_judge.filters, [&](const Filter& each) {
        return each.column == butColumn ||
               matches(record.cells[static_cast<std::size_t>(each.column)], each.text,
                       m_judge.exact, each.isValue);
    });
}

void List::deselectHidden() {
    std::set<Record*> shown;
    for (const std::size_t stored : map) shown.insert(store[stored]);
    const auto hidden = [&](Record* record) { return !shown.contains(record); };
    std::erase_if(selected, hidden);
    if (hidden(focus)) focus = nullptr;
    if (hidden(anchor)) anchor = nullptr;
}

void List::showSorted(std::size_t stored) {
    map.insert(std::upper_bound(map.begin(), map.end(), stored,
                                [this](std::size_t a, std::size_t b) { return before(a, b); }),
               stored);
}

bool List::before(std::size_t a, std::size_t b) const {
    const auto column = static_cast<std::size_t>(sorting->column);
    return compare(sorting->dataType, sorting->direction, store[a]->cells[column],
                   store[b]->cells[column]) < 0;
}

}  // namespace mc::reference
