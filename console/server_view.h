// Windows of the frame that show what the authorization server holds, for reading only.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "console/exchange.h"
#include "console/report_list.h"

namespace zek {

// What a view shows: one row for each id, one text for each column.
struct ServerTable {
    const char* title;
    std::span<const ReportColumn> columns;
    std::vector<std::string> (*ids)(const AuthorizationServer& server);
    std::string (*text)(const AuthorizationServer& server, const std::string& id, int column);
};

const ServerTable& pendingTable();   // the pending changes and their makers
const ServerTable& registryTable();  // the users and clients that exist

// A child of the frame's client window. The user may close it; open() brings it back.
class CServerView : public fw::CWindow {
public:
    CServerView(const ServerTable& table, const CExchange& exchange)
        : m_table(table), m_exchange(exchange) {}

    // Creates the window in `client`, or brings it to the front.
    void open(HWND client);

    // Shows the server as it is now, if it changed.
    void refresh();

    // `onMoved` runs when the user has moved or sized the window.
    void setMovedNotice(std::function<void()> onMoved) { m_onMoved = std::move(onMoved); }

protected:
    const fw::MessageMap& messageMap() const override;

private:
    void onSize(int width, int height);
    void onFocus();
    void onDpiChanged();
    void onEnterSizeMove();
    void onExitSizeMove();
    void onDisplay(NMLVDISPINFOA& asked);

    const ServerTable& m_table;
    const CExchange& m_exchange;
    std::function<void()> m_onMoved;
    RECT m_before{};  // the rectangle when the user took hold of the window
    fw::Font m_font;
    int m_dpi = 0;  // that font and columns are made for
    HWND m_list = nullptr;
    std::vector<std::string> m_ids;
    unsigned m_shownRevision = 0;
};

}  // namespace zek
