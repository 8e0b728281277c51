// The frame's side of docking (sdk/docking.h): gives panes room at the sides of the client area and
// lets the user resize them by the bars in between.
//
// Not a window: the frame owns one, asks handle() first for every message, and calls layOut() when
// its client area changes.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "framework/dock_frame.h"
#include "framework/model/dock_layout.h"
#include "framework/model/dots.h"

namespace fw {

// Where a pane is docked.
struct DockPosition {
    unsigned side = 0;
    int extent = 0;  // across the side, in pixels at 96 dots per inch
};

// What a frame keeps of its panes, by name, from one session to the next.
struct DockMemory {
    std::function<std::optional<DockPosition>(const std::string& pane)> recall;
    std::function<void(const std::string& pane, DockPosition position)> keep;
};

class CDockingSite {
public:
    // `relayout` is called when the room taken changed: the frame calls layOut() in it.
    CDockingSite(HWND frame, std::function<void()> relayout);

    // Panes that dock from now on are kept in mind: where they dock, and the extent that their bar
    // is dragged to.
    void setMemory(DockMemory memory) { m_memory = std::move(memory); }

    // Docks a window of the frame's own, with `extent` pixels across `side`. Windows docked
    // earlier lie further out.
    void dock(HWND pane, unsigned side, int extent);

    // Takes the window out of the layout; true when it was in it. The window itself is left alone.
    bool remove(HWND pane);

    // Moves every docked window to its rectangle in `client` (frame client pixels), at the dots per
    // inch that the frame has now; returns the rest.
    Rect layOut(Rect client);

    // Answers the docking messages, and the mouse over the bars. False: not the site's.
    bool handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // Moves the focus to the next, or previous, part: the frame's own views, the docked windows,
    // the floating panes, and round again.
    void focusNext(bool backwards);

    // Puts a bar that is being dragged back; false when none is. For the frame's Esc key.
    bool cancelDrag();

private:
    struct Docked {
        HWND window;
        unsigned side;
        Measure extent;
        DockRects rects;
    };

    bool answerActivation(bool active);
    bool answerDocking(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    LRESULT attach(DockRequest& request);
    LRESULT query(DockRequest& request);
    LRESULT recall(DockRequest& request) const;
    void keep(const Docked& held) const;
    bool releaseSash();
    bool answerMouse(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool showSashCursor(LRESULT& result);
    bool takeSash(POINT client);
    void setExtent(Docked& held, Measure extent);
    DockedPane paneOf(HWND window, unsigned side, Measure extent) const;
    Docked* docked(HWND window);
    Rect rectFor(HWND pane, unsigned side, int extent) const;
    Docked* sashAt(POINT client);
    int defaultExtent(unsigned side) const;

    HWND m_frame;
    std::function<void()> m_relayout;
    std::vector<Docked> m_docked;
    Rect m_client;             // of the last layOut
    HWND m_dragged = nullptr;  // the window whose bar is held
    Measure m_extentBefore;    // of that window
    HWND m_focused = nullptr;  // the docked window that had the focus when the frame lost it
    DockMessages m_messages;
    DockMemory m_memory;  // empty functions: none
};

}  // namespace fw
