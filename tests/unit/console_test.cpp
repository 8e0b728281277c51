// The reference console's server, and the scenarios that it plays.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "console/model/authorization_server.h"
#include "console/model/owned_message.h"
#include "console/model/scenario.h"

namespace zek {
namespace {

constexpr char kDecide[] = "om_authenticate_functionality";

Fields fieldsOf(std::vector<std::pair<int, std::string>> texts) {
    Fields fields;
    for (auto& [id, text] : texts) fields.push_back(makeField(id, text));
    return fields;
}

Change changeOf(const char* code, const char* maker, Fields fields) {
    Change change;
    change.code = code;
    change.maker = maker;
    change.fields = std::move(fields);
    return change;
}

Change modifyUser() {
    Change change =
        changeOf("340", "MAKER01",
                 {{30001, {"Asha Iyer", "Asha Rao"}}, {44201, {"DAY", "IOC"}}, {64710, {{}}}});
    change.type = "DEALER";
    change.broker = "ZEKB";
    change.branch = "MUM01";
    change.user = "DLR101";
    return change;
}

Change clientLimits() {
    Change change =
        changeOf("360", "MAKER02", {{64031, {"300000", "250000"}}, {64211, {"5000", "4000"}}});
    change.client = "C10021";
    return change;
}

Fields decisionOn(const std::string& key, const std::string& code, const std::string& word) {
    return fieldsOf(
        {{0, kDecide}, {54294, "RISKADM1"}, {51803, key}, {63713, code}, {10303, word}});
}

TEST(ServerTest, RefusesWhatCannotBeMetAndChangesNothing) {
    AuthorizationServer server;
    std::vector<Fields> answers;
    int published = 0;
    const int connection = server.connections().connect(
        {[&](void* message) { answers.push_back(readFields(message)); },
         [&](void*) { ++published; }});
    server.connections().subscribe(connection, {{field::kBroker, ""}, {field::kKey, ""}});
    const auto takeAll = [&] {
        while (server.connections().deliverNext()) {
        }
    };
    const std::string user = server.submit(modifyUser());
    const std::string limits = server.submit(clientLimits());
    const std::string done = server.submit(modifyUser());
    server.decideAs("OTHER", done, false, "no");
    takeAll();
    const auto with = [](Fields fields, int id, const std::string& text) {
        if (Field* known = findField(fields, id))
            *known = makeField(id, text);
        else
            fields.push_back(makeField(id, text));
        return fields;
    };
    const Fields accept = decisionOn(user, "340", "accepted");
    const Fields details = fieldsOf({{0, "om_get_auth_user_details"}, {54247, "R"}});
    const std::pair<Fields, std::string> rows[] = {
        {with(accept, 51803, "77"), "There is no change 77"},
        {with(accept, 51803, done), "Change " + done + " is decided already"},
        {with(accept, 63713, "339"), "Change " + user + " has another functionality code"},
        {with(accept, 54294, "MAKER01"), "Change " + user + " is MAKER01's own"},
        {with(accept, 31003, "DLR102"), "Change " + user + " is about another entity"},
        {with(accept, 10303, "Accepted"), "No such decision: Accepted"},
        {with(accept, 10303, "rejected"), "Field 32766 is missing"},
        {with(accept, 64031, "1"), "Only a limits change that is accepted can be updated"},
        {with(with(with(decisionOn(limits, "360", "rejected"), 32766, "no"), 64031, "1"), 1, "2"),
         "Only a limits change that is accepted can be updated"},
        {fieldsOf({{0, kDecide}, {51803, user}}), "Field 10303 is missing"},
        {with(details, 51803, limits), "Change " + limits + " has another functionality code"},
        {with(accept, 0, "om_place_order"), "Unknown request: om_place_order"},
    };
    for (const auto& [request, error] : rows) {
        answers.clear();
        EXPECT_GT(server.handle(connection, OwnedMessage(request).handle()), 0);
        takeAll();
        ASSERT_EQ(answers.size(), 1u) << error;
        EXPECT_EQ(textOf(answers[0], field::kError).value_or(""), error);
        EXPECT_EQ(textOf(answers[0], 32767), textOf(request, 0).value_or("")) << error;
        EXPECT_EQ(textOf(answers[0], 51803), textOf(request, 51803)) << error;
    }
    EXPECT_EQ(server.decideAs("MAKER02", limits, true, ""),
              "Change " + limits + " is MAKER02's own");
    EXPECT_EQ(server.pendingKeys(), (std::vector<std::string>{user, limits}));
    EXPECT_EQ(server.pending(limits)->fields, clientLimits().fields);
    EXPECT_EQ(published, 4);
    EXPECT_TRUE(server.registry().users().empty());
}

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
