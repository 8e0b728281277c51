// CSplitterBar: the bar between two panes of a holder frame. Dragged with live feedback; a drag
// that loses the mouse otherwise than by letting go (Esc) puts the bar back. With the focus, which
// it gets by Tab only, it obeys the arrow keys, Home, End and space.
#pragma once

#include <functional>

#include "frames/model/split_panes.h"
#include "framework/window.h"

namespace mc {

// What the user did with a bar.
struct SplitterEvents {
    std::function<void()> grabbed;              // a drag begins
    std::function<void()> putBack;              // it ends with nothing moved
    std::function<void(int position)> movedTo;  // of its start, in the frame, along the direction
    std::function<void(BarMove move)> stepped;
    std::function<void()> evenedOut;  // by a double-click, or by space
};

class CSplitterBar : public fw::CWindow {
public:
    // `across`: the bar lies across the height, and moves up and down.
    CSplitterBar(bool across, SplitterEvents events)
        : m_across(across), m_events(std::move(events)) {}

    bool create(HWND frame);

protected:
    const fw::MessageMap& messageMap() const override;

private:
    LRESULT onSetCursor(HWND under, UINT hit);
    void onButtonDown(POINT client);
    void onMouseMove(POINT client);
    void onButtonUp(POINT client);
    void onCaptureLost();
    void onDoubleClick(POINT) { m_events.evenedOut(); }
    LRESULT onGetDialogCode(const MSG*) { return DLGC_WANTARROWS; }
    bool onKeyDown(UINT key, bool repeated);
    void onFocusChanged() { InvalidateRect(handle(), nullptr, TRUE); }
    void onPaint();
    int along(POINT at) const { return static_cast<int>(m_across ? at.y : at.x); }
    int start() const;  // in the frame

    bool m_across;
    SplitterEvents m_events;
    bool m_dragging = false;
    int m_grabbedAt = 0;  // within the bar
};

}  // namespace mc
