// CListMarquee: the mouse and the frame of a marquee, which selects rows by a drag that begins in
// the empty ground beside the rows or below them.
//
// It holds the mouse from the press to the end. Whoever takes the mouse away (Esc, a menu, a box,
// another program) puts the selection back as it was before the press.
#pragma once

#include <optional>

#include "framework/window.h"
#include "listctrl/list_header.h"
#include "listctrl/model/table/marquee.h"

namespace mc {

class CListMarquee {
public:
    // All must outlive the object.
    CListMarquee(const fw::CWindow& list, const CListHeader& header, RecordStore& store)
        : m_list(list), m_header(header), m_store(store), m_marquee(store) {}

    // The left button goes down on empty ground: before that selects anything, and after it.
    void press(bool adds) { m_marquee.press(adds); }
    void begin(POINT client);

    // Whether the mouse, which moved, drags it.
    bool drags(POINT client);
    // Selects what it touches, scrolls at the edges, and shows its frame there.
    void moveTo(POINT client);
    // The timer of scrolling at the edges: where the mouse is, if it drags.
    std::optional<POINT> onTimer(UINT_PTR id) const;

    // The button was let go, or something ends it. Returns whether it dragged.
    bool end();
    // The mouse is taken away: whether that is a drag's, which is then to be put back.
    bool isLost();
    void putBack() { m_marquee.putBack(); }

    // After the control's own paint.
    void draw() const;

private:
    enum class State { none, pressed, dragging };

    POINT origin() const;  // of the rows
    Marquee::RowSize rowSize() const;
    Marquee::Point inRows(POINT client) const;
    RECT frame() const;
    void scrollTo(POINT client);
    State stop();

    const fw::CWindow& m_list;
    const CListHeader& m_header;
    const RecordStore& m_store;
    Marquee m_marquee;
    State m_state = State::none;
    POINT m_pressed{};
    Marquee::Point m_at;
};

}  // namespace mc
