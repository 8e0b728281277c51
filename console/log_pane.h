// The tabbed log at the bottom of the frame.
#pragma once

#include "console/log_book.h"
#include "console/report_list.h"
#include "framework/window.h"

namespace zek {

class CLogPane : public fw::CWindow {
public:
    explicit CLogPane(LogBook& book) : m_book(book) {}

    bool create(HWND frame);

    // A line was added to the tab.
    void lineAdded(LogTab tab);

protected:
    const fw::MessageMap& messageMap() const override;

private:
    LRESULT onCreate();
    void onSize(int width, int height);
    void onFocus() { SetFocus(m_list); }
    void onDpiChanged();
    void onTabChange(NMHDR& header);
    void onDisplay(NMLVDISPINFOA& asked);

    LogTab shownTab() const;
    void showLast();

    LogBook& m_book;
    fw::Font m_font;
    int m_dpi = 0;  // that font and columns are made for
    HWND m_tabs = nullptr;
    HWND m_list = nullptr;
};

}  // namespace zek
