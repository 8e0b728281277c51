// CControlPos: keeps a row of a dialog's controls visible while the dialog is resized, by the rules
// of frames/model/control_pos.h. Their sizes are in units of the dialog's font, so that they follow
// it.
#pragma once

#include <windows.h>

#include <vector>

#include "framework/model/dock_layout.h"

namespace mc {

class CControlPos {
public:
    // Remembers where the control is now. Controls are added from left to right.
    void add(HWND control);

    // Places the controls that show in a pane of `width` pixels; returns the bottom of the lowest.
    int arrange(int width) const;

private:
    struct Control {
        HWND window;
        fw::Rect own;  // in dialog units
    };
    std::vector<Control> m_controls;
};

}  // namespace mc
