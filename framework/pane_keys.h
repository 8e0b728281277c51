// Keys and focus of a pane in a host whose message loop knows nothing of it.
//
// A part of CPaneDialog: it asks the pane for its tab stops and its action keys, and CKeyFilter for
// the messages. Tab moves the focus, Enter presses the button that has it, the arrows go from
// button to button, F6 leaves for the frame's next part; everything else is the control's.
#pragma once

#include <memory>

#include "framework/key_filter.h"
#include "framework/tool_tip.h"

namespace fw {

class CPaneDialog;
class PaneCaption;
class DockFrame;

class PaneKeys {
public:
    PaneKeys(CPaneDialog& pane, PaneCaption& caption, const DockFrame& frame)
        : m_pane(pane), m_caption(caption), m_frame(frame) {}

    // The pane's window is there; it goes.
    void open();
    void close();
    void followDpi() { m_tips.followDpi(); }

    // The pane's frame is activated, or not any more: then the focus leaves the pane. The frame of
    // a docked pane sends it on, as the pane is no window that is activated itself.
    void onActivate(bool active);
    // Gives the focus back to where it was when it left, or else to the pane's initialFocus().
    void takeFocus();

    // What a key does that no derived class took.
    void dialogKey(UINT key, bool repeated);

    // How long ago, in milliseconds, the hand made the press of a button that is at work; none when
    // no hand made it, or when it was asked before.
    std::optional<unsigned> takePressAge() {
        return m_filter != nullptr ? m_filter->takePressAge() : std::nullopt;
    }

    void onPaneKey(UINT key, bool repeated);
    void buttonFocusChanged();

private:
    void keepFocus();
    bool pressAction(UINT key, bool repeated);
    void press(HWND button);
    void onButtonKey(HWND button, UINT key);
    void moveFocus(bool backwards);
    void leaveForNextPart();

    CPaneDialog& m_pane;
    PaneCaption& m_caption;
    const DockFrame& m_frame;
    HWND m_lastFocus = nullptr;  // in the pane, when it left
    HWND m_lastStop = nullptr;   // the control that it was in
    CToolTip m_tips;
    std::unique_ptr<CKeyFilter> m_filter;
};

}  // namespace fw
