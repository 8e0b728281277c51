#include "link/model/requests.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#include "tests/unit/answer_recorder.h"
#include "tests/unit/fake_host.h"

using namespace mc;

namespace {

const std::string kDecision = "om_authenticate_functionality";

sMakeCheckStruct changeOf(const std::string& code) {
    sMakeCheckStruct record;
    record.key = "1001";
    record.entityName = "ENT7";
    record.functionalityCode = code;
    return record;
}

struct RequestsFixture {
    explicit RequestsFixture(std::set<int> controlKinds = {0, 3}) {
        host.controlKinds = std::move(controlKinds);
        link.emplace(host, answers);
        requests.emplace(host, *link, details);
    }

    FakeHost host;
    AnswerRecorder answers;
    std::optional<serverLink> link;
    DetailsOnShow details{"shown before", {{64210, "12"}, {41236, "7"}, {64037, "E"}}};
    std::optional<Requests> requests;
};

// One request, and what is said when each of its steps fails.
struct RequestCase {
    std::string name;
    // Whether the request says that it was sent.
    std::function<bool(RequestsFixture&)> send;
    SentMessage fields;
    std::string success;
    // Of the start of the message, then of each field, in order; empty: nothing is said.
    Lines buildFailures;
    std::string sendFailure;

    friend void PrintTo(const RequestCase& each, std::ostream* out) { *out << each.name; }
};

using DetailRequest = int (Requests::*)(const std::string&);

RequestCase detailCase(const std::string& name, DetailRequest request, const std::string& success) {
    const std::string failure = "log Request failure";
    return {name,
            [request](RequestsFixture& f) { return ((*f.requests).*request)("1001") == 1; },
            {{0, name}, {54247, "CHECK01"}, {51803, "1001"}},
            success,
            {"log Messaging failure.", failure, failure, failure},
            failure};
}

// `entity` and its failure are left out for a change whose entity is not named.
RequestCase acceptCase(const std::string& code, const SentMessage& entity, const Lines& failure) {
    RequestCase made{
        "accept_" + code,
        [code](RequestsFixture& f) { return f.requests->sendAccept(changeOf(code)) == 1; },
        {{0, kDecision}},
        "log Request sent to Accept Authentication",
        {"", ""},
        "error Failed while sending " + kDecision};
    made.fields.insert(made.fields.end(), entity.begin(), entity.end());
    made.buildFailures.insert(made.buildFailures.end(), failure.begin(), failure.end());
    for (const auto& field :
         SentMessage{{54294, "CHECK01"}, {51803, "1001"}, {63713, code}, {10303, "accepted"}})
        made.fields.push_back(field);
    for (const char* line :
         {"error MNM_SOURCE_USER_ID failed while sending om_authenticate_functionality",
          "error 51803 failed while sending om_authenticate_functionality", "log Request failure",
          "error MNM_STATUS failed while sending om_authenticate_functionality"})
        made.buildFailures.emplace_back(line);
    return made;
}

RequestCase rejectCase(const std::string& code, const SentMessage& entity, const Lines& failure) {
    const std::string general = "error Failed while sending " + kDecision;
    RequestCase made{"reject_" + code,
                     [code](RequestsFixture& f) {
                         return f.requests->sendReject(changeOf(code), "not agreed") == 1;
                     },
                     {{0, kDecision}},
                     "log Request sent to Reject Authentication",
                     {general, general},
                     general};
    made.fields.insert(made.fields.end(), entity.begin(), entity.end());
    made.buildFailures.insert(made.buildFailures.end(), failure.begin(), failure.end());
    for (const auto& field : SentMessage{{54294, "CHECK01"},
                                         {32766, "not agreed"},
                                         {63713, code},
                                         {51803, "1001"},
                                         {10303, "rejected"}})
        made.fields.push_back(field);
    for (const char* line : {"error MNM_USER Failed while sending om_authenticate_functionality",
                             "log Request failure", "log Request failure",
                             "error 51803 Failed while sending om_authenticate_functionality",
                             "error MNM_STATUS Failed while sending om_authenticate_functionality"})
        made.buildFailures.emplace_back(line);
    return made;
}

std::vector<RequestCase> allRequests() {
    std::vector<RequestCase> cases{
        detailCase("om_get_auth_user_details", &Requests::requestUserDetails,
                   "log Request for getting entities details sent "),
        detailCase("om_get_auth_account_details", &Requests::requestAccountDetails,
                   "log Request for getting account details sent "),
        detailCase("om_get_auth_limits_details", &Requests::requestLimitsDetails,
                   "log Request for getting entities details sent "),
    };

    const SentMessage user{{31003, "ENT7"}};
    const Lines userFails{"error MNM_USER failed while sending om_authenticate_functionality"};
    const SentMessage account{{54001, "ENT7"}};
    const Lines accountFails{
        "error MNM_ACCOUNT_ID failed while sending om_authenticate_functionality"};
    for (const auto& make : {acceptCase, rejectCase}) {
        for (const char* code : {"339", "340"}) cases.push_back(make(code, user, userFails));
        for (const char* code : {"353", "354"}) cases.push_back(make(code, account, accountFails));
        for (const char* code : {"360", "365", "366", "777"}) cases.push_back(make(code, {}, {}));
    }

    const std::string source =
        "error MNM_SOURCE_USER_ID failed while sending om_authenticate_functionality";
    const std::string status =
        "error MNM_STATUS failed while sending om_authenticate_functionality";
    cases.push_back(
        {"update",
         [](RequestsFixture& f) {
             f.requests->sendLimitsUpdate();
             return f.details.modifiedValues.empty();
         },
         {{0, kDecision},
          {54294, "CHECK01"},
          {51803, "shown before"},
          {63713, "360"},
          {10303, "accepted"},
          {41236, "7"},
          {64037, "yes"},
          {64210, "12"}},
         "log Request sent to Update RMS Limits Authentication",
         {source, source, source, "error 51803 failed while sending om_authenticate_functionality",
          "log Request failure", status, status, status, status},
         "error Failed while sending om_authenticate_functionality"});

    const std::string recovery =
        "error MNM_SOURCE_USER_ID failed while sending om_get_functionality_details";
    cases.push_back({"recovery",
                     [](RequestsFixture& f) { return f.requests->sendRecovery() == 1; },
                     {{0, "om_get_functionality_details"}, {31003, "CHECK01"}},
                     "log Request sent to Recovery",
                     {recovery, recovery, recovery},
                     "error Failed while sending om_get_functionality_details"});
    return cases;
}

class EachRequest : public testing::TestWithParam<RequestCase> {};
INSTANTIATE_TEST_SUITE_P(Requests, EachRequest, testing::ValuesIn(allRequests()),
                         [](const auto& each) { return each.param.name; });

TEST_P(EachRequest, SendsItsFieldsInOrderAndSaysSo) {
    RequestsFixture f;
    EXPECT_TRUE(GetParam().send(f));
    EXPECT_EQ(f.host.control().sent, std::vector<SentMessage>{GetParam().fields});
    EXPECT_EQ(f.host.said, Lines{GetParam().success});
}

TEST_P(EachRequest, EndsAtTheFirstFailingCallWithItsLine) {
    const Lines& lines = GetParam().buildFailures;
    for (std::size_t call = 1; call <= lines.size() + 1; ++call) {
        SCOPED_TRACE(call);
        RequestsFixture f;
        const ModifiedValues edits = f.details.modifiedValues;
        otp_fail_call(static_cast<int>(call));
        const bool sent = GetParam().send(f);
        otp_fail_call(0);
        ASSERT_EQ(sent, call > lines.size()) << "only a call too many hurts nothing";
        if (sent) break;

        const std::string& line = lines[call - 1];
        EXPECT_EQ(f.host.takeSaid(), line.empty() ? Lines{} : Lines{line});
        EXPECT_TRUE(f.host.control().sent.empty());
        EXPECT_EQ(f.details.key, "shown before");
        EXPECT_EQ(f.details.modifiedValues, edits);
        // What was built so far does not get into the next message.
        EXPECT_TRUE(GetParam().send(f));
        EXPECT_EQ(f.host.control().sent, std::vector<SentMessage>{GetParam().fields});
    }
}

TEST(Requests, UpdateSendsTheYesNoSettingAsAWord) {
    const struct {
        const char *typed, *sent;
    } cases[] = {{"E", "yes"}, {"D", "no"}, {"e", "e"}, {"", ""}, {"1", "1"}, {"EE", "EE"}};
    for (const auto& each : cases) {
        RequestsFixture f;
        // Another limit with the same letter is not a yes/no setting.
        f.details.modifiedValues = {{64038, "E"}, {64037, each.typed}};
        f.requests->sendLimitsUpdate();
        ASSERT_EQ(f.host.control().sent.size(), 1u);
        const SentMessage& sent = f.host.control().sent.front();
        EXPECT_EQ(SentMessage(sent.end() - 2, sent.end()),
                  (SentMessage{{64037, each.sent}, {64038, "E"}}));
    }
}

TEST(Requests, DetailsAreOnShowFromJustBeforeTheyAreAskedFor) {
    RequestsFixture f;
    std::optional<std::string> shownWhileSending;
    f.host.control().sending = [&](const SentMessage&) { shownWhileSending = f.details.key; };
    f.host.control().works = false;
    EXPECT_EQ(f.requests->requestAccountDetails("1002"), 0);
    EXPECT_EQ(shownWhileSending, "1002");
    EXPECT_EQ(f.details.key, "1002");
}

}  // namespace
