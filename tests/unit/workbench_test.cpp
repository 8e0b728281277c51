#include "workbench/model/workbench.h"

#include <gtest/gtest.h>

#include <memory>

#include "console/model/authorization_server.h"
#include "tests/unit/detail_lines.h"
#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"
#include "tests/unit/view_recorder.h"

namespace {

class WorkbenchTest : public testing::Test {
protected:
    sMakeCheckStruct& list(const std::string& key, const std::string& code) {
        const auto message =
            publication("auth pending", key, {{MNM_FUNCTIONALITY, code}, {MNM_USER, "DLR101"}});
        workbench->handlePublished(message.handle());
        view.events.clear();
        return workbench->changes().at(workbench->changes().size() - 1);
    }

    void answer(const std::string& request, const FieldTexts& more) {
        FieldTexts fields{{MNM_ANSWERED_REQUEST, request}};
        fields.insert(fields.end(), more.begin(), more.end());
        const auto message = makeMessage(fields);
        host.control().receiver->onMessage(0, 0, message.handle(), nullptr);
    }

    FakeHost host;
    ViewRecorder view;
    std::unique_ptr<Workbench> workbench = std::make_unique<Workbench>(host, view);
};

TEST_F(WorkbenchTest, AsksForTheDetailsOfAChangeByItsKind) {
    const struct {
        const char *code, *request;  // null: nothing is asked for
    } cases[] = {
        {"339", "om_get_auth_user_details"},
        {"340", "om_get_auth_user_details"},
        {"353", "om_get_auth_account_details"},
        {"354", "om_get_auth_account_details"},
        {"360", "om_get_auth_limits_details"},
        {"365", nullptr},
        {"366", nullptr},
        {"777", nullptr},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.code);
        const sMakeCheckStruct& record = list(std::string("key ") + each.code, each.code);
        host.control().sent.clear();
        workbench->showDetails(record);
        EXPECT_EQ(view.events, Lines{"empty details"});
        std::vector<SentMessage> sent;
        if (each.request != nullptr)
            sent.push_back({{0, each.request}, {54247, "CHECK01"}, {51803, record.key}});
        EXPECT_EQ(host.control().sent, sent);
    }
}

TEST_F(WorkbenchTest, ARefusedDetailRequestEmptiesTheDetailsUnlessItIsLate) {
    const std::string request = "om_get_auth_user_details";
    const sMakeCheckStruct& first = list("1001", "339");
    const sMakeCheckStruct& second = list("1002", "339");
    const FieldText error{MNM_ERROR, "No such change"};
    workbench->showDetails(first);
    workbench->showDetails(second);
    view.events.clear();

    answer(request, {error, {MNM_AUTHORIZATION_KEY, "1001"}});
    EXPECT_EQ(view.events, Lines{}) << "another change is on show by now";
    answer(request, {error, {MNM_AUTHORIZATION_KEY, "1002"}});
    EXPECT_EQ(view.events, Lines{"empty details"});

    workbench->showDetails(first);
    view.events.clear();
    answer("om_get_auth_account_details", {error});
    EXPECT_EQ(view.events, Lines{"empty details"}) << "an error without a key is never late";
    EXPECT_EQ(host.beeps, 2) << "only the two publications";
}

TEST_F(WorkbenchTest, ShowsAnswersForTheChangeAskedForLast) {
    const FieldText user{MNM_USER, "DLR101"}, client{MNM_ACCOUNT_ID, "C1"}, name{30001, "Asha"};
    answer("om_get_auth_user_details", {user, name});
    EXPECT_EQ(view.events, Lines{}) << "none is asked for";

    workbench->showDetails(list("1001", "339"));
    workbench->showDetails(list("1002", "353"));
    view.events.clear();
    answer("om_get_auth_user_details", {{MNM_AUTHORIZATION_KEY, "1001"}, user, name});
    EXPECT_EQ(view.events, Lines{}) << "late";
    const FieldTexts details{{MNM_AUTHORIZATION_KEY, "1002"}, client, {54002, "Meera"}};
    answer("om_get_auth_account_details", details);
    EXPECT_EQ(linesOf(view.shown), (Lines{"[General]", "Client Id: C1", "Client Name: Meera"}));

    // A second answer stands in place of the first.
    view.events.clear();
    answer("om_get_auth_account_details", details);
    EXPECT_EQ(view.events, (Lines{"empty details", "show details"}));

    FieldTexts refused = details;
    refused.push_back({MNM_ERROR, kUnreadable});
    view.events.clear();
    answer("om_get_auth_account_details", refused);
    EXPECT_EQ(view.events, Lines{"empty details"}) << "an error beside data";
}

TEST_F(WorkbenchTest, AsksTheModifyRightForEachAnswer) {
    const std::pair<std::optional<int>, RowAttribute> cases[] = {
        {std::nullopt, RowAttribute::readOnly},
        {0, RowAttribute::readOnly},
        {1, RowAttribute::number},
        {-1, RowAttribute::number}};
    workbench->showDetails(list("1001", "360"));
    for (const auto& [right, attribute] : cases) {
        host.modifyRight = right;
        answer("om_get_auth_limits_details", {{MNM_ACCOUNT_ID, "C1"}, {64031, "1500"}});
        EXPECT_EQ(view.shown.back().rows.back().attribute, attribute);
    }
}

TEST_F(WorkbenchTest, EditsLiveAsLongAsTheDetailsTheyWereTypedInto) {
    const FieldTexts limits{{MNM_ACCOUNT_ID, "C1"}, {64031, "1500"}};
    const auto sentBy = [&](auto press) {
        host.control().sent.clear();
        press();
        return host.control().sent;
    };
    const auto update = [&] { workbench->update(); };
    EXPECT_EQ(workbench->valueEdited(64031, "1"), std::nullopt) << "no details are on show";

    const sMakeCheckStruct& record = list("1001", "360");
    workbench->showDetails(record);
    EXPECT_EQ(workbench->valueEdited(64031, "1"), "1.00");
    EXPECT_EQ(workbench->valueEdited(0, "1"), std::nullopt) << "a row without a field";
    answer("om_get_auth_limits_details", limits);  // a second answer
    EXPECT_EQ(sentBy(update), std::vector<SentMessage>{});
    workbench->valueEdited(64031, "1");
    workbench->showDetails(record);
    EXPECT_EQ(sentBy(update), std::vector<SentMessage>{});

    // Choices are no numbers; the last edit of a field counts; what left is gone.
    EXPECT_EQ(workbench->choiceMade(64037, "D"), "D");
    workbench->valueEdited(64031, "1e999");
    workbench->valueEdited(64031, "7");
    workbench->valueEdited(64031, "12.345");
    view.events.clear();
    host.control().works = false;
    update();
    EXPECT_EQ(view.events, Lines{}) << "a failed update leaves the edits";
    host.control().works = true;
    EXPECT_EQ(sentBy(update), (std::vector<SentMessage>{{{0, "om_authenticate_functionality"},
                                                         {54294, "CHECK01"},
                                                         {51803, "1001"},
                                                         {63713, "360"},
                                                         {10303, "accepted"},
                                                         {64031, "12.35"},
                                                         {64037, "no"}}}));
    EXPECT_EQ(view.events, Lines{"edits sent"});
    EXPECT_EQ(sentBy(update), std::vector<SentMessage>{});
    EXPECT_EQ(view.events, Lines{"edits sent"});
}

TEST_F(WorkbenchTest, TheOutcomeOfTheChangeOnShowEmptiesTheDetails) {
    workbench->showDetails(list("1001", "360"));
    list("1002", "360");
    workbench->handlePublished(publication("accepted", "1002").handle());
    EXPECT_EQ(view.events, Lines{"rows"});
    workbench->handlePublished(publication("rejected", "1001").handle());
    EXPECT_EQ(view.events, (Lines{"rows", "rows", "empty details"}));
}

TEST_F(WorkbenchTest, RecoveryEmptiesTheDetailsAndItsAnswersAreTakenIn) {
    workbench->showDetails(list("1001", "339"));
    view.events.clear();
    std::vector<std::string> whileSending;
    host.control().sending = [&](const SentMessage&) { whileSending = view.events; };
    workbench->recover();
    EXPECT_EQ(whileSending, Lines{"empty details"});

    const FieldTexts change{{MNM_PUBLICATION_STATUS, "auth pending"},
                            {MNM_AUTHORIZATION_KEY, "1002"},
                            {MNM_FUNCTIONALITY, "339"}};
    FieldTexts refused = change;
    refused.push_back({MNM_ERROR, "not now"});
    answer("om_get_functionality_details", refused);
    EXPECT_EQ(workbench->changes().size(), 1u);
    answer("om_get_functionality_details", change);
    EXPECT_EQ(workbench->changes().size(), 2u);
    EXPECT_EQ(view.events, (Lines{"empty details", "rows"}));
}

TEST_F(WorkbenchTest, IgnoresANullMessage) {
    workbench->handlePublished(nullptr);
    EXPECT_EQ(view.events, Lines{});
    EXPECT_EQ(host.menuItemLookups, 0);
}

TEST_F(WorkbenchTest, GoesWithItsRecordsThenItsDetailsThenItsLink) {
    list("1001", "339");
    list("1002", "360");
    const Workbench& going = *workbench;
    int emptied = 0;
    view.whenDetailsEmpty = [&] {
        ++emptied;
        EXPECT_EQ(going.changes().size(), 0u);
        EXPECT_TRUE(host.released.empty());
    };
    workbench->close();
    workbench.reset();
    EXPECT_EQ(emptied, 1);
    EXPECT_EQ(host.released, (std::vector<int>{3, 0}));
}

// Behind the message box of a press that is under way.
TEST_F(WorkbenchTest, AClosedWorkbenchDecidesAndTakesInNothing) {
    for (const char* key : {"1001", "1002", "1003"}) list(key, "340");
    std::vector<sMakeCheckStruct*> rows;
    for (std::size_t i = 0; i < 3; ++i) rows.push_back(&workbench->changes().at(i));
    host.control().works = false;
    std::size_t sent = 1;
    host.whileBoxIsOpen = [&] {
        host.control().works = true;
        host.control().sending = [&](const SentMessage&) { ++sent; };
        sent = 0;
        workbench->close();
        workbench->handlePublished(publication("auth pending", "1004").handle());
    };
    workbench->accept(rows);
    EXPECT_EQ(host.takeSaid(), Lines{"error Failed while sending om_authenticate_functionality"});
    EXPECT_EQ(sent, 0u);
    EXPECT_EQ(workbench->changes().size(), 0u);
    workbench->showDetails(*std::make_unique<sMakeCheckStruct>());
    workbench->update();
    workbench->recover();
    EXPECT_EQ(host.released, (std::vector<int>{3, 0}));
}

// A checker's workbench at the console's server.
class WorkbenchAtServer : public WorkbenchTest {
protected:
    WorkbenchAtServer() {
        FakeControl& control = host.control();
        m_connection = server.connect(
            {[&control](void* message) { control.receiver->onMessage(0, 0, message, nullptr); },
             [this](void* message) { workbench->handlePublished(message); }});
        control.delivered = [this](void* message) { server.handle(m_connection, message); };
        workbench->subscribe();
        std::vector<zek::SubscriptionPair> pairs;
        for (const auto& [field, value] : control.subscriptions.at(0).pairs)
            pairs.push_back({field, value});
        server.subscribe(m_connection, pairs);
    }

    std::string submit(const std::string& code, const std::string& type, const std::string& user,
                       const std::string& client = "") {
        zek::Change change;
        change.code = code;
        change.type = type;
        change.maker = "MAKER01";
        change.broker = "ZEKB";
        change.user = user;
        change.client = client;
        const std::string key = server.submit(change);
        deliverAll();
        return key;
    }

    void deliverAll() {
        while (server.deliverNext()) {
        }
    }

    std::vector<sMakeCheckStruct*> rows() const {
        std::vector<sMakeCheckStruct*> all;
        for (std::size_t i = 0; i < workbench->changes().size(); ++i)
            all.push_back(&workbench->changes().at(i));
        return all;
    }

    zek::AuthorizationServer server;

private:
    int m_connection = 0;
};

TEST_F(WorkbenchAtServer, AnAcceptedChangeIsDecidedAndItsRowGoes) {
    const std::string key = submit("340", "DEALER", "DLR101");
    ASSERT_EQ(workbench->changes().size(), 1u);
    workbench->accept(rows());
    EXPECT_EQ(workbench->changes().size(), 1u) << "until the outcome is published";
    deliverAll();
    EXPECT_EQ(workbench->changes().size(), 0u);
    EXPECT_EQ(server.decision(key), (zek::Decision{true, "CHECK01", ""}));
}

TEST_F(WorkbenchAtServer, ARejectionCarriesItsReason) {
    const std::string key = submit("366", "RETAIL", "DLR101", "CL5");
    workbench->reject(rows(), "not agreed");
    deliverAll();
    EXPECT_EQ(workbench->changes().size(), 0u);
    EXPECT_EQ(server.decision(key), (zek::Decision{false, "CHECK01", "not agreed"}));
}

TEST_F(WorkbenchAtServer, AnInvestorsUserAndClientAreDecidedTogether) {
    const std::string client = submit("353", "INVESTOR_CLIENT", "INV7", "CL7");
    const std::string other = submit("353", "INVESTOR_CLIENT", "INV8", "CL8");
    const std::string user = submit("339", "INVESTOR_CLIENT", "INV7");
    workbench->accept(rows());
    deliverAll();
    ASSERT_EQ(workbench->changes().size(), 1u);
    EXPECT_EQ(workbench->changes().at(0).key, other);
    EXPECT_TRUE(server.decision(user)->accepted);
    EXPECT_TRUE(server.decision(client)->accepted);
    EXPECT_EQ(server.decision(other), std::nullopt);
}

TEST_F(WorkbenchAtServer, RecoveryBringsBackWhatWasMissed) {
    host.roles = {};
    const std::string first = submit("354", "RETAIL", "DLR101", "CL5");
    const std::string second = submit("360", "", "DLR102");
    ASSERT_EQ(workbench->changes().size(), 0u);
    host.roles = {60302, 60304};
    workbench->recover();
    deliverAll();
    ASSERT_EQ(workbench->changes().size(), 2u);
    EXPECT_EQ(workbench->changes().at(0).key, first);
    EXPECT_EQ(workbench->changes().at(1).key, second);
    EXPECT_EQ(workbench->changes().at(1).entityName, "Broker - ZEKB");
}

TEST_F(WorkbenchAtServer, AnUpdateShowsInTheNextDetails) {
    zek::Change change;
    change.code = "360";
    change.maker = "MAKER01";
    change.client = "C1";
    change.fields = {{64031, {"300000", "250000"}}, {64037, {"yes", "no"}}};
    server.submit(change);
    deliverAll();
    const auto details = [&] {
        view.shown.clear();
        workbench->showDetails(*rows().front());
        deliverAll();
        return linesOf(view.shown);
    };
    EXPECT_EQ(details(), (Lines{"[RMS Limits]", "RMS Limit For: Client - C1",
                                "Cash Margin: 300000.00 < 250000", "GroupWise Validation: E < D"}));
    workbench->valueEdited(64031, "275000");
    workbench->choiceMade(64037, "D");
    workbench->update();
    deliverAll();
    EXPECT_EQ(details(), (Lines{"[RMS Limits]", "RMS Limit For: Client - C1",
                                "Cash Margin: 275000.00 < 250000", "GroupWise Validation: D < D"}));
}

TEST_F(WorkbenchAtServer, DetailsOfAChangeDecidedMeanwhileAreRefused) {
    const std::string key = submit("339", "DEALER", "DLR101");
    const sMakeCheckStruct record = *rows().front();
    server.decideAs("CHECK02", key, true, "");
    workbench->showDetails(record);
    view.events.clear();
    deliverAll();
    // The outcome comes first and takes the details with it; the refusal is then too late.
    EXPECT_EQ(view.events, (Lines{"rows", "empty details"}));
}

}  // namespace
