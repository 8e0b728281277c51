// How a plug-in's pane docks in the host's main frame.
//
// The pane asks the frame with five registered window messages (RegisterWindowMessageA of the
// names below), sent, never posted, on the user-interface thread. A frame that does not know them
// answers 0; the pane then stays a floating tool window owned by the frame, so it works in any
// host.
//
// A pane keeps its own size and position while it floats and while it is hidden. A frame forgets a
// pane that is destroyed.
#pragma once

#include <cstddef>

// Sides that a pane may dock at; a set of them is their sum.
enum DockSide : unsigned {
    kDockLeft = 0x1000,
    kDockTop = 0x2000,
    kDockRight = 0x4000,
    kDockBottom = 0x8000,
    kDockAnySide = 0xF000,
};

struct DockRectangle {
    int left, top, right, bottom;  // screen pixels
};

// A pane answers WM_GETMINMAXINFO: ptMinTrackSize is the least size at which it is of use. The
// frame keeps to it while it has the room.

// What a pane asks. `structSize` is sizeof(DockRequest), so that the frame can tell a later form.
struct DockRequest {
    unsigned structSize;
    void* pane;     // HWND of the pane
    unsigned side;  // in: one DockSide; out of kDockQuery: the side found
    int extent;  // pixels across the side wanted; 0 leaves it to the frame; the frame may give less
    int x, y;    // kDockQuery only: a point on the screen
    DockRectangle place;  // out of kDockQuery: where the pane would dock
};
static_assert(sizeof(DockRectangle) == 16);
static_assert(offsetof(DockRequest, pane) == sizeof(void*));
static_assert(offsetof(DockRequest, side) == 2 * sizeof(void*));
static_assert(offsetof(DockRequest, place) == 2 * sizeof(void*) + 16);
static_assert(sizeof(DockRequest) == 2 * sizeof(void*) + 32);

// The pane is to be docked (or is docked and moves to another side, or comes back after it was
// hidden). wParam 0, lParam DockRequest*. The frame becomes its parent, gives it room and shows it.
// Result: non-zero when docked.
inline constexpr char kDockAttachMessage[] = "ZekDock.Attach";

// Where was the pane docked last, perhaps in an earlier session? Asked once, before a pane docks
// for the first time. wParam 0, lParam DockRequest*, of which `pane` counts, whose window text is
// its name; `side` and `extent` (0: as the frame likes) are filled. Result: non-zero when the frame
// knows. One that keeps nothing answers 0, and the pane docks at its own first side.
inline constexpr char kDockRecallMessage[] = "ZekDock.Recall";

// The pane leaves: it is about to float or to be hidden. wParam 0, lParam DockRequest*, of which
// only `pane` counts. The frame takes the room back; the pane is still its child and sees to its
// own next parent. Result: non-zero when the pane was docked.
inline constexpr char kDockDetachMessage[] = "ZekDock.Detach";

// Where would a pane dropped at (x, y) dock? wParam 0, lParam DockRequest*; `side` and `place` are
// filled. Result: non-zero when it would dock there, 0 when the pane would float there.
inline constexpr char kDockQueryMessage[] = "ZekDock.Query";

// F6 was pressed in the pane (wParam 0), or Shift+F6 (1); lParam DockRequest*, of which only `pane`
// counts. The frame moves the focus to its next, or previous, part. Result: non-zero when it did;
// else the pane gives the focus to the frame.
inline constexpr char kDockNextPartMessage[] = "ZekDock.NextPart";
