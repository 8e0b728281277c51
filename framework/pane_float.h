// The floating of a pane: its tool window, where that is and how large.
//
// A part of PaneDocking. The window is made when the pane floats for the first time, and hidden
// while it does not.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "framework/model/dots.h"

namespace fw {

class CFloatFrame;
class CPaneDialog;
class DockFrame;
class PaneDocking;

class PaneFloat {
public:
    // All must outlive the object.
    PaneFloat(CPaneDialog& pane, PaneDocking& docking, const DockFrame& frame);
    ~PaneFloat();

    // Puts the pane into its window, and shows that.
    void show(bool activate);
    void hide();
    void destroy();

    bool holdsPane() const;
    // The size in which the pane floats, or floated last, in pixels at 96 dots per inch; nothing if
    // it never did.
    std::optional<SIZE> lastSize() const;

    // Where the pane would float with its upper left corner there: as large as it floated last.
    RECT rectAt(POINT corner) const;
    // Where it floats the next time.
    void setRect(const RECT& rect);
    // The user moved its window, or gave it another size.
    void moved();

private:
    void place();
    void bringOnScreen() const;

    CPaneDialog& m_pane;
    PaneDocking& m_docking;
    const DockFrame& m_frame;
    RECT m_rect{};         // screen; empty until it floated once
    int m_dpi = kUnitDpi;  // where it has that size
    std::unique_ptr<CFloatFrame> m_window;
};

}  // namespace fw
