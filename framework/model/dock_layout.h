// Where docked panes, the bars that resize them and the rest of a frame's client area lie.
// Pure arithmetic on rectangles; the docking site (framework/docking_site.h) moves the windows.
#pragma once

#include <span>
#include <vector>

namespace fw {

// Half open, in pixels: right and bottom lie outside.
struct Rect {
    int left = 0, top = 0, right = 0, bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

// Whether a pane at `side` (a DockSide) lies across the height: its extent is a height, not a
// width.
bool acrossIsHeight(unsigned side);

// One docked pane: its side (a DockSide of sdk/docking.h) and its extents across that side.
struct DockedPane {
    unsigned side = 0;
    int extent = 0;
    int least = 0;  // extent of the pane's own least size
};

struct DockRects {
    Rect pane;
    Rect sash;  // the bar between the pane and the rest, by which the pane is resized
};

struct DockLayout {
    std::vector<DockRects> docked;  // one per pane, in the panes' order
    Rect inner;                     // what is left for the frame's own views
};

// Sizes that a layout keeps to, in pixels.
struct DockMetrics {
    int sash = 5;           // thickness of a sash
    int minimumPane = 80;   // a pane gets no less, while the client area has it
    int minimumInner = 60;  // the panes leave at least this to the rest, while they can
};

// Lays the panes out one after the other, each along its side of what its predecessors left.
// Never yields a negative width or height, however small `client` is.
DockLayout layOut(Rect client, std::span<const DockedPane> panes, const DockMetrics& metrics);

// The side at whose edge of `client` (x, y) lies, no further in than `band`; 0 when none. Near a
// corner the closer edge wins.
unsigned sideAt(Rect client, int x, int y, int band);

// The extent of a pane at `side` of `room` whose sash is dragged to (x, y).
int extentTo(Rect room, unsigned side, int x, int y);

}  // namespace fw
