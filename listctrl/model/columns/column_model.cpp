#include "listctrl/model/columns/column_model.h"

#include <algorithm>

#include "text/characters.h"
#include "text/expression_pieces.h"

namespace mc {
namespace {

constexpr char kNoColumn[] = "-1";
constexpr int kRightAligned = 1;

// The expression with every reference that `map`, from its number to an optional id, changes.
template <class Map>
std::string mapReferences(std::string_view expression, Map map) {
    std::string mapped;
    for (const ExpressionPiece& piece : expressionPieces(expression)) {
        mapped += piece.quotes;
        const int number = piece.isReference ? referencedColumn(piece.text) : 0;
        const std::optional<ColumnId> id = piece.isReference ? map(number) : ColumnId{};
        if (id && static_cast<int>(*id) == number)
            mapped += piece.text;
        else
            mapped += id ? std::to_string(toIndex(*id)) : kNoColumn;
    }
    return mapped;
}

bool refersWithin(std::string_view expression, std::size_t columns) {
    const auto pieces = expressionPieces(expression);
    return std::ranges::all_of(pieces, [&](const ExpressionPiece& piece) {
        return !piece.isReference || toIndex(ColumnId{referencedColumn(piece.text)}) < columns;
    });
}

bool fitsProfile(std::string_view text) {
    return !text.empty() && text.find_first_of("#,") == text.npos &&
           std::none_of(text.begin(), text.end(), isControl);
}

// Blanks at the end of a stored value get lost, so there are none.
std::string cleaned(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return byte == ',' || isControl(byte); }, ' ');
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

}  // namespace

std::optional<ColumnId> idAfterRemoval(ColumnId id, ColumnId removed) {
    if (id == removed) return std::nullopt;
    return id > removed ? toColumnId(toIndex(id) - 1) : id;
}

void ColumnModel::install(std::span<const sVoskColInfo> columns) {
    m_columns.clear();
    for (const sVoskColInfo& column : columns)
        m_columns.push_back(
            {{column.name, column.width, column.flag, column.type, {}, {}}, column.width});
    m_dataSize = m_columns.size();
    reset();
}

void ColumnModel::setMandatory(std::span<const ColumnId> columns) {
    for (Column& column : m_columns) column.mandatory = false;
    for (const ColumnId id : columns)
        if (has(id)) m_columns[toIndex(id)].mandatory = true;
    show(m_shown);
}

std::optional<ColumnId> ColumnModel::find(std::string_view caption) const {
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].info.caption == caption) return toColumnId(i);
    return std::nullopt;
}

std::optional<DisplayPosition> ColumnModel::positionOf(ColumnId id) const {
    const auto found = std::find(m_shown.begin(), m_shown.end(), id);
    if (found == m_shown.end()) return std::nullopt;
    return static_cast<DisplayPosition>(found - m_shown.begin());
}

void ColumnModel::show(std::span<const ColumnId> order) {
    std::vector<bool> isShown(m_columns.size());
    std::vector<ColumnId> shown;
    const auto add = [&](ColumnId id) {
        if (!has(id) || isShown[toIndex(id)]) return;
        isShown[toIndex(id)] = true;
        shown.push_back(id);
    };
    for (const ColumnId id : order) add(id);
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].mandatory) add(toColumnId(i));
    if (shown.empty()) add(toColumnId(0));
    m_shown = std::move(shown);
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (!isShown[i]) m_columns[i].width = kPlainColumnWidth;
}

void ColumnModel::reset() {
    m_shown.clear();
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        m_columns[i].width = m_columns[i].info.width;
        m_shown.push_back(toColumnId(i));
    }
}

std::optional<ColumnId> ColumnModel::add(const UserDefinedColumn& column) {
    if (!fitsProfile(column.caption) || !fitsProfile(column.expression) || find(column.caption) ||
        !refersWithin(column.expression, m_columns.size()))
        return std::nullopt;
    addUnchecked(column);
    return m_shown.back();
}

void ColumnModel::addUnchecked(const UserDefinedColumn& column) {
    m_columns.push_back({{column.caption, kPlainColumnWidth, kRightAligned, ColumnType::number,
                          column.expression, cleaned(column.displayText)},
                         kPlainColumnWidth});
    m_shown.push_back(toColumnId(m_columns.size() - 1));
}

bool ColumnModel::remove(ColumnId id) {
    if (!has(id) || !isUserDefined(id)) return false;
    m_columns.erase(m_columns.begin() + static_cast<int>(id));
    const auto after = [id](int number) { return idAfterRemoval(ColumnId{number}, id); };
    for (std::size_t i = m_dataSize; i < m_columns.size(); ++i)
        m_columns[i].info.expression = mapReferences(m_columns[i].info.expression, after);
    std::erase(m_shown, id);
    for (ColumnId& shown : m_shown) shown = *idAfterRemoval(shown, id);
    show(m_shown);
    return true;
}

bool ColumnModel::isValid(ColumnId id) const {
    return refersWithin(descriptor(id).expression, m_columns.size());
}

ColumnProfile ColumnModel::profile() const {
    ColumnProfile profile;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const auto position = positionOf(toColumnId(i));
        profile.columns.push_back({static_cast<int>(i),
                                   position ? static_cast<int>(*position) : kHiddenPosition,
                                   position ? m_columns[i].width : 0});
    }
    for (std::size_t i = m_dataSize; i < m_columns.size(); ++i) {
        const ColumnDescriptor& info = m_columns[i].info;
        profile.userDefined.push_back({info.caption, info.expression, info.displayText});
    }
    return profile;
}

bool ColumnModel::putWidths(std::span<const ColumnId> columns, ColumnProfile& stored) const {
    if (stored.columns.size() != m_columns.size() ||
        stored.dataColumns() != static_cast<int>(m_dataSize))
        return false;
    for (const ColumnId id : columns) {
        StoredColumn& column = stored.columns[toIndex(id)];
        if (column.position >= 0) column.width = width(id);
    }
    return true;
}

void ColumnModel::apply(const ColumnProfile& profile) {
    m_columns.resize(m_dataSize);
    for (const UserDefinedColumn& column : profile.userDefined) addUnchecked(column);
    const int oldDataSize = profile.dataColumns().value_or(static_cast<int>(m_dataSize));
    const auto current = [&](int number) { return currentId(number, oldDataSize); };
    for (std::size_t i = m_dataSize; i < m_columns.size(); ++i)
        m_columns[i].info.expression = mapReferences(m_columns[i].info.expression, current);
    applyPositions(profile, oldDataSize);
    removeUnusable();
}

// The id that a column has now which had the id `stored` in a list of so many data columns.
std::optional<ColumnId> ColumnModel::currentId(int stored, int oldDataSize) const {
    if (stored < 0) return std::nullopt;
    const auto index = static_cast<std::size_t>(stored);
    const auto old = static_cast<std::size_t>(oldDataSize);
    if (index < old) return index < m_dataSize ? std::optional(toColumnId(index)) : std::nullopt;
    const std::size_t now = index - old + m_dataSize;
    return now < m_columns.size() ? std::optional(toColumnId(now)) : std::nullopt;
}

void ColumnModel::applyPositions(const ColumnProfile& profile, int oldDataSize) {
    reset();
    std::vector<int> positions(m_columns.size(), kHiddenPosition);
    for (const StoredColumn& stored : profile.columns) {
        const auto id = currentId(stored.index, oldDataSize);
        if (!id || stored.position < 0) continue;
        positions[toIndex(*id)] = stored.position;
        if (stored.width >= 1 && stored.width <= kMaxColumnWidth) setWidth(*id, stored.width);
    }
    const auto position = [&](ColumnId id) { return positions[toIndex(id)]; };
    std::vector<ColumnId> order(m_shown);
    std::erase_if(order, [&](ColumnId id) { return position(id) < 0; });
    if (order.empty()) return;
    std::stable_sort(order.begin(), order.end(),
                     [&](ColumnId a, ColumnId b) { return position(a) < position(b); });
    for (const ColumnId id : m_shown)
        if (position(id) < 0) setWidth(id, kPlainColumnWidth);
    show(order);
}

// Stored columns that add() would refuse go last, when every id means what it meant in the profile.
void ColumnModel::removeUnusable() {
    for (std::size_t i = m_columns.size(); i-- > m_dataSize;) {
        const ColumnDescriptor& info = m_columns[i].info;
        if (!fitsProfile(info.caption) || !fitsProfile(info.expression) ||
            find(info.caption) != toColumnId(i))
            remove(toColumnId(i));
    }
}

}  // namespace mc
