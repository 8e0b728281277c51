#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/model/authorization_server.h"
#include "console/model/owned_message.h"

namespace zek {
namespace {

constexpr char kDecide[] = "om_authenticate_functionality";

// A checker's end of a connection: what it has received, in order.
struct Checker {
    Checker(AuthorizationServer& to, std::vector<SubscriptionPair> pairs) : server(to) {
        connection = server.connections().connect(
            {[this](void* message) { answers.push_back(readFields(message)); },
             [this](void* message) { published.push_back(readFields(message)); }});
        if (!pairs.empty()) server.connections().subscribe(connection, std::move(pairs));
    }
    // Sends a request and takes in everything that waits.
    void ask(Fields request) {
        const OwnedMessage message(request);
        EXPECT_GT(server.handle(connection, message.handle()), 0);
        takeAll();
    }
    void takeAll() {
        while (server.connections().deliverNext()) {
        }
    }
    std::string lastError() const {
        return answers.empty() ? "no answer" : textOf(answers.back(), field::kError).value_or("");
    }

    AuthorizationServer& server;
    int connection = 0;
    std::vector<Fields> answers, published;
};

Fields fieldsOf(std::vector<std::pair<int, std::string>> texts) {
    Fields fields;
    for (auto& [id, text] : texts) fields.push_back(makeField(id, text));
    return fields;
}

Change modifyUser() {
    Change change;
    change.code = "340";
    change.maker = "MAKER01";
    change.type = "DEALER";
    change.broker = "ZEKB";
    change.branch = "MUM01";
    change.user = "DLR101";
    change.fields = {{30001, {"Asha Iyer", "Asha Rao"}}, {44201, {"DAY", "IOC"}}, {64710, {{}}}};
    return change;
}

Change clientLimits() {
    Change change;
    change.code = "360";
    change.maker = "MAKER02";
    change.client = "C10021";
    change.fields = {{64031, {"300000", "250000"}}, {64211, {"5000", "4000"}}};
    return change;
}

Fields decisionOn(const std::string& key, const std::string& code, const std::string& word) {
    return fieldsOf(
        {{0, kDecide}, {54294, "RISKADM1"}, {51803, key}, {63713, code}, {10303, word}});
}

class ServerTest : public testing::Test {
protected:
    AuthorizationServer server;
    Checker checker{server, {{field::kBroker, ""}, {field::kKey, ""}}};
};

TEST_F(ServerTest, RefusesWhatCannotBeMetAndChangesNothing) {
    const std::string user = server.submit(modifyUser());
    const std::string limits = server.submit(clientLimits());
    const std::string done = server.submit(modifyUser());
    server.decideAs("OTHER", done, false, "no");
    checker.takeAll();
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
        const std::size_t before = checker.answers.size();
        checker.ask(request);
        ASSERT_EQ(checker.answers.size(), before + 1) << error;
        EXPECT_EQ(checker.lastError(), error);
        EXPECT_EQ(textOf(checker.answers.back(), 32767), textOf(request, 0).value_or("")) << error;
        EXPECT_EQ(textOf(checker.answers.back(), 51803), textOf(request, 51803)) << error;
    }
    EXPECT_EQ(server.decideAs("MAKER02", limits, true, ""),
              "Change " + limits + " is MAKER02's own");
    EXPECT_EQ(server.pendingKeys(), (std::vector<std::string>{user, limits}));
    EXPECT_EQ(server.pending(limits)->fields, clientLimits().fields);
    EXPECT_EQ(checker.published.size(), 4u);
    EXPECT_TRUE(server.registry().users().empty());
}

}  // namespace
}  // namespace zek
