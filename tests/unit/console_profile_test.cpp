#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/model/login_profile.h"

namespace zek {
namespace {

using Arguments = std::vector<std::string>;

constexpr char kProfiles[] =
    "# the console's profiles\r\n"
    "[ SENIOR ]\r\n"
    "broker = ZEKC\r\n"
    "level = 2\r\n"
    "[JUNIOR]\n"
    "user = JR01\n"
    "roles = 60302, 60303\n"
    "modify = no\n"
    "restrict = 64169\n"
    "scenario = console/scenarios/users.txt\n";

TEST(LoginProfileTest, ArgumentsWinOverTheSectionWhereverTheyStand) {
    const Arguments arguments = {"--user",      "X",      "--no-modify", "--level",  "4",
                                 "--roles",     "",       "--profile",   "SENIOR",   "--storm",
                                 "500",         "--play", "a.play",      "--second", "S",
                                 "--privilege", "P"};
    const auto parsed = parseLogin(kProfiles, "zek.ini", arguments);
    ASSERT_TRUE(parsed.ok()) << parsed.error;
    LoginProfile expected;
    expected.user = "X";
    expected.broker = "ZEKC";
    expected.second = "S";
    expected.privilege = "P";
    expected.level = 4;
    expected.roles = {};
    expected.modifyRight = false;
    expected.play = "a.play";
    expected.storm = 500;
    EXPECT_EQ(parsed.value, expected);
}

}  // namespace
}  // namespace zek
