// CDragList: a report list whose rows the user puts into order, with the mouse and by keys.
//
// Dragging moves the selected rows together. A line shows where they would go, and the list scrolls
// while the mouse is held above or below it; Esc and the right button end a drag that moves
// nothing. Alt+Up and Alt+Down move the selected rows by one.
//
// The list notifies its owner and changes nothing itself: the owner fills it again. The parent must
// hand LVN_BEGINDRAG back to it (CWindow::reflectNotify).
#pragma once

#include <cstddef>

#include "framework/list_view.h"
#include "framework/window.h"

namespace mc {

class DragListOwner {
public:
    // The selected rows were dropped in front of this row; the number of rows: behind the last.
    virtual void rowsDropped(std::size_t before) = 0;
    virtual void rowsMoved(bool down) = 0;

protected:
    ~DragListOwner() = default;
};

class CDragList : public fw::CWindow {
public:
    explicit CDragList(DragListOwner& owner) : m_owner(owner) {}

    // Takes over a report list; once.
    bool attach(HWND list) { return subclass(list); }

protected:
    const fw::MessageMap& messageMap() const override;

private:
    void onBeginDrag(NMLISTVIEW& drag);
    bool onMouseMove(POINT client);
    bool onButtonUp(POINT client);
    bool onRightDown(POINT);
    void onCaptureLost() { endDrag(); }
    bool onKeyDown(UINT key, bool repeated);
    bool onSystemKeyDown(UINT key, bool repeated);
    LRESULT onGetDialogCode(const MSG* message);
    bool onTimer(UINT_PTR id);
    LRESULT onPaint();

    void endDrag();
    void setGap(int gap);
    fw::ListView view() const { return fw::ListView(handle()); }
    int rowCount() const;
    RECT firstRow() const;
    int gapAt(int y) const;  // between rows: the row below it
    int gapTop(int gap) const;

    DragListOwner& m_owner;
    bool m_dragging = false;
    int m_y = 0;     // of the mouse
    int m_gap = -1;  // where the line is; -1: nowhere
};

}  // namespace mc
