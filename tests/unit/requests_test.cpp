#include "link/model/requests.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#include "tests/unit/fake_host.h"
#include "tests/unit/recorders.h"

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
        host.controls.kinds = std::move(controlKinds);
        link.emplace(host, answers);
        requests.emplace(host, *link, details);
    }

    FakeHost host;
    AnswerRecorder answers;
    std::optional<serverLink> link;
    AskedDetails details{"shown before", {{64210, "12"}, {41236, "7"}, {64037, "E"}}};
    std::optional<Requests> requests;
};

// A field of a request, and what is said when it cannot be added; empty: nothing.
struct Piece {
    int field;
    std::string text, failure;
};

// One request, from the start of its message, and whether it says that it was sent.
struct RequestCase {
    std::string name;
    std::function<bool(RequestsFixture&)> send;
    std::string success, startFailure;
    std::vector<Piece> pieces;

    SentMessage fields() const {
        SentMessage all;
        for (const Piece& piece : pieces) all.emplace_back(piece.field, piece.text);
        return all;
    }
    friend void PrintTo(const RequestCase& each, std::ostream* out) { *out << each.name; }
};

const std::string kSending = " while sending om_authenticate_functionality";
const std::string kFailure = "log Request failure";

RequestCase detailCase(const std::string& name, int (Requests::*request)(const std::string&),
                       const std::string& success) {
    return {name,
            [request](RequestsFixture& f) { return ((*f.requests).*request)("1001") == 1; },
            success,
            "log Messaging failure.",
            {{0, name, kFailure}, {54247, "CHECK01", kFailure}, {51803, "1001", kFailure}}};
}

// The entity is named by users' and clients' changes that are no deletions.
void nameEntity(RequestCase& made, const std::string& code) {
    if (code == "339" || code == "340")
        made.pieces.push_back({31003, "ENT7", "error MNM_USER failed" + kSending});
    if (code == "353" || code == "354")
        made.pieces.push_back({54001, "ENT7", "error MNM_ACCOUNT_ID failed" + kSending});
}

// What fails at a piece is named in the words of the button.
RequestCase decisionCase(const std::string& code, bool accepts) {
    const std::string failed = (accepts ? " failed" : " Failed") + kSending;
    const std::string general = accepts ? "" : "error Failed" + kSending;
    RequestCase made{(accepts ? "accept_" : "reject_") + code,
                     [=](RequestsFixture& f) {
                         return (accepts
                                     ? f.requests->sendAccept(changeOf(code))
                                     : f.requests->sendReject(changeOf(code), "not agreed")) == 1;
                     },
                     accepts ? "log Request sent to Accept Authentication"
                             : "log Request sent to Reject Authentication",
                     general,
                     {{0, kDecision, general}}};
    nameEntity(made, code);
    const Piece key{51803, "1001", "error 51803" + failed}, kind{63713, code, kFailure};
    const char* const user = accepts ? "MNM_SOURCE_USER_ID" : "MNM_USER";
    made.pieces.push_back({54294, "CHECK01", std::string("error ") + user + failed});
    if (!accepts) made.pieces.push_back({32766, "not agreed", kFailure});
    made.pieces.push_back(accepts ? key : kind);
    made.pieces.push_back(accepts ? kind : key);
    made.pieces.push_back({10303, accepts ? "accepted" : "rejected", "error MNM_STATUS" + failed});
    return made;
}

std::vector<RequestCase> allRequests() {
    const std::string source = "error MNM_SOURCE_USER_ID failed" + kSending;
    const std::string status = "error MNM_STATUS failed" + kSending;
    const std::string recover = "om_get_functionality_details";
    const std::string recovery = "error MNM_SOURCE_USER_ID failed while sending " + recover;
    std::vector<RequestCase> cases{
        detailCase("om_get_auth_user_details", &Requests::requestUserDetails,
                   "log Request for getting entities details sent "),
        detailCase("om_get_auth_account_details", &Requests::requestAccountDetails,
                   "log Request for getting account details sent "),
        detailCase("om_get_auth_limits_details", &Requests::requestLimitsDetails,
                   "log Request for getting entities details sent "),
        {"update",
         [](RequestsFixture& f) {
             f.requests->sendLimitsUpdate();
             return f.details.modifiedValues.empty();
         },
         "log Request sent to Update RMS Limits Authentication",
         source,
         {{0, kDecision, source},
          {54294, "CHECK01", source},
          {51803, "shown before", "error 51803 failed" + kSending},
          {63713, "360", kFailure},
          {10303, "accepted", status},
          {41236, "7", status},
          {64037, "yes", status},
          {64210, "12", status}}},
        {"recovery",
         [](RequestsFixture& f) { return f.requests->sendRecovery() == 1; },
         "log Request sent to Recovery",
         recovery,
         {{0, recover, recovery}, {31003, "CHECK01", recovery}}}};
    for (const char* code : {"339", "340", "353", "354", "360", "365", "366", "777"}) {
        cases.push_back(decisionCase(code, true));
        cases.push_back(decisionCase(code, false));
    }
    return cases;
}

class EachRequest : public testing::TestWithParam<RequestCase> {};
INSTANTIATE_TEST_SUITE_P(Requests, EachRequest, testing::ValuesIn(allRequests()),
                         [](const auto& each) { return each.param.name; });

TEST_P(EachRequest, SendsItsFieldsInOrderAndSaysSo) {
    RequestsFixture f;
    EXPECT_TRUE(GetParam().send(f));
    EXPECT_EQ(f.host.control().sent, std::vector<SentMessage>{GetParam().fields()});
    EXPECT_EQ(f.host.said, Lines{GetParam().success});
}

TEST_P(EachRequest, EndsAtTheFirstFailingCallWithItsLine) {
    Lines lines{GetParam().startFailure};
    for (const Piece& piece : GetParam().pieces) lines.push_back(piece.failure);
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
        EXPECT_EQ(f.host.control().sent, std::vector<SentMessage>{GetParam().fields()});
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
