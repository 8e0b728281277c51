#include "details/model/intake.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"
#include "tests/unit/view_recorder.h"

using namespace mc;

namespace {

constexpr char kPending[] = "auth pending";
constexpr char kInvestor[] = "INVESTOR_CLIENT";

class IntakeTest : public testing::Test {
protected:
    void take(const zek::OwnedMessage& message) { intake.handle(FieldReader(message.handle())); }

    // Takes in a pending change and forgets what that did to view and host.
    sMakeCheckStruct& listed(const std::string& key, const FieldTexts& fields) {
        take(publication(kPending, key, fields));
        view.events.clear();
        host.beeps = 0;
        host.menuItemsAsked.clear();
        return *changes.findRecord(key);
    }

    void expectNothingHappened() {
        EXPECT_EQ(view.events, Lines{});
        EXPECT_EQ(host.beeps, 0);
        EXPECT_EQ(host.said, Lines{});
    }

    FakeHost host;
    ViewRecorder view;
    PendingChanges changes{view};
    struct : IntakeListener {
        Lines told;
        void publishedAgain(const sMakeCheckStruct& record) override {
            told.push_back("again " + record.key);
        }
        void changeEnded(const std::string& key) override { told.push_back("ended " + key); }
    } listener;
    Intake intake{host, changes, listener};
};

// A publication of every kind, with every field that the intake reads.
FieldTexts allFields(const std::string& code, const std::string& type) {
    return {{MNM_FUNCTIONALITY, code}, {MNM_TYPE, type},       {MNM_REQUESTING_USER, "MAKER01"},
            {MNM_BROKER, "ZEKB"},      {MNM_BRANCH, "MUM01"},  {MNM_ACCOUNT_GROUP, "GRP1"},
            {MNM_USER, "DLR101"},      {MNM_ACCOUNT_ID, "CL5"}};
}

struct KindCase {
    std::string code, type;
    std::string entityName, linkedUser;
    int right;  // 0: none is asked for
};
const KindCase kKinds[] = {
    {"339", "DEALER", "DLR101", "", 60303},
    {"340", "DEALER", "DLR101", "", 60303},
    {"365", "DEALER", "DLR101", "", 60303},
    {"339", kInvestor, "DLR101", "", 60304},
    {"340", kInvestor, "DLR101", "", 60304},
    {"365", kInvestor, "DLR101", "", 60304},
    {"339", "investor_client", "DLR101", "", 60303},
    {"353", "RETAIL", "CL5", "", 60304},
    {"354", "RETAIL", "CL5", "", 60304},
    {"366", "RETAIL", "CL5", "", 60304},
    {"353", kInvestor, "CL5", "DLR101", 60304},
    {"354", kInvestor, "CL5", "DLR101", 60304},
    {"366", kInvestor, "CL5", "DLR101", 60304},
    {"360", "DEALER", "Broker - ZEKB", "", 60302},
    {"360", kInvestor, "Broker - ZEKB", "", 60302},
    {"341", kInvestor, "", "", 0},
    {"339 ", "DEALER", "", "", 0},
    {"", "DEALER", "", "", 0},
};

TEST_F(IntakeTest, ListsEachKindWithItsRecord) {
    for (const KindCase& each : kKinds) {
        SCOPED_TRACE(each.code + " " + each.type);
        changes.clearAllRecords();
        const sMakeCheckStruct& record = listed("1001", allFields(each.code, each.type));
        EXPECT_EQ(record.key, "1001");
        EXPECT_EQ(record.makerId, "MAKER01");
        EXPECT_EQ(record.entityName, each.entityName);
        EXPECT_EQ(record.spare, "");
        EXPECT_EQ(record.functionalityCode, each.code);
        EXPECT_EQ(record.brokerId, "ZEKB");
        EXPECT_EQ(record.branchId, "MUM01");
        EXPECT_EQ(record.linkedUser, each.linkedUser);
        EXPECT_EQ(record.type, each.type);
    }
}

TEST_F(IntakeTest, AsksForTheOneRightOfEachKind) {
    for (const KindCase& each : kKinds) {
        SCOPED_TRACE(each.code + " " + each.type);
        const auto message = publication(kPending, "1001", allFields(each.code, each.type));
        const std::vector<int> asked =
            each.right != 0 ? std::vector<int>{each.right} : std::vector<int>{};

        host.roles = {each.right};
        host.menuItemsAsked.clear();
        take(message);
        EXPECT_EQ(host.menuItemsAsked, asked);
        EXPECT_EQ(changes.size(), 1u) << "the one right is enough";
        changes.clearAllRecords();

        host.roles = {60302, 60303, 60304};
        host.roles.erase(each.right);
        take(message);
        EXPECT_EQ(changes.size(), each.right == 0 ? 1u : 0u) << "no other right will do";
        changes.clearAllRecords();

        host.hasMenuItemService = false;
        take(message);
        EXPECT_EQ(changes.size(), each.right == 0 ? 1u : 0u) << "a right is not held unasked";
        changes.clearAllRecords();
        host.hasMenuItemService = true;
    }
}

TEST_F(IntakeTest, IgnoresMessagesWithoutAKnownStatusAndAKey) {
    const std::optional<std::string> statuses[] = {"Auth Pending",
                                                   "auth pending ",
                                                   " auth pending",
                                                   "auth",
                                                   "Accepted",
                                                   "accepted ",
                                                   "ACCEPTED",
                                                   "Rejected",
                                                   "rejected\t",
                                                   "",
                                                   "pending",
                                                   "1",
                                                   std::string(100000, 'a'),
                                                   kUnreadable};
    listed("1001", allFields("339", "DEALER"));
    for (const auto& status : statuses) {
        SCOPED_TRACE(status.value_or("unreadable").substr(0, 20));
        for (const char* key : {"1001", "1002"}) {
            FieldTexts fields = allFields("354", "RETAIL");
            fields.insert(fields.begin(), {{MNM_PUBLICATION_STATUS, status},
                                           {MNM_PUBLICATION_STATUS, "accepted"},
                                           {MNM_AUTHORIZATION_KEY, key}});
            take(makeMessage(fields));
        }
    }
    take(makeMessage({{MNM_AUTHORIZATION_KEY, "1001"}}));
    for (const char* status : {kPending, "accepted", "rejected"}) {
        take(makeMessage({{MNM_PUBLICATION_STATUS, status}, {MNM_FUNCTIONALITY, "339"}}));
        take(makeMessage({{MNM_PUBLICATION_STATUS, status},
                          {MNM_AUTHORIZATION_KEY, kUnreadable},
                          {MNM_AUTHORIZATION_KEY, "1001"}}));
    }
    intake.handle(FieldReader(nullptr));

    expectNothingHappened();
    EXPECT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes.at(0).functionalityCode, "339");
    EXPECT_EQ(listener.told, Lines{});
}

TEST_F(IntakeTest, RefreshesAKnownChangeInPlace) {
    const sMakeCheckStruct* const record = &listed("1001", allFields("353", kInvestor));
    listed("1002", allFields("339", "DEALER"));
    take(publication(kPending, "1001",
                     {{MNM_FUNCTIONALITY, "354"},
                      {MNM_TYPE, "RETAIL"},
                      {MNM_USER, "DLR202"},
                      {MNM_ACCOUNT_ID, "CL9"},
                      {MNM_REQUESTING_USER, "MAKER02"},
                      {MNM_BROKER, "OTHB"},
                      {MNM_BRANCH, "DEL01"}}));
    EXPECT_EQ(view.events, Lines{"rows"});
    EXPECT_EQ(host.beeps, 1);
    EXPECT_EQ(changes.size(), 2u);
    EXPECT_EQ(&changes.at(0), record);
    EXPECT_EQ(changes.findRecord("1001"), record);

    EXPECT_EQ(record->functionalityCode, "354");
    EXPECT_EQ(record->type, "RETAIL");
    EXPECT_EQ(record->entityName, "CL9");
    EXPECT_EQ(record->linkedUser, "") << "only an investor's client has one";
    EXPECT_EQ(record->makerId, "MAKER02");
    EXPECT_EQ(record->brokerId, "OTHB");
    EXPECT_EQ(record->branchId, "DEL01");
}

TEST_F(IntakeTest, KeepsWhatARefreshDoesNotTell) {
    struct {
        const char* code;
        const char* entityName;
        const char* linkedUser;
    } const cases[] = {
        {"339", "DLR101", ""},
        {"353", "CL5", ""},  // told anew each time
        {"360", "", ""},     // composed anew each time
    };
    for (const auto& each : cases) {
        for (const bool unreadable : {false, true}) {
            SCOPED_TRACE(std::string(each.code) + (unreadable ? " unreadable" : " absent"));
            changes.clearAllRecords();
            const sMakeCheckStruct& record = listed("1001", allFields(each.code, kInvestor));
            FieldTexts fields = allFields(each.code, kInvestor);
            for (auto& field : fields) field.text = kUnreadable;
            take(publication(kPending, "1001", unreadable ? fields : FieldTexts{}));

            EXPECT_EQ(view.events, Lines{"rows"});
            EXPECT_EQ(record.functionalityCode, each.code);
            EXPECT_EQ(record.type, kInvestor);
            EXPECT_EQ(record.entityName, each.entityName);
            EXPECT_EQ(record.linkedUser, each.linkedUser);
            EXPECT_EQ(record.makerId, "MAKER01");
            EXPECT_EQ(record.brokerId, "ZEKB");
            EXPECT_EQ(record.branchId, "MUM01");
        }
    }
}

TEST_F(IntakeTest, NeverListsTheCheckersOwnChange) {
    FieldTexts own = allFields("339", "DEALER");
    for (auto& field : own)
        if (field.mnemonic == MNM_REQUESTING_USER) field.text = host.userId;
    take(publication(kPending, "1001", own));
    EXPECT_EQ(changes.findRecord("1001"), nullptr);
    expectNothingHappened();

    FieldTexts alike = allFields("339", "DEALER");
    alike[2].text = "check01";
    take(publication(kPending, "1001", alike));
    EXPECT_EQ(changes.size(), 1u) << "names differ in case";
}

TEST_F(IntakeTest, KeepsWhatAnOwnRefreshToldWithoutShowingIt) {
    const sMakeCheckStruct& record = listed("1001", allFields("339", "DEALER"));
    take(publication(kPending, "1001",
                     {{MNM_FUNCTIONALITY, "340"},
                      {MNM_USER, "DLR202"},
                      {MNM_REQUESTING_USER, host.userId},
                      {MNM_BRANCH, "DEL01"}}));
    expectNothingHappened();
    EXPECT_EQ(changes.size(), 1u);
    EXPECT_EQ(record.functionalityCode, "340");
    EXPECT_EQ(record.entityName, "DLR202");
    EXPECT_EQ(record.makerId, host.userId);
    EXPECT_EQ(record.branchId, "DEL01");
}

TEST_F(IntakeTest, DropsAListedChangeWhoseRightIsLost) {
    for (const bool own : {true, false}) {
        host.roles = {60302, 60303, 60304};
        changes.clearAllRecords();
        listed("1000", allFields("360", ""));
        listed("1001", allFields("339", "DEALER"));
        host.roles = {60302};
        listener.told.clear();
        // The right is asked for before the maker is read.
        take(publication(kPending, "1001", {{MNM_REQUESTING_USER, own ? host.userId : "MAKER01"}}));
        EXPECT_EQ(view.events, Lines{"rows"});
        EXPECT_EQ(listener.told, Lines{"ended 1001"});
        EXPECT_EQ(changes.size(), 1u);
        EXPECT_EQ(changes.findRecord("1001"), nullptr);
        EXPECT_EQ(host.beeps, 0);
    }
}

TEST_F(IntakeTest, RemovesADecidedChangeAndTellsOfItsEndListedOrNot) {
    for (const char* status : {"accepted", "rejected"}) {
        changes.clearAllRecords();
        for (const char* key : {"1000", "1001", "1002"}) listed(key, allFields("339", "DEALER"));
        listener.told.clear();
        host.roles = {};  // whoever may not see changes still learns that they are gone
        for (const char* key : {"1001", "2002"})
            take(publication(status, key, {{MNM_REQUESTING_USER, host.userId}}));
        host.roles = {60303};
        EXPECT_EQ(view.events, Lines{"rows"});
        EXPECT_EQ(listener.told, (Lines{"ended 1001", "ended 2002"}));
        EXPECT_EQ(changes.size(), 2u);
        EXPECT_EQ(changes.at(1).key, "1002");
        EXPECT_EQ(changes.findRecord("1001"), nullptr);
        EXPECT_EQ(host.beeps, 0);
    }
}

}  // namespace
