// CPressLine: the line under the buttons that says what a press would do now, for the button under
// the mouse, else for the one with the focus, else for Accept.
//
// Its window text is what it says, for screen readers too. What it shows follows once per paint,
// however often stale() is called; a press and whoever asks for its text get it as it is now. A
// click on "Select pair" is sent to the parent as a command of the line's id.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "framework/tool_tip.h"
#include "framework/window.h"
#include "workbench/model/press_line.h"

namespace mc {

class CPressLine : public fw::CWindow {
public:
    // What is said of a press of the button now; asked with every refresh.
    using Describe = std::function<PressLine(PressButton)>;
    // `painted` is called when what it says is visible.
    CPressLine(Describe describe, std::function<void()> painted);
    ~CPressLine() override;

    // Creates the window in `pane`, whose font it takes. False when it cannot be made.
    bool create(HWND pane, UINT id);

    // The mouse over a button, and the focus on it, make the line about it.
    void watch(HWND button, PressButton which);

    // The height in a pane of `width` pixels: one line of text, two where the pane is narrow.
    int heightFor(int width) const;

    // The pane has another font, and other dots per inch.
    void followDpi();

    // Something that it says may have changed.
    void stale();

    // Shows at once what a press does, and goes on with that button until end(); also while boxes
    // of the press are open.
    void begin(PressButton pressed);
    void end();

    // What it says changes by itself after a time.
    void changesIn(std::chrono::milliseconds time);

    // Paints what it says now.
    void paint();

protected:
    const fw::MessageMap& messageMap() const override;

private:
    class Watch;
    struct Piece;
    class Flow;

    void hovered(std::optional<PressButton> button);
    PressButton button() const;
    void refresh();
    void onPaint();
    bool onSetCursor(HWND under, UINT hit);
    void onButtonDown(POINT client) { m_pressedLink = PtInRect(&m_link, client) != 0; }
    void onButtonUp(POINT client);
    void onTimer(UINT_PTR timer);
    void onDestroy() { m_tip.destroy(); }

    std::vector<Piece> layOut(HDC dc);
    void showTip(bool cutOff);

    Describe m_describe;
    std::function<void()> m_painted;
    std::vector<std::unique_ptr<Watch>> m_watches;
    std::optional<PressButton> m_hovered, m_pressed;
    PressLine m_line;
    bool m_stale = true;
    RECT m_link{};  // of the action, empty where there is none
    bool m_pressedLink = false;
    fw::CToolTip m_tip;
    std::string m_tipText;  // empty: the whole line is visible
};

}  // namespace mc
