// CVTHolderFrame: holds two views, one above the other, with a bar between them that moves the
// border. Notifications and commands of the views go back to the view first, then to the parent.
#pragma once

#include "framework/window.h"

class CVTHolderFrame : public fw::CWindow {
public:
    // Creates the frame at `place` in `parent`.
    bool create(HWND parent, const RECT& place, UINT id);

    // The views, which are children of the frame already.
    void setViews(HWND upper, HWND lower);

    void move(const RECT& place);

protected:
    const fw::MessageMap& messageMap() const override;

private:
    void onSize(int width, int height);
    LRESULT onNotify(NMHDR& header);
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);
    LRESULT onMeasureItem(MEASUREITEMSTRUCT& measure);
    LRESULT onSetCursor(HWND under, UINT hit);
    void onButtonDown(POINT client);
    void onMouseMove(POINT client);
    void onButtonUp(POINT client);
    void onCaptureLost();
    void layOut();
    int barHeight() const { return scaled(6); }
    int barTop() const;

    HWND m_upper = nullptr;
    HWND m_lower = nullptr;
    double m_share = 0.5;  // of the height, for the upper view
    bool m_dragging = false;
};
