#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/model/play_script.h"

namespace zek {
namespace {

using Arguments = std::vector<std::string>;

TEST(PlayScriptTest, TellsWhereAndWhatIsWrong) {
    const std::pair<const char*, const char*> rows[] = {
        {"hotkey\n\nfly away", "s:3: unknown command \"fly\""},
        {"\"hotkey\"", "s:1: unknown command \"hotkey\""},
        {"wait rows", "s:1: too few arguments"},
        {"wait rows two", "s:1: \"two\" is not a number"},
        {"hotkey now", "s:1: too many arguments"},
        {"select", "s:1: too few arguments"},
        {"select 1001 #0", "s:1: \"#0\" is not a row (1001, #2 or \"name\")"},
        {"press Accept", "s:1: \"Accept\" is not a text in quotes"},
        {"press \"Accept", "s:1: a quote is not closed"},
        {"press \"Accept\\", "s:1: only \\\" and \\\\ are escapes"},
        {"press \"a\"\"b\"", "s:1: a blank must follow a closing quote"},
        {"decide 1001 maybe", "s:1: \"maybe\" is not accepted|rejected"},
        {"dock middle", "s:1: \"middle\" is not left|top|right|bottom|float"},
        {"screenshot \"\"", "s:1: \"\" is not a name"},
    };
    for (const auto& [script, error] : rows) EXPECT_EQ(parsePlayScript(script, "s").error, error);
    for (const char* key : {"Return", "f2", "Ctrl+", "Ctrl+Ctrl+C", "F13", "?"})
        EXPECT_FALSE(parsePlayScript("key " + std::string(key), "s").ok()) << key;
}

}  // namespace
}  // namespace zek
