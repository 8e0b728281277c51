#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "console/model/authorization_server.h"
#include "console/model/scenario.h"

namespace zek {
namespace {

TEST(ScenarioTest, WhatIsWrittenReadsTheSame) {
    const char* awkward[] = {"",      " ",      " x ", "|",       "| ",      " | ", "a|b",
                             "a | b", "a| b|",  "\\?", "\\",      "\\|",     "= x", "#",
                             "\t|",   "\n\r\t", "|ML", "x | | y", "\xE0\xFF"};
    Scenario scenario;
    scenario.users = {{"=odd id", "# b", "|", "", {}}, {"field", "user", "change", "x", {}}};
    scenario.clients = {{" C 1 ", "o", "b", "b", "g", "t", {{0, {"", "", std::nullopt}}}}};
    Change change;
    change.code = "366";
    change.maker = "a | b";
    int id = 0;
    for (const char* text : awkward) change.fields.push_back({++id, {text}});
    for (const char* text : awkward) change.fields.push_back({++id, {text, std::nullopt, text}});
    scenario.changes = {change};
    const std::string text = writeScenario(scenario);
    const auto parsed = parseScenario(text, "written");
    ASSERT_TRUE(parsed.ok()) << parsed.error;
    EXPECT_EQ(parsed.value, scenario) << text;
}

// --- The shipped files ---------------------------------------------------------------------------

Scenario shipped(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    auto parsed = parseScenario(text.str(), path.filename().string());
    EXPECT_TRUE(parsed.ok()) << parsed.error;
    return parsed.value;
}

const std::filesystem::path kScenarios =
    std::filesystem::path(MC_SOURCE_DIR) / "console" / "scenarios";

TEST(ShippedScenarioTest, EveryFileIsSubmittedAndAcceptedWhole) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(kScenarios)) {
        if (entry.path().extension() != ".txt") continue;
        ++files;
        const Scenario scenario = shipped(entry.path());
        ASSERT_FALSE(scenario.changes.empty()) << entry.path();
        AuthorizationServer server;
        for (const Change& change : scenario.changes) {
            SCOPED_TRACE(entry.path().filename().string() + " " + change.maker);
            const Entity entity = entityOf(change);
            EXPECT_FALSE(entity.id.empty());
            EXPECT_FALSE(change.maker.empty());
            EXPECT_EQ(server.decideAs("SOMEBODY", server.submit(change), true, ""), "");
        }
    }
    EXPECT_EQ(files, 6);
}

}  // namespace
}  // namespace zek
