#include "console/logins.h"

#include <algorithm>
#include <utility>

#include "console/files.h"

namespace zek {
namespace {

// The profile that the command line chooses, else the first.
std::string startProfile(const std::vector<std::string>& arguments,
                         const std::vector<std::string>& names) {
    const auto option = std::ranges::find(arguments, "--profile");
    if (option != arguments.end() && option + 1 != arguments.end()) return *(option + 1);
    return names.empty() ? std::string() : names.front();
}

}  // namespace

std::string Logins::read(const ConsoleOptions& options) {
    const bool isNamed = !options.iniFile.empty();
    const std::string file = isNamed ? options.iniFile : programFolder() + "zek.ini";
    const std::optional<std::string> ini = readFile(file);
    if (!ini && isNamed) return "Cannot read " + file;
    m_ini = ini.value_or("");
    m_names = profileNames(m_ini);
    m_name = startProfile(options.login, m_names);
    Parsed<LoginProfile> login = parseLogin(m_ini, file, options.login);
    if (!login.ok()) return login.error;
    m_next = m_profile = std::move(login.value);
    return {};
}

std::string Logins::choose(std::size_t index) {
    Parsed<LoginProfile> login = parseLogin(m_ini, "zek.ini", {"--profile", m_names[index]});
    if (!login.ok()) return login.error;
    m_next = std::move(login.value);
    m_name = m_names[index];
    return {};
}

bool Logins::takeNext() {
    if (!m_next) return false;
    m_profile = *std::exchange(m_next, std::nullopt);
    return true;
}

}  // namespace zek
