#include "frames/model/split_panes.h"

#include <algorithm>
#include <cmath>

namespace mc {

void SplitPanes::setCount(std::size_t panes) {
    m_shares.resize(std::max<std::size_t>(panes, 1) - 1);
    evenOut();
}

void SplitPanes::setRoom(int length, const SplitMetrics& metrics) {
    m_length = length;
    m_metrics = metrics;
}

void SplitPanes::evenOut() {
    for (std::size_t i = 0; i < m_shares.size(); ++i)
        m_shares[i] = static_cast<double>(i + 1) / static_cast<double>(count());
}

int SplitPanes::bare() const {
    return std::max(m_length - m_metrics.bar * static_cast<int>(m_shares.size()), 0);
}

int SplitPanes::least() const {
    return std::min(m_metrics.least, bare() / static_cast<int>(count()));
}

// The bars before it leave room for every pane's least size, and so do those behind.
int SplitPanes::edge(std::size_t index) const {
    if (index == 0) return 0;
    if (index == count()) return bare();
    const int most = bare() - static_cast<int>(count() - index) * least();
    const int wished = static_cast<int>(std::lround(m_shares[index - 1] * bare()));
    return std::clamp(wished, edge(index - 1) + least(), most);
}

int SplitPanes::sizeOf(std::size_t pane) const {
    return edge(pane + 1) - edge(pane);
}

int SplitPanes::startOf(std::size_t pane) const {
    return edge(pane) + static_cast<int>(pane) * m_metrics.bar;
}

void SplitPanes::moveBar(std::size_t bar, int position) {
    if (bar >= m_shares.size() || bare() == 0) return;
    const int from = edge(bar) + least();
    const int to = edge(bar + 2) - least();
    const int wished = position - static_cast<int>(bar) * m_metrics.bar;
    // What the shares around it say may have been out of reach: they hold what shows now.
    std::vector<double> shares = m_shares;
    for (std::size_t i = 0; i < shares.size(); ++i)
        shares[i] = static_cast<double>(edge(i + 1)) / bare();
    shares[bar] = static_cast<double>(std::clamp(wished, from, std::max(from, to))) / bare();
    m_shares = std::move(shares);
}

void SplitPanes::moveBar(std::size_t bar, BarMove move, int step) {
    if (bar >= m_shares.size()) return;
    const int at = startOfBar(bar);
    const int targets[] = {at - step, at + step, 0, m_length};
    moveBar(bar, targets[static_cast<std::size_t>(move)]);
}

void SplitPanes::setSize(std::size_t pane, int size) {
    if (pane + 1 < count())
        moveBar(pane, startOf(pane) + size);
    else if (pane > 0)
        moveBar(pane - 1, startOf(pane) + sizeOf(pane) - size - m_metrics.bar);
}

}  // namespace mc
