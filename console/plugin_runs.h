// The runs of the plug-in: each from its loading to its unloading, with the receive controls that
// it is given, and what it leaves behind.
#pragma once

#include <string>
#include <vector>

#include "console/exchange.h"
#include "console/holdings.h"
#include "console/log_book.h"
#include "console/plugin.h"
#include "console/receive_control.h"
#include "console/troubles.h"

namespace zek {

class PluginRuns {
public:
    // All must outlive the object.
    PluginRuns(CExchange& exchange, LogBook& log, Troubles& troubles);

    void load();
    void unload();
    void reload();
    void hotKey() { m_plugin.hotKey(); }

    ReceiveControls& controls() { return m_controls; }

    // What the program held more after the plug-in was last unloaded than after the time before, or
    // an empty text.
    std::string grownBetweenUnloads() const;

private:
    LogBook& m_log;
    Troubles& m_troubles;
    ReceiveControls m_controls;
    Plugin m_plugin;
    int m_handlesBefore = 0;           // of the messaging library, before the plug-in was loaded
    std::vector<Holdings> m_holdings;  // after each unloading
};

}  // namespace zek
