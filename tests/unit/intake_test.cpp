#include "details/model/intake.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>

#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"
#include "tests/unit/recorders.h"

using namespace mc;

namespace {

constexpr char kPending[] = "auth pending";
constexpr char kInvestor[] = "INVESTOR_CLIENT";

class IntakeTest : public testing::Test {
protected:
    void take(const zek::OwnedMessage& message) { intake.handle(FieldReader(message.handle())); }

    // Takes in a pending change and forgets what that did to view and host.
    PendingChange listed(const std::string& key, const FieldTexts& fields) {
        take(publication(kPending, key, fields));
        view.events.clear();
        host.beeps = 0;
        host.rights.asked.clear();
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
        void publishedAgain(const std::string& key) override { told.push_back("again " + key); }
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

std::string textOf(const sMakeCheckStruct& record) {
    std::string text;
    for (const auto& part : {record.functionalityCode, record.type, record.entityName,
                             record.linkedUser, record.makerId, record.brokerId, record.branchId})
        text += (text.empty() ? "" : "|") + part;
    return text;
}

// Each kind with its record, and with the one right that is asked for; no other will do.
TEST_F(IntakeTest, ListsEachKindUnderItsRight) {
    const struct {
        std::string code, type, entityName, linkedUser;
        int right;  // 0: none is asked for
    } kinds[] = {
        {"339", "DEALER", "DLR101", "", 60303},
        {"365", "DEALER", "DLR101", "", 60303},
        {"340", kInvestor, "DLR101", "", 60304},
        {"339", "investor_client", "DLR101", "", 60303},
        {"353", "RETAIL", "CL5", "", 60304},
        {"366", kInvestor, "CL5", "DLR101", 60304},
        {"360", kInvestor, "Broker - ZEKB", "", 60302},
        {"341", kInvestor, "", "", 0},
        {"339 ", "DEALER", "", "", 0},
    };
    for (const auto& [code, type, entityName, linkedUser, right] : kinds) {
        SCOPED_TRACE(code + " " + type);
        const auto message = publication(kPending, "1001", allFields(code, type));
        const auto listedWith = [&](std::set<int> roles, bool service) {
            changes.clearAllRecords();
            host.rights.roles = std::move(roles);
            host.rights.hasMenuItemService = service;
            take(message);
            return changes.size() == 1;
        };
        std::set<int> others{60302, 60303, 60304};
        others.erase(right);
        EXPECT_EQ(listedWith(others, true), right == 0);
        EXPECT_EQ(listedWith({60302, 60303, 60304}, false), right == 0);
        host.rights.asked.clear();
        host.beeps = 0;
        ASSERT_TRUE(listedWith({right}, true));
        EXPECT_EQ(host.rights.asked, right != 0 ? std::vector<int>{right} : std::vector<int>{});
        EXPECT_EQ(host.beeps, 1);
        EXPECT_EQ(textOf(changes.at(0)),
                  code + "|" + type + "|" + entityName + "|" + linkedUser + "|MAKER01|ZEKB|MUM01");
    }
}

TEST_F(IntakeTest, IgnoresMessagesWithoutAKnownStatusAndAKey) {
    const std::optional<std::string> statuses[] = {
        "Auth Pending", "auth pending ", "auth", "ACCEPTED", "rejected\t", "", kUnreadable};
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

TEST_F(IntakeTest, ARefreshOverwritesInPlaceWhatItTells) {
    FieldTexts unreadable = allFields("353", kInvestor);
    for (auto& field : unreadable) field.text = kUnreadable;
    const std::string rest = "||MAKER01|ZEKB|MUM01";
    const struct {
        const char* code;
        FieldTexts told;
        std::string now;
        bool shown = true;
    } cases[] = {
        // Only an investor's client has a linked user.
        {"353",
         {{MNM_FUNCTIONALITY, "354"},
          {MNM_TYPE, "RETAIL"},
          {MNM_USER, "DLR202"},
          {MNM_ACCOUNT_ID, "CL9"},
          {MNM_REQUESTING_USER, "MAKER02"},
          {MNM_BROKER, "OTHB"},
          {MNM_BRANCH, "DEL01"}},
         "354|RETAIL|CL9||MAKER02|OTHB|DEL01"},
        // A linked user and the name of limits are told each time.
        {"339", {}, "339|INVESTOR_CLIENT|DLR101" + rest},
        {"353", {}, "353|INVESTOR_CLIENT|CL5" + rest},
        {"353", unreadable, "353|INVESTOR_CLIENT|CL5" + rest},
        {"360", {}, "360|INVESTOR_CLIENT|" + rest},
        {"360", unreadable, "360|INVESTOR_CLIENT|" + rest},
        // The checker's own is kept and not shown.
        {"339",
         {{MNM_FUNCTIONALITY, "340"}, {MNM_USER, "DLR202"}, {MNM_REQUESTING_USER, host.userId}},
         "340|INVESTOR_CLIENT|DLR202||CHECK01|ZEKB|MUM01",
         false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.now);
        changes.clearAllRecords();
        listed("1001", allFields(each.code, kInvestor));
        listed("1002", allFields("339", "DEALER"));
        take(publication(kPending, "1001", each.told));
        EXPECT_EQ(view.events, each.shown ? Lines{"rows"} : Lines{});
        EXPECT_EQ(host.beeps, each.shown ? 1 : 0);
        EXPECT_EQ(changes.size(), 2u);
        EXPECT_EQ(changes.at(0).key, "1001");
        EXPECT_EQ(textOf(changes.at(0)), each.now);
    }
}

TEST_F(IntakeTest, NeverListsTheCheckersOwnChange) {
    FieldTexts own = allFields("339", "DEALER");
    for (auto& field : own)
        if (field.mnemonic == MNM_REQUESTING_USER) field.text = host.userId;
    take(publication(kPending, "1001", own));
    EXPECT_FALSE(changes.findRecord("1001"));
    expectNothingHappened();

    FieldTexts alike = allFields("339", "DEALER");
    alike[2].text = "check01";
    take(publication(kPending, "1001", alike));
    EXPECT_EQ(changes.size(), 1u) << "names differ in case";
}

TEST_F(IntakeTest, DropsAListedChangeWhoseRightIsLost) {
    for (const bool own : {true, false}) {
        host.rights.roles = {60302, 60303, 60304};
        changes.clearAllRecords();
        listed("1000", allFields("360", ""));
        listed("1001", allFields("339", "DEALER"));
        host.rights.roles = {60302};
        listener.told.clear();
        // The right is asked for before the maker is read.
        take(publication(kPending, "1001", {{MNM_REQUESTING_USER, own ? host.userId : "MAKER01"}}));
        EXPECT_EQ(view.events, Lines{"rows"});
        EXPECT_EQ(listener.told, Lines{"ended 1001"});
        EXPECT_EQ(changes.size(), 1u);
        EXPECT_FALSE(changes.findRecord("1001"));
        EXPECT_EQ(host.beeps, 0);
    }
}

TEST_F(IntakeTest, RemovesADecidedChangeAndTellsOfItsEndListedOrNot) {
    for (const char* status : {"accepted", "rejected"}) {
        changes.clearAllRecords();
        for (const char* key : {"1000", "1001", "1002"}) listed(key, allFields("339", "DEALER"));
        listener.told.clear();
        host.rights.roles = {};  // whoever may not see changes still learns that they are gone
        for (const char* key : {"1001", "2002"})
            take(publication(status, key, {{MNM_REQUESTING_USER, host.userId}}));
        host.rights.roles = {60303};
        EXPECT_EQ(view.events, Lines{"rows"});
        EXPECT_EQ(listener.told, (Lines{"ended 1001", "ended 2002"}));
        EXPECT_EQ(changes.size(), 2u);
        EXPECT_EQ(changes.at(1).key, "1002");
        EXPECT_FALSE(changes.findRecord("1001"));
        EXPECT_EQ(host.beeps, 0);
    }
}

}  // namespace
