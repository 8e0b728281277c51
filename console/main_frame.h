// The console's main frame: menu bar, status bar, tabbed log, views, and docked panes.
//
// Commands that are not about the frame's own windows go to whoever made it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/log_pane.h"
#include "console/server_view.h"
#include "console/status_bar.h"
#include "framework/docking_site.h"

namespace zek {

struct FrameEvents {
    std::function<bool(UINT id)> onCommand;  // false: not known
    std::function<void()> onClose;           // the user wants to leave; the frame stays
    std::function<void()> onRefresh;         // a few times a second: the time to show the status
};

class CMainFrame : public fw::CWindow {
public:
    CMainFrame(FrameEvents events, CExchange& exchange, LogBook& log);
    ~CMainFrame() override;

    bool create(const std::string& title);

    // Where panes that dock from now on are kept in mind.
    void setDockMemory(fw::DockMemory memory) {
        if (m_site != nullptr) m_site->setMemory(std::move(memory));
    }

    StatusBar& status() { return m_status; }
    // Fills the menu "User"; its commands are ID_USER_FIRST and on.
    void setProfiles(const std::vector<std::string>& names, const std::string& current);

    // What is done with a message before it is dispatched. True: the message is done.
    bool translate(MSG& message);

protected:
    const fw::MessageMap& messageMap() const override;
    LRESULT defaultProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT onCreate();
    void onSize(int width, int height);
    void onClose();
    void onDpiChanged(const RECT& suggested);
    void onTimer(UINT_PTR id);
    void onCascade();
    template <WPARAM direction>
    void onTile();
    template <bool backwards>
    void onNextPart() {
        m_site->focusNext(backwards);
    }
    void onViewPending();
    void onViewRegistry();

    void createClient();
    void layOut();
    void tileViews();
    void raiseOwnedWindows();

    FrameEvents m_events;
    LogBook& m_book;
    HWND m_client = nullptr;
    StatusBar m_status;
    // The direction in which the views are kept tiled, until the user arranges them otherwise.
    std::optional<WPARAM> m_tiling = MDITILE_VERTICAL;
    HACCEL m_accelerators = nullptr;
    std::unique_ptr<fw::CDockingSite> m_site;
    CLogPane m_log;
    CServerView m_pending;
    CServerView m_registry;
};

}  // namespace zek
