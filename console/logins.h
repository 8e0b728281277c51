// Who can log in to the console, who is logged in, and who is next.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "console/model/login_profile.h"
#include "console/options.h"

namespace zek {

class Logins {
public:
    // Reads the profiles, and who logs in first. Returns what is wrong, or an empty text.
    std::string read(const ConsoleOptions& options);

    // The names of the profiles, and that of the one that was chosen last.
    const std::vector<std::string>& names() const { return m_names; }
    const std::string& name() const { return m_name; }

    const LoginProfile& profile() const { return m_profile; }

    // Chooses who logs in next, by a position among the names. Returns as read() does.
    std::string choose(std::size_t index);
    // Logs that one in; false when nobody was chosen.
    bool takeNext();

private:
    std::string m_ini;
    std::vector<std::string> m_names;
    std::string m_name;
    LoginProfile m_profile;
    std::optional<LoginProfile> m_next;
};

}  // namespace zek
