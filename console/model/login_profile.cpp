#include "console/model/login_profile.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace zek {
namespace {

// Options by name, as a profile's section and the command line give them.
using Options = std::map<std::string, std::string, std::less<>>;

bool readText(std::string& into, std::string_view text) {
    into = text;
    return true;
}

bool readNumber(int& into, std::string_view text) {
    const std::optional<int> number = toNumber(text);
    if (number) into = *number;
    return number.has_value();
}

bool readNumbers(std::vector<int>& into, std::string_view text) {
    into.clear();
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        if (!readNumber(into.emplace_back(), trimmed(text.substr(0, end)))) return false;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return true;
}

bool readYesNo(bool& into, std::string_view text) {
    into = text == "yes";
    return into || text == "no";
}

// Stores an option's text in a member; false when the text does not fit.
template <auto member, auto read>
bool store(LoginProfile& profile, std::string_view text) {
    return read(profile.*member, text);
}

constexpr struct Option {
    std::string_view name;
    bool (*store)(LoginProfile& profile, std::string_view text);
} kOptions[] = {
    {"user", store<&LoginProfile::user, readText>},
    {"broker", store<&LoginProfile::broker, readText>},
    {"second", store<&LoginProfile::second, readText>},
    {"privilege", store<&LoginProfile::privilege, readText>},
    {"level", store<&LoginProfile::level, readNumber>},
    {"roles", store<&LoginProfile::roles, readNumbers>},
    {"modify", store<&LoginProfile::modifyRight, readYesNo>},
    {"restrict", store<&LoginProfile::restricted, readNumbers>},
    {"scenario", store<&LoginProfile::scenario, readText>},
    {"play", store<&LoginProfile::play, readText>},
    {"storm", store<&LoginProfile::storm, readNumber>},
};
constexpr std::string_view kProfile = "profile";

// Empty when the option was stored, else what is wrong with it.
std::string storeOption(LoginProfile& profile, std::string_view name, std::string_view text) {
    const auto* option = std::ranges::find(kOptions, name, &Option::name);
    if (option == std::end(kOptions)) return "unknown option " + quoted(name);
    if (!option->store(profile, text))
        return "option " + std::string(name) + " cannot be " + quoted(text);
    return {};
}

Parsed<Options> readArguments(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (!argument.starts_with("--")) return {{}, "not an option: " + quoted(argument)};
        if (argument == "--no-modify") {
            options["modify"] = "no";
            continue;
        }
        if (i + 1 == arguments.size()) return {{}, "a value must follow " + quoted(argument)};
        options[argument.substr(2)] = arguments[++i];
    }
    return {std::move(options), {}};
}

std::optional<std::string_view> sectionIn(std::string_view line) {
    if (!line.starts_with('[') || !line.ends_with(']')) return std::nullopt;
    return trimmed(line.substr(1, line.size() - 2));
}

// Reads the section of the name into the profile; without a name the first section. All sections
// are checked.
std::string readIni(LoginProfile& into, LineReader lines, std::optional<std::string> wanted) {
    bool found = !wanted;
    LoginProfile scratch;
    LoginProfile* profile = &scratch;
    while (const auto line = lines.next()) {
        if (const auto section = sectionIn(*line)) {
            if (!wanted) wanted = *section;
            const bool isWanted = wanted == *section;
            profile = isWanted ? &into : &scratch;
            if (isWanted) into.user = *section;
            found = found || isWanted;
            continue;
        }
        const std::optional<Assignment> assignment = splitAssignment(*line);
        if (!assignment) return lines.error("neither [profile] nor option = value");
        const std::string error = storeOption(*profile, assignment->name, assignment->value);
        if (!error.empty()) return lines.error(error);
    }
    return found ? std::string() : "there is no profile " + quoted(*wanted);
}

}  // namespace

Parsed<LoginProfile> parseLogin(std::string_view ini, std::string_view iniFile,
                                const std::vector<std::string>& arguments) {
    Parsed<Options> options = readArguments(arguments);
    if (!options.ok()) return {{}, options.error};
    std::optional<std::string> wanted;
    if (const auto named = options.value.extract(std::string(kProfile))) wanted = named.mapped();

    LoginProfile profile;
    std::string error = readIni(profile, LineReader(ini, iniFile), wanted);
    for (auto option = options.value.begin(); error.empty() && option != options.value.end();
         ++option)
        error = storeOption(profile, option->first, option->second);
    return {std::move(profile), std::move(error)};
}

}  // namespace zek
