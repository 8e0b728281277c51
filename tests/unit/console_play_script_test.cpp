#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/model/play_script.h"

namespace zek {
namespace {

using Arguments = std::vector<std::string>;

TEST(PlayScriptTest, ReadsEveryCommand) {
    struct Row {
        const char* line;
        PlayVerb verb;
        Arguments arguments;
    };
    const Row rows[] = {
        {"hotkey", PlayVerb::hotkey, {}},
        {"wait rows 0", PlayVerb::waitRows, {"0"}},
        {"wait log \"Request sent\"", PlayVerb::waitLog, {"Request sent"}},
        {"wait message \"Autenticate\"", PlayVerb::waitMessage, {"Autenticate"}},
        {"wait details 12", PlayVerb::waitDetails, {"12"}},
        {"select 1001 #2 \"DLR 101\"", PlayVerb::select, {"1001", "#2", "\"DLR 101"}},
        {"double-click #1", PlayVerb::doubleClick, {"#1"}},
        {"sort \"Key\"", PlayVerb::sort, {"Key"}},
        {"filter \"Entity Name\" \"*ABC\"", PlayVerb::filter, {"Entity Name", "*ABC"}},
        {"list menu \"Customize\"", PlayVerb::listMenu, {"Customize"}},
        {"header menu \"Key\" \"Fit to Data\"", PlayVerb::headerMenu, {"Key", "Fit to Data"}},
        {"focus 3207", PlayVerb::focus, {"3207"}},
        {"choose 1694 \"Text\"", PlayVerb::choose, {"1694", "Text"}},
        {"expect text 3208 \"sell, buy\"", PlayVerb::expectText, {"3208", "sell, buy"}},
        {"press \"Accept\"", PlayVerb::press, {"Accept"}},
        {"type \"say \\\"no\\\" to C:\\\\\"", PlayVerb::type, {"say \"no\" to C:\\"}},
        {"type \"\"", PlayVerb::type, {""}},
        {"key Enter", PlayVerb::key, {"Enter"}},
        {"key Ctrl+Shift+F10", PlayVerb::key, {"Ctrl+Shift+F10"}},
        {"key Ctrl+C", PlayVerb::key, {"Ctrl+C"}},
        {"close message", PlayVerb::closeMessage, {}},
        {"screenshot after-accept", PlayVerb::screenshot, {"after-accept"}},
        {"expect rows 7", PlayVerb::expectRows, {"7"}},
        {"expect row 1002 \"Entity Name\" \"C1\"",
         PlayVerb::expectRow,
         {"1002", "Entity Name", "C1"}},
        {"expect log \"a # b\"", PlayVerb::expectLog, {"a # b"}},
        {"expect no log \"Request failure\"", PlayVerb::expectNoLog, {"Request failure"}},
        {"expect message \"x\"", PlayVerb::expectMessage, {"x"}},
        {"submit next", PlayVerb::submitNext, {}},
        {"submit all", PlayVerb::submitAll, {}},
        {"submit storm 20000", PlayVerb::submitStorm, {"20000"}},
        {"decide \"C1\" rejected", PlayVerb::decide, {"\"C1", "rejected"}},
        {"user JUNIOR", PlayVerb::user, {"JUNIOR"}},
        {"menu \"View>Maker Checker\"", PlayVerb::menu, {"View>Maker Checker"}},
        {"dock float", PlayVerb::dock, {"float"}},
        {"close pane", PlayVerb::closePane, {}},
        {"edit \"Cash Margin\" \"1500\"", PlayVerb::edit, {"Cash Margin", "1500"}},
        {"expect detail \"Cash Margin\" \"Old Value\" \"1000\"",
         PlayVerb::expectDetail,
         {"Cash Margin", "Old Value", "1000"}},
        {"expect clean", PlayVerb::expectClean, {}},
        {"quit", PlayVerb::quit, {}},
    };
    std::string script = "# a session\r\n\r\n";
    for (const Row& row : rows) script += "  " + std::string(row.line) + "\t\r\n";
    const auto parsed = parsePlayScript(script, "s.play");
    ASSERT_TRUE(parsed.ok()) << parsed.error;
    ASSERT_EQ(parsed.value.size(), std::size(rows));
    int line = 3;
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(parsed.value[i], (PlayStep{line++, rows[i].verb, rows[i].arguments}))
            << rows[i].line;
    EXPECT_EQ(wordsOf(PlayVerb::expectNoLog), "expect no log");
}

TEST(PlayScriptTest, RowsAreKeysPlacesOrNames) {
    const auto parsed = parsePlayScript("select 1001 #12 \"#3\" \"1001\"", "s");
    ASSERT_TRUE(parsed.ok()) << parsed.error;
    const PlayRow expected[] = {{PlayRow::By::key, "1001", 0},
                                {PlayRow::By::position, "", 12},
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

TEST(PlayScriptTest, SurvivesHostileText) {
    const std::string good =
        "wait log \"a \\\" b\"\nexpect row #2 \"Key\" \"x\\\\\"\nselect 1 #2 \"n\"\n";
    unsigned noise = 99;
    for (int round = 0; round < 2000; ++round) {
        std::string bad = good.substr(0, static_cast<std::size_t>(round) % (good.size() + 1));
        noise = noise * 1664525u + 1013904223u;
        if (!bad.empty()) bad[(noise >> 8) % bad.size()] = static_cast<char>(noise & 0xFF);
        const auto parsed = parsePlayScript(bad, "s");
        EXPECT_TRUE(parsed.ok() || parsed.error.starts_with("s:")) << bad;
    }
    EXPECT_EQ(parsePlayScript(std::string_view("quit\0", 5), "s").error, "s:1: a zero byte");
    EXPECT_EQ(parsePlayScript("type \"" + std::string(1'000'000, 'x') + "\"", "s")
                  .value.at(0)
                  .arguments[0]
                  .size(),
              1'000'000u);
}

}  // namespace
}  // namespace zek
