// CVTHolderFrame: holds views one above the other or side by side, each in a flat frame with its
// title and a menu, with bars between them that move the borders.
//
// Order of life: create(); the views are made as children of the frame; setViews() takes them over
// and asks the settings for their sizes; when the frame's window goes, the sizes are stored.
// Notifications and drawing requests of the views go back to the view first, then to the parent.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frames/flat_frame.h"
#include "frames/splitter_bar.h"
#include "framework/window.h"
#include "settings/model/settings_store.h"

namespace mc {

struct HeldView {
    HWND window;
    std::string title;
    std::string keyName;                        // of its size in the settings; empty: not stored
    std::function<void()> openAppearance = {};  // colours and font; empty: not offered
    std::function<std::string()> note = {};     // what follows the title; asked by each paint
    HWND foot = nullptr;                        // a line of text below the view; null: none
};

class CVTHolderFrame : public fw::CWindow {
public:
    enum class Direction { rows, columns };

    // The store must outlive the frame.
    explicit CVTHolderFrame(CSettingsStore& settings, Direction direction = Direction::rows)
        : m_settings(settings), m_rows(direction == Direction::rows) {}

    // Creates the frame at `rect` in `parent`.
    bool create(HWND parent, const RECT& rect, UINT id);

    void setViews(std::vector<HeldView> views);

    // Another title for a view.
    void setTitle(std::size_t view, const std::string& title);

    // The note of a view may be another one now. Costs one invalidation.
    void noteChanged(std::size_t view);

    void move(const RECT& rect);

    // The bar behind a view, for the order of tabs.
    HWND bar(std::size_t index) const { return m_bars[index]->handle(); }

    // Lays everything out again: the font or the dots per inch changed.
    void layOut();

protected:
    const fw::MessageMap& messageMap() const override;

private:
    void onSize(int, int) { layOut(); }
    void onDestroy();
    LRESULT onNotify(NMHDR& header);
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);
    LRESULT onMeasureItem(MEASUREITEMSTRUCT& measure);
    void onButtonDown(POINT client);
    void onRightUp(POINT client);
    void onPaint();

    std::string titleOf(const HeldView& view) const;
    HFONT font() const;
    int lineHeight() const;
    void makeBar(std::size_t index);
    int footHeight(const RECT& view) const;
    void evenOut();
    void restoreSizes();
    void showMenu(UINT view, POINT screen);

    CSettingsStore& m_settings;
    const bool m_rows;
    std::vector<HeldView> m_views;
    std::vector<CFlatFrame> m_frames;  // one for each view
    std::vector<std::unique_ptr<CSplitterBar>> m_bars;
    SplitPanes m_split{1};
    SplitPanes m_before{1};  // when a bar was grabbed
};

}  // namespace mc
