// CPaneDialog: a dialog that lives as a docking pane in a host's main frame.
//
// The pane is one window: a modeless dialog whose caption strip is drawn in its non-client area
// while it is docked. Floating, it fills a tool window owned by the frame. It asks the frame for
// room with the messages of sdk/docking.h; in a frame that does not answer it always floats.
//
// Order of life: create(), docking().allow(), docking().dock() or show(); the user closes (hides)
// it and show() brings it back; it ends with destroy() or with its frame.
//
// Its parts: PaneDocking knows where it is, PaneCaption draws and drags it, PaneKeys has the keys
// and the focus, PaneDpi its font and the dots per inch of its monitor. They ask what a derived
// class answers.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "framework/pane_caption.h"
#include "framework/pane_docking.h"
#include "framework/pane_dpi.h"
#include "framework/pane_keys.h"
#include "framework/window.h"

namespace fw {

class CPaneDialog : public CWindow {
public:
    CPaneDialog();
    ~CPaneDialog() override;

    // Creates the pane as a hidden child of `frame` from a dialog template of this module. The high
    // word of `style` is the window style; the DockSide bits of its low word are the first side.
    // False when the window cannot be made.
    bool create(HWND frame, const char* caption, UINT templateId, DWORD style, UINT id);

    // Where it is: which sides it may be docked at, docking, floating and hiding it.
    PaneDocking& docking() { return m_docking; }

    // Its keys, and the focus in it.
    PaneKeys& keys() { return m_keys; }

    PaneDpi& dpi() { return m_dpi; }

    // Shows the pane as it was, docked or floating; `activate` gives it the focus.
    void show(bool activate);

    // The caption comes or goes.
    void frameChanged();

    // Destroys the window; false when there is none.
    bool destroy();

    // ---- What a derived class answers ----

    // What gets the focus when the pane is brought to view without having it.
    virtual HWND initialFocus() const { return GetNextDlgTabItem(handle(), nullptr, FALSE); }

    // Enter, Esc, Tab and the arrows in the pane, and keys that a control claimed. Tab moves the
    // focus, Enter presses the button that has it; everything else is the control's.
    virtual void onDialogKey(UINT key, bool repeated) { m_keys.dialogKey(key, repeated); }

    // Where Tab stops, in order.
    virtual std::vector<HWND> tabStops() const { return {}; }

    // Whether `control` claims a key, with the modifiers that are down now, so that the host's
    // accelerators do not get it.
    virtual bool controlClaims(HWND, UINT) const { return false; }

    // The keys that press the pane's buttons; the table must outlive the pane. Asked by create().
    virtual std::span<const ActionKey> actionKeys() const { return {}; }

    // The least size at which the pane is of use, in pixels.
    virtual SIZE leastSize() const { return {scaled(160), scaled(120)}; }

    // The system has other colours, or begins or ends high contrast; the pane's controls hear it
    // after this.
    virtual void onColorsChanged() {}

    // The pane has other dots per inch, and its controls have its new font; lays out.
    virtual void onDpiChanged() {}

    // The user closed the pane: it was hidden.
    virtual void onHidden() {}

    // The size in which the pane floats for the first time, in pixels at 96 dots per inch; empty:
    // two thirds of its frame.
    virtual SIZE firstFloatSize() const { return {}; }

protected:
    const MessageMap& messageMap() const override { return baseMap(); }
    static const MessageMap& baseMap();

private:
    LRESULT onInitPane() { return FALSE; }
    void onSystemColors();
    void onSetting(WPARAM what, LPARAM section);
    void onDestroy();

    PaneDpi m_dpi;
    PaneDocking m_docking;
    PaneCaption m_caption;
    PaneKeys m_keys;
};

}  // namespace fw
