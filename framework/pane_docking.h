// Where a pane is: docked at a side of the frame, floating in a tool window, or hidden.
//
// A part of CPaneDialog. Everything does nothing while the pane has no window.
#pragma once

#include "framework/dock_frame.h"
#include "framework/drop_preview.h"
#include "framework/model/dots.h"
#include "framework/pane_float.h"

namespace fw {

class CPaneDialog;

class PaneDocking {
public:
    explicit PaneDocking(CPaneDialog& pane) : m_pane(pane) {}

    // The pane's window is about to be made in `frame`; `side` is the first that it docks at.
    void open(HWND frame, unsigned side);
    // It goes, perhaps with the frame.
    void close();

    // Which sides the user may dock the pane at (a set of DockSide). Without one it only floats.
    void allow(unsigned sides) { m_allowedSides = sides; }
    bool allows(unsigned side) const { return (side & m_allowedSides) != 0; }

    // Docks the pane at its current side, the first time where the frame says that it was docked
    // last, or floats it where the frame does not dock, and shows it.
    void dock();
    void dockAt(unsigned side);
    void floatPane();  // in a tool window
    void show(bool activate);
    void hide();

    const DockFrame& frame() const { return m_frame; }
    PaneFloat& floating() { return m_floating; }

    // While the pane is dragged by its caption: shows where it would be, at a side or floating.
    void previewDrop(POINT screen);
    void hidePreview() { m_preview.hide(); }
    void dropAt(POINT screen);

    // The user drags the float frame, and lets it go: elsewhere than it was if `moved`, perhaps
    // with another size if not.
    void floatFrameDragged();
    void floatFrameReleased(bool moved);

private:
    enum class Mode { docked, floating };

    DockFrame::Target targetFor(POINT screen) const;  // side 0: floating
    void leaveFrame();
    Measure presentExtent() const;
    int extent() const { return m_extent.at(frameDpi()); }
    int frameDpi() const;

    CPaneDialog& m_pane;
    DockFrame m_frame;
    unsigned m_allowedSides = 0;
    unsigned m_side = 0;
    Measure m_extent;  // across the side, as last seen; 0 leaves it to the frame
    Mode m_mode = Mode::docked;
    bool m_hidden = true;
    bool m_recalled = false;  // the frame was asked where the pane was
    PaneFloat m_floating{m_pane, *this, m_frame};
    CDropPreview m_preview;
};

}  // namespace fw
