// CCellControl: the control of a cell editor; what is edited in different ways are its kinds.
//
// It knows what its kind needs: how high it is, what may be typed into it, what it drops down. The
// editor whose window it lies in (CCellEditor) says when the edit ends.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "framework/hwnd.h"
#include "framework/window.h"

namespace mc {

class CCellEditor;

class CCellControl : public fw::CWindow {
public:
    // What the editor's window needs to know of the kind.
    struct Kind {
        const char* windowClass;
        DWORD style;
        DWORD frame;     // the editor's own: WS_BORDER around a control without one
        int dropHeight;  // of what the control drops down, at 96 dots per inch
    };
    const Kind& kind() const { return m_kind; }

    // Makes the control in the window of `editor`, which must outlive it, with `text` in `font`.
    // False when it cannot be made.
    bool open(CCellEditor& editor, HFONT font, std::string_view text);

    virtual std::string text() const = 0;

    // Why a text that was changed cannot be taken.
    virtual std::optional<std::string> refusal() const { return {}; }

    // Makes text() whole where the control keeps what is being typed to itself.
    virtual void finishTyping() {}

    // How high the control is in a cell of height `room`; more where it needs more.
    virtual int fitHeight(int room) const = 0;

    virtual void select() {}

    // It was opened with the mouse: what drops down does so at once.
    virtual void openedWithMouse() {}
    virtual bool dropped() const { return false; }
    virtual void closeDropped() {}

    // True when `window` is the control or a part of it.
    virtual bool owns(HWND window) const { return fw::isWithin(handle(), window); }

    // A command notification of the control, handed on by the editor.
    virtual void onCommand(UINT) {}

protected:
    explicit CCellControl(const Kind& kind) : m_kind(kind) {}

    const fw::MessageMap& messageMap() const override { return baseMap(); }
    static const fw::MessageMap& baseMap();

    CCellEditor& editor() const { return *m_editor; }
    int textHeight() const;

    // Gives the new control its text.
    virtual void fill(std::string_view text) = 0;

    // A typed character, or a paste; true: not for the control.
    virtual bool onCharacter(UINT) { return false; }
    virtual bool onPaste() { return false; }

private:
    void onFocus();
    void onFocusLost();
    bool onWheel() { return !dropped(); }

    const Kind m_kind;
    CCellEditor* m_editor = nullptr;
};

}  // namespace mc
