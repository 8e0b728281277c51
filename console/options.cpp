#include "console/options.h"

#include <algorithm>

namespace zek {
namespace {

constexpr struct {
    std::string_view name;
    std::string ConsoleOptions::*text;
} kTexts[] = {
    {"--log", &ConsoleOptions::logFile},         {"--state", &ConsoleOptions::stateFile},
    {"--shots", &ConsoleOptions::shotsFolder},   {"--ini", &ConsoleOptions::iniFile},
    {"--docking", &ConsoleOptions::dockingFile},
};

}  // namespace

Parsed<ConsoleOptions> takeConsoleOptions(const std::vector<std::string>& arguments) {
    ConsoleOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const auto* known =
            std::ranges::find_if(kTexts, [&](const auto& each) { return each.name == argument; });
        if (argument == "--frame-first") {
            options.frameFirst = true;
        } else if (known == std::end(kTexts)) {
            options.login.push_back(argument);
        } else if (i + 1 == arguments.size()) {
            return {{}, "a value must follow " + zek::quoted(argument)};
        } else {
            options.*known->text = arguments[++i];
        }
    }
    return {std::move(options), {}};
}

std::vector<std::string> profileNames(std::string_view ini) {
    std::vector<std::string> names;
    LineReader lines(ini, "");
    while (const auto line = lines.next())
        if (line->starts_with('[') && line->ends_with(']'))
            names.emplace_back(trimmed(line->substr(1, line->size() - 2)));
    return names;
}

}  // namespace zek
