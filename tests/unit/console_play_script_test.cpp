#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/model/play_script.h"

namespace zek {
namespace {

using Arguments = std::vector<std::string>;

TEST(PlayScriptTest, RowsAreKeysPlacesOrNames) {
    const auto parsed = parsePlayScript("select 1001 #12 \"#3\" \"1001\"", "s");
    ASSERT_TRUE(parsed.ok()) << parsed.error;
    const PlayRow expected[] = {{PlayRow::By::key, "1001", 0},
                                {PlayRow::By::place, "", 12},
                                {PlayRow::By::name, "#3", 0},
                                {PlayRow::By::name, "1001", 0}};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(rowOf(parsed.value[0].arguments[i]), expected[i]) << i;
}

TEST(PlayScriptTest, TellsWhereAndWhatIsWrong) {
    const std::pair<const char*, const char*> rows[] = {
        {"hotkey\n\nfly away", "s:3: unknown command \"fly\""},
        {"wait", "s:1: unknown command \"wait\""},
        {"\"hotkey\"", "s:1: unknown command \"hotkey\""},
        {"wait rows", "s:1: too few arguments"},
        {"wait rows two", "s:1: \"two\" is not a number"},
        {"wait rows -1", "s:1: \"-1\" is not a number"},
        {"wait rows \"2\"", "s:1: \"2\" is not a number"},
        {"hotkey now", "s:1: too many arguments"},
        {"select", "s:1: too few arguments"},
        {"select 1001 #0", "s:1: \"#0\" is not a row (1001, #2 or \"name\")"},
        {"select \"\"", "s:1: \"\" is not a row (1001, #2 or \"name\")"},
        {"press Accept", "s:1: \"Accept\" is not a text in quotes"},
        {"press \"Accept", "s:1: a quote is not closed"},
        {"press \"Accept\\", "s:1: only \\\" and \\\\ are escapes"},
        {"press \"a\\n\"", "s:1: only \\\" and \\\\ are escapes"},
        {"press \"a\"\"b\"", "s:1: a blank must follow a closing quote"},
        {"decide 1001 maybe", "s:1: \"maybe\" is not accepted|rejected"},
        {"decide 1001 \"accepted\"", "s:1: \"accepted\" is not accepted|rejected"},
        {"dock middle", "s:1: \"middle\" is not left|top|right|bottom|float"},
        {"expect row 1001 \"Key\"", "s:1: too few arguments"},
        {"screenshot \"\"", "s:1: \"\" is not a name"},
    };
    for (const auto& [script, error] : rows) EXPECT_EQ(parsePlayScript(script, "s").error, error);
    for (const char* key : {"Return", "f2", "Ctrl+", "Ctrl+Ctrl+C", "F13", "?"})
        EXPECT_FALSE(parsePlayScript("key " + std::string(key), "s").ok()) << key;
}

}  // namespace
}  // namespace zek
