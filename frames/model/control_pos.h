// Where a row of controls lies when its pane is resized. Pure arithmetic; frames/control_pos.h
// moves the windows.
#pragma once

#include <span>
#include <vector>

#include "framework/model/dock_layout.h"

namespace mc {

struct RowMetrics {
    int margin;  // kept free at both sides of the pane
    int gap;     // between controls, and between rows, where they lie closer than at first
};

// The controls' rectangles in a pane of `width`, given their `own`, which lie in one row from left
// to right. They stay there while the pane is wide enough, move to the left together when it
// is not, and flow into more rows when that is not enough either. None is wider than the pane, or
// overlaps another.
std::vector<fw::Rect> placeRow(std::span<const fw::Rect> own, int width, const RowMetrics& metrics);

}  // namespace mc
