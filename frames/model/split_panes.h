// Where panes that share a length begin and end, with a bar between each two. Pure arithmetic; the
// holder frame (frames/holder_frame.h) moves the windows.
//
// A bar's position is kept as a share of the length, so that panes keep their proportions when the
// frame is resized, and come back to them after it was too small for all.
#pragma once

#include <cstddef>
#include <vector>

namespace mc {

// Lengths in pixels.
struct SplitMetrics {
    int bar;    // thickness of a bar
    int least;  // a pane gets no less, while all can have it
};

enum class BarMove { back, forth, toLeast, toMost };

class SplitPanes {
public:
    // All panes begin equal.
    explicit SplitPanes(std::size_t panes) { setCount(panes); }
    void setCount(std::size_t panes);

    // What the panes share.
    void setRoom(int length, const SplitMetrics& metrics);

    std::size_t count() const { return m_shares.size() + 1; }
    int sizeOf(std::size_t pane) const;
    int startOf(std::size_t pane) const;
    int startOfBar(std::size_t bar) const { return startOf(bar + 1) - m_metrics.bar; }

    // Moves the start of a bar as close to `position` as both its neighbours' least sizes allow.
    void moveBar(std::size_t bar, int position);
    // By `step` pixels, or as far as it goes.
    void moveBar(std::size_t bar, BarMove move, int step);
    void setSize(std::size_t pane, int size);

    void evenOut();

private:
    int edge(std::size_t index) const;  // index 0 is the start, count() the end, of the bare panes
    int bare() const;                   // the length without the bars
    int least() const;

    std::vector<double> m_shares;  // of the bare length, before each bar
    SplitMetrics m_metrics{0, 0};
    int m_length = 0;
};

}  // namespace mc
