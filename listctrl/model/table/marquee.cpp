#include "listctrl/model/table/marquee.h"

#include <algorithm>

namespace mc {

void Marquee::press(bool adds) {
    m_adds = adds;
    m_before.remember();
    m_touched.clear();
    m_seen = {};
}

Marquee::Rows Marquee::touchedRows(Point at, RowSize size) const {
    const auto [left, right] = std::minmax(m_from.x, at.x);
    const auto [top, bottom] = std::minmax(m_from.y, at.y);
    if (left >= size.width || right < 0 || bottom < 0) return {0, 0};
    const auto first = static_cast<std::size_t>(std::max(top, 0) / size.height);
    const auto end = static_cast<std::size_t>(bottom / size.height) + 1;
    return {std::min(first, m_rows.count()), std::min(end, m_rows.count())};
}

void Marquee::moveTo(Point at, RowSize size) {
    const Rows rows = touchedRows(at, size);
    const bool none = rows.first >= rows.second;
    if (wasMoved())
        selectAgain(none ? Rows{} : rows);
    else
        stretchTo(none ? Rows{} : rows);
    if (!none) {
        const bool down = at.y >= m_from.y;
        m_selection.setAnchor(down ? rows.first : rows.second - 1);
        m_selection.setFocus(down ? rows.second - 1 : rows.first);
    }
    m_seen = {m_rows.revision(), m_selection.revision()};
}

void Marquee::selectAgain(Rows rows) {
    m_selection.clear();
    m_touched.clear();
    if (m_adds) m_before.select();
    stretchTo(rows);
}

// From both ends the rows that are not touched any more, then to both ends those that are.
void Marquee::stretchTo(Rows rows) {
    while (!m_touched.empty() && (m_first < rows.first || m_first >= rows.second)) {
        leave(m_touched.front());
        m_touched.pop_front();
        ++m_first;
    }
    while (!m_touched.empty() && m_first + m_touched.size() > rows.second) {
        leave(m_touched.back());
        m_touched.pop_back();
    }
    if (m_touched.empty()) m_first = rows.first;
    while (m_first > rows.first) {
        take(--m_first);
        m_touched.push_front(m_rows.slotAt(m_first));
    }
    for (std::size_t row = m_first + m_touched.size(); row < rows.second; ++row) {
        take(row);
        m_touched.push_back(m_rows.slotAt(row));
    }
}

// What was selected before stays as it was: a row that the list selected is the hand's only when
// the hand selects it alone or instead of others.
void Marquee::take(std::size_t row) {
    const bool was = m_adds && m_before.has(m_rows.slotAt(row));
    if (!was) m_selection.select(row, true);
}

void Marquee::leave(Slot record) {
    const auto row = m_rows.rowOf(record);
    if (row && !(m_adds && m_before.has(record))) m_selection.select(*row, false);
}

int linesToScroll(int y, int top, int bottom, int lineHeight) {
    if (y < top) return -1 - (top - y) / lineHeight;
    if (y >= bottom) return 1 + (y - bottom) / lineHeight;
    return 0;
}

}  // namespace mc
