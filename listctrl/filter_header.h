// CFilterHeader: a list's header with a row of filter boxes below its captions.
//
// One box (CFilterBox) is under each caption. The header draws its captions itself, with the sort
// image, and tints a column that is filtered.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/handles.h"
#include "framework/header.h"
#include "framework/window.h"
#include "listctrl/filter_box.h"

namespace mc {

class CFilterHeader : public fw::CWindow {
public:
    explicit CFilterHeader(FilterHeaderOwner& owner) : m_owner(owner) {}
    ~CFilterHeader() override;

    // Takes the header control over; once. `glyphs` are the sort images, which the caller keeps.
    bool attach(HWND header, HFONT font, HIMAGELIST glyphs);

    // The font of captions and boxes, which the caller keeps. What is being typed stays.
    void setFont(HFONT font);
    // A drop-down that is open closes as if the focus had left.
    void closeDrops();

    // Makes one box per item, with the filters that apply; a text that was being typed is gone.
    void setBoxes(const std::vector<ColumnFilter>& filters);

    // Moves the boxes below their captions: a column's width or position changed.
    void layOutBoxes();

    // What an item is filtered by, whatever is being typed in its box.
    ColumnFilter filter(int item) const;
    // What is typed applies in every box. Returns whether that is new in any.
    bool applyTyped();
    void clear();
    // Its filter applies again, instead of what is in the box.
    void putBack(int item, ColumnFilter filter);

    // The boxes' edits, for the order of tabs.
    std::vector<HWND> stops() const;

    // Enter or Esc while `focus` has the focus. False: not the header's.
    bool dialogKey(HWND focus, UINT key);

protected:
    const fw::MessageMap& messageMap() const override;

private:
    LRESULT onLayout(HDLAYOUT& layout);
    void onPaint();
    LRESULT onErase(HDC) { return TRUE; }
    void onSize(int, int) { layOutBoxes(); }
    void onDpiChanged();
    void onCancelMode();
    void onBoxCommand(UINT id, UINT code);
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw) { return reflectDrawItem(draw); }
    void dropBoxes();
    void measureBoxes();
    void drawItem(HDC dc, int item) const;
    void drawImage(HDC dc, int image, POINT captionAt) const;
    fw::Header control() const { return fw::Header(handle()); }

    FilterHeaderOwner& m_owner;
    HFONT m_font = nullptr;
    HIMAGELIST m_glyphs = nullptr;
    std::vector<std::unique_ptr<CFilterBox>> m_boxes;
    int m_captionHeight = 0;
    int m_boxHeight = 0;
};

}  // namespace mc
