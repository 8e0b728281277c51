// CPaneDialog: a dialog that lives as a docking pane in a host's main frame.
//
// The pane is one window: a modeless dialog whose caption strip (gripper, text, float and close
// buttons) is drawn in its non-client area while it is docked. Floating, it fills a tool window
// owned by the frame. It asks the frame for a place with the messages of sdk/docking.h; in a frame
// that does not answer it always floats.
//
// Order of life: create(), enableDocking(), dock() or show(); the user closes (hides) it and
// bringToView() brings it back; it ends with destroy() or with its frame.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "framework/drop_preview.h"
#include "framework/key_filter.h"
#include "framework/window.h"
#include "sdk/docking.h"

namespace fw {

class CFloatFrame;

class CPaneDialog : public CWindow {
public:
    CPaneDialog();
    ~CPaneDialog() override;

    // Creates the pane as a hidden child of `frame` from a dialog template of this module. The high
    // word of `style` is the window style; the DockSide bits of its low word are the first side.
    // False when the window cannot be made.
    bool create(HWND frame, const char* caption, UINT templateId, DWORD style, UINT id);

    // Which sides the user may dock the pane at (a set of DockSide). Without one it only floats.
    void enableDocking(unsigned sides) { m_allowedSides = sides; }

    // Docks the pane at its current side, or floats it where the frame does not dock, and shows it.
    void dock();
    void dockAt(unsigned side);

    // Makes the pane a floating tool window and shows it.
    void floatPane();

    // Shows the pane as it was, docked or floating; `activate` gives it the focus.
    void show(bool activate);
    void hide();

    // Shows the pane if hidden, raises it if floating, and gives it the focus.
    void bringToView() { show(true); }

    // Destroys the window; false when there is none.
    bool destroy();

protected:
    const MessageMap& messageMap() const override { return baseMap(); }
    static const MessageMap& baseMap();

    // What gets the focus when the pane is brought to view without having it.
    virtual HWND initialFocus() const { return GetNextDlgTabItem(handle(), nullptr, FALSE); }

    // Enter, Esc, Tab and the arrows in the pane, and keys that a control claimed. Tab moves the
    // focus, Enter presses the button that has it; everything else is the control's.
    virtual void onDialogKey(UINT key, bool repeated);

    // Where Tab stops, in order.
    virtual std::vector<HWND> tabStops() const { return {}; }

    // Whether `control` claims a key, with the modifiers that are down now, so that the host's
    // accelerators do not get it.
    virtual bool controlClaims(HWND, UINT) const { return false; }

    // The keys that press the pane's buttons; the table must outlive the pane. Asked by create().
    virtual std::span<const ActionKey> actionKeys() const { return {}; }

    // The least size at which the pane is of use, in pixels.
    virtual SIZE leastSize() const { return {scaled(160), scaled(120)}; }

    // The size in which the pane floats for the first time, in pixels.
    virtual SIZE firstFloatSize() const { return {scaled(500), scaled(300)}; }

    // The size in which it floats, or floated last; nothing if it never did.
    std::optional<SIZE> lastFloatSize() const;

    LRESULT onInitPane() { return FALSE; }

private:
    enum class Mode { docked, floating };
    friend class CFloatFrame;

    void onPaneKey(UINT key, bool repeated);
    void onSetFocus() { takeFocus(); }
    void onMinimum(MINMAXINFO& info);
    void onNcCalcSize(RECT& rect);
    void onNcPaint();
    LRESULT onNcHitTest(POINT screen);
    void onNcButtonDown(UINT hit, POINT screen);
    void onNcDoubleClick(UINT hit, POINT screen);
    void onNcRightDown() {}  // the platform's own handling would swallow the button's release
    void onNcContext(UINT hit, POINT screen);
    void onMouseMove(POINT client);
    void onButtonUp(POINT client);
    void onCaptureLost();
    void onDestroy();

    // Where a pane that is let go would be: at a side, or (0) floating.
    struct Drop {
        unsigned side;
        RECT place;  // screen
    };
    Drop dropFor(POINT screen) const;
    void dropAt(POINT screen);
    void floatFrameDragged();  // shows where it would dock

    LRESULT askFrame(UINT message, DockRequest& request) const;
    DockRequest request() const;
    bool pressAction(UINT key, bool repeated);
    void press(HWND button);
    void onButtonFocus();
    void onButtonKey(HWND button, UINT key);
    void moveFocus(bool backwards);
    void leaveForNextPart();
    void takeFocus();
    void showTips();
    void showCaptionMenu(POINT screen);
    RECT floatPlaceAt(POINT corner) const;
    void showFloating(bool activate);
    void leaveFrame();
    int presentExtent() const;
    bool inFloatFrame() const;
    void captionChanged();
    int captionHeight() const;
    RECT captionButton(int place) const;  // 0: close, 1: float; window coordinates
    void floatFrameReleased(bool moved);

    HWND m_frame = nullptr;
    std::string m_caption;
    unsigned m_allowedSides = 0;
    unsigned m_side = 0;
    int m_extent = 0;  // across the side, as last seen; 0 leaves it to the frame
    Mode m_mode = Mode::docked;
    bool m_hidden = true;
    bool m_pressed = false;   // the caption is held
    bool m_dragging = false;  // and was moved
    POINT m_pressedAt{};
    RECT m_floatPlace{};         // screen; empty until it floated once
    HWND m_lastFocus = nullptr;  // in the pane, when F6 left it
    HWND m_lastStop = nullptr;   // the control that it stood in
    HWND m_tips = nullptr;
    CDropPreview m_preview;
    std::unique_ptr<CFloatFrame> m_float;
    std::unique_ptr<CKeyFilter> m_keys;
    UINT m_attachMessage, m_detachMessage, m_queryMessage, m_nextPartMessage;
};

}  // namespace fw
