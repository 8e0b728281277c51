// CFilterHeader: a list's header with a row of filter boxes below its captions.
//
// One edit with a drop-down of choices stands under each caption. A text applies after a short
// pause in typing, at Enter, or when a choice is taken; Esc empties its box. The header draws its
// captions itself, with the sort image, and tints a column that is filtered.
#pragma once

#include <string>
#include <vector>

#include "framework/handles.h"
#include "framework/window.h"
#include "listctrl/model/distinct_values.h"

// What the header asks of, and tells, the list that it belongs to. An item is a shown column.
class FilterHeaderOwner {
public:
    virtual DistinctValues filterChoices(int item) = 0;
    virtual void filterChanged() = 0;
    // A box got the focus or lost it.
    virtual void boxFocusChanged() = 0;

protected:
    ~FilterHeaderOwner() = default;
};

class CFilterHeader : public fw::CWindow {
public:
    explicit CFilterHeader(FilterHeaderOwner& owner) : m_owner(owner) {}

    // Takes the header control over; once. `glyphs` are the sort images, which the caller keeps.
    bool attach(HWND header, HFONT font, HIMAGELIST glyphs);

    // The font of captions and boxes; boxes that stand already keep theirs. The caller keeps it.
    void setFont(HFONT font) { m_font = font; }

    // Makes one box per item, with these texts; what stood in the boxes before is gone.
    void setBoxes(const std::vector<std::string>& texts);

    // Moves the boxes below their captions: a column's width or place changed.
    void layOutBoxes();

    // The filter text of an item; empty when it has none.
    std::string text(int item) const;
    void clear();

    // The boxes' edits, for the order of tabs.
    std::vector<HWND> stops() const;

    // Enter or Esc while `focus` has the focus. False: not the header's.
    bool dialogKey(HWND focus, UINT key);

protected:
    const fw::MessageMap& messageMap() const override;

private:
    struct Caption {
        std::string text;
        int format;  // HDF_ bits
        int image;
    };
    struct Box {
        HWND label;
        HWND combo;
        HWND edit;
    };

    LRESULT onLayout(HDLAYOUT& layout);
    void onPaint();
    LRESULT onErase(HDC) { return TRUE; }
    void onSize(int, int) { layOutBoxes(); }
    LRESULT onBoxCommand(UINT id, UINT code);
    void onTimer();
    void fillChoices(int item);
    void takeChoice(int item);
    void apply();
    void drawItem(HDC dc, int item) const;
    RECT itemRect(int item) const;
    Caption caption(int item) const;

    FilterHeaderOwner& m_owner;
    HFONT m_font = nullptr;
    HIMAGELIST m_glyphs = nullptr;
    std::vector<Box> m_boxes;
    int m_captionHeight = 0;
    int m_boxHeight = 0;
};
