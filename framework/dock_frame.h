// What a pane asks its main frame about docking (sdk/docking.h), typed.
#pragma once

#include <windows.h>

#include <optional>

#include "sdk/docking.h"

namespace fw {

// The registered messages of docking, for both sides of the border.
struct DockMessages {
    DockMessages() noexcept
        : attach(RegisterWindowMessageA(kDockAttachMessage)),
          detach(RegisterWindowMessageA(kDockDetachMessage)),
          query(RegisterWindowMessageA(kDockQueryMessage)),
          nextPart(RegisterWindowMessageA(kDockNextPartMessage)),
          recall(RegisterWindowMessageA(kDockRecallMessage)) {}
    UINT attach, detach, query, nextPart, recall;
};

// A frame that knows nothing of docking refuses everything.
class DockFrame {
public:
    // Where a pane would dock.
    struct Target {
        unsigned side;
        RECT rect;  // screen
    };

    void open(HWND frame) { m_frame = frame; }
    HWND window() const { return m_frame; }

    // An extent of 0 leaves it to the frame.
    bool attach(HWND pane, unsigned side, int extent) const;
    void detach(HWND pane) const;
    // Where the pane was docked last, when the frame knows.
    struct Dock {
        unsigned side;
        int extent;
    };
    std::optional<Dock> recall(HWND pane) const;
    std::optional<Target> targetAt(HWND pane, POINT screen, int extent) const;

    // Moves the focus to the frame's next or previous part, or else to the frame.
    void leave(HWND pane, bool backwards) const;

private:
    LRESULT ask(UINT message, DockRequest& request, WPARAM wParam = 0) const;

    HWND m_frame = nullptr;
    DockMessages m_messages;
};

}  // namespace fw
