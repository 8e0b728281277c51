// The lines of the tabbed log. They outlive the windows that show them, so that a switch of the
// user keeps them.
#pragma once

#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace zek {

// One tab each, in this order.
enum class LogTab { log, server };
inline constexpr int kLogTabs = 2;

struct LogLine {
    std::string time;  // "09:15:02"
    std::string text;
};

class LogBook {
public:
    // Writes every line of the tab "Log" to the file as well. False when it cannot be made.
    bool openFile(const std::string& name);

    void add(LogTab tab, std::string text);
    const std::vector<LogLine>& lines(LogTab tab) const { return m_lines[index(tab)]; }

    // `onAdded` runs after each line; an empty function for none.
    void setListener(std::function<void(LogTab)> onAdded) { m_onAdded = std::move(onAdded); }

private:
    static std::size_t index(LogTab tab) { return static_cast<std::size_t>(tab); }

    std::vector<LogLine> m_lines[kLogTabs];
    std::ofstream m_file;
    std::function<void(LogTab)> m_onAdded;
};

}  // namespace zek
