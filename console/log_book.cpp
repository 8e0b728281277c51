#include "console/log_book.h"

#include <ctime>

#include "console/files.h"

namespace zek {
namespace {

std::string timeNow() {
    const std::time_t now = std::time(nullptr);
    char text[16] = "";
    const std::tm* local = std::localtime(&now);
    if (local != nullptr) std::strftime(text, sizeof text, "%H:%M:%S", local);
    return text;
}

}  // namespace

bool LogBook::openFile(const std::string& name) {
    m_file.open(pathOf(name), std::ios::binary);
    return m_file.is_open();
}

void LogBook::add(LogTab tab, std::string text) {
    if (tab == LogTab::log && m_file.is_open()) m_file << text << '\n' << std::flush;
    m_lines[index(tab)].push_back({timeNow(), std::move(text)});
    if (m_onAdded) m_onAdded(tab);
}

}  // namespace zek
