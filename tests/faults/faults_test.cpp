// Whatever the workbench does, each of its allocations fails (alone, or with all that follow), and
// each of its calls of the messaging library: no change is lost or known by half, what has left is
// noted, nothing is kept that should go, and the same again works.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>

#include "details/model/line_groups.h"
#include "sdk/connectvosk.h"
#include "tests/faults/failing_new.h"
#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"
#include "workbench/model/records/main_list.h"
#include "workbench/model/workbench.h"

using namespace mc;

namespace {

// ---- What fails ----

std::size_t s_callsLeft = 0;  // until the messaging library fails; 0: it does not
bool s_callFailed = false;

void endCallFault() {
    const auto made = static_cast<std::size_t>(otp_fail_call(0));
    if (s_callsLeft == 0) return;
    s_callFailed = made >= s_callsLeft;
    s_callsLeft -= std::min(made, s_callsLeft);
}

const struct Fault {
    const char* name;
    void (*arm)(std::size_t first);
    bool (*end)();  // whether there was one
    bool throws;
} kFaults[] = {
    {"allocation", [](std::size_t first) { faults::allocations.fail(first, false); },
     [] { return faults::allocations.end(); }, true},
    {"all allocations from", [](std::size_t first) { faults::allocations.fail(first, true); },
     [] { return faults::allocations.end(); }, true},
    {"messaging call",
     [](std::size_t first) {
         s_callsLeft = first;
         s_callFailed = false;
         otp_fail_call(static_cast<int>(first));
     },
     [] {
         endCallFault();
         s_callsLeft = 0;
         return s_callFailed;
     },
     false},
};

void hostsOwn(bool begins) {
    static int depth = 0;
    if (begins && ++depth == 1) {
        endCallFault();
        faults::allocations.hosts = true;
    } else if (!begins && --depth == 0) {
        faults::allocations.hosts = false;
        otp_fail_call(static_cast<int>(s_callsLeft));
    }
}

// Keeps the details in lines, as the pane's list does.
struct LinesView final : RecordsView, DetailsView {
    LineGroups lines;
    void rowsChanged() override {}
    void statesChanged() override {}
    void emptyDetails() override { lines.clear(); }
    void showDetails(std::vector<DetailGroup> groups, bool) override {
        shown = true;
        lines.replace(std::move(groups));
    }
    bool shown = false;  // since the last answer
    void editsSent() override { lines.editsSent(); }
    void editsDropped() override { lines.editsDropped(); }
    void captionDetails(const DetailsCaption& now) override { caption = now; }
    DetailsCaption caption;
};

// ---- A workbench in use ----

const std::string kLong(40, 'x');  // longer than what a record keeps in itself

class World {
public:
    World() {
        HostsOwn::change = hostsOwn;
        host.rights.modify = 1;
        host.answersYes = true;
        for (int key = 1; key <= 6; ++key)
            publish(std::to_string(key), key % 2 == 0 ? "360" : "340", "ENT" + kLong);
        publish("7", "339", "INV1", "INVESTOR_CLIENT");
        publish("8", "353", "C1", "INVESTOR_CLIENT");
        rows().texts().column(kEntityColumn, rows().stored());  // is kept from now on
        rows().sort({kKeyColumn, Comparison::longInteger, -1});
        select({0, 1});
    }

    void publish(const std::string& key, const std::string& code, const std::string& entity,
                 const std::string& type = "RETAIL", const char* status = "auth pending") {
        std::optional<zek::OwnedMessage> message;
        {
            const HostsOwn hosts;
            message = publication(status, key,
                                  {{MNM_FUNCTIONALITY, code},
                                   {MNM_REQUESTING_USER, "MAKER" + entity},
                                   {MNM_TYPE, type},
                                   {MNM_USER, code == "353" ? "INV1" : entity},
                                   {MNM_ACCOUNT_ID, entity}});
        }
        workbench.handlePublished(message->handle());
        const HostsOwn hosts;
        message.reset();
    }

    void answer(const char* request, const FieldTexts& fields) {
        std::optional<zek::OwnedMessage> message;
        {
            const HostsOwn hosts;
            message = makeMessage(fields);
            message->add(MNM_ANSWERED_REQUEST, request);
        }
        host.control().receiver->onMessage(0, 0, message->handle(), nullptr);
        const HostsOwn hosts;
        if (std::exchange(view.shown, false)) m_linesAbout = workbench.details().key();
        message.reset();
    }

    void open(const char* key) { workbench.details().open(*workbench.changes().findRecord(key)); }
    void sort(ColumnId column, Comparison comparison) { rows().sort({column, comparison, 1}); }
    std::vector<Slot> selected() { return workbench.changes().selectedRecords(); }
    RecordStore& rows() { return workbench.changes().rows(); }
    void select(std::initializer_list<std::size_t> which) {
        rows().selection().clear();
        for (const std::size_t row : which) rows().selection().select(row, true);
    }

    // What the checker can see and the server knows.
    struct Sight {
        std::map<std::string, std::string> changes;  // by key: texts and states
        std::vector<std::string> rows, selected;
        DetailsCaption caption;
        std::vector<std::string> lines;
        std::string decisions;
        bool operator==(const Sight&) const = default;
    };
    Sight sight();
    // What must hold at any time.
    void check();

    FakeHost host;
    LinesView view;
    Workbench workbench{host, view, view};
    Presses& presses = workbench.presses();

private:
    std::optional<std::string> m_linesAbout;
};

World::Sight World::sight() {
    Sight seen;
    PendingChanges& changes = workbench.changes();
    for (std::size_t at = 0; at < changes.size(); ++at) {
        const PendingChange change = changes.at(at);
        ChangeState state = changes.states().of(change.slot);
        seen.changes[change.key] = change.entityName + "|" + change.functionalityCode + "|" +
                                   change.makerId + "|" + change.linkedUser + "|" +
                                   std::string(wordsOf(state.reading)) +
                                   std::string(wordsOf(state.sent));
    }
    for (std::size_t row = 0; row < rows().rowCount(); ++row)
        seen.rows.push_back(changes.recordIn(changes.rows().slotAt(row))->key);
    for (const Slot slot : changes.selectedRecords())
        seen.selected.push_back(changes.recordIn(slot)->key);
    seen.caption = view.caption;
    LineGroups& lines = view.lines;
    for (std::size_t row = 0; row < lines.rows().rowCount(); ++row)
        seen.lines.push_back(lines.lineAt(row)->row->caption + "=" + lines.lineAt(row)->row->value);
    seen.decisions = workbench.decisionLog().summary();
    return seen;
}

void World::check() {
    PendingChanges& changes = workbench.changes();
    std::size_t visible = 0;
    for (std::size_t at = 0; at < changes.size(); ++at) {
        const PendingChange change = changes.at(at);
        ASSERT_EQ(changes.find(change.key), change.slot) << "every change is indexed";
        for (const ColumnId column : {kEntityColumn, kKeyColumn, kMakerColumn})
            ASSERT_EQ(rows().texts().text(change.slot, column),
                      changes.table().cellText(change.slot, column))
                << "kept texts are those of the change";
        ASSERT_EQ(rows().stored().rowOf(change.slot), at);
        if (const auto row = rows().rowOf(change.slot)) {
            ASSERT_EQ(rows().slotAt(*row), change.slot);
            ++visible;
        }
    }
    ASSERT_EQ(rows().rowCount(), visible);
    const bool lines = view.lines.rows().stored().size() != 0;
    ASSERT_TRUE(!lines || workbench.details().key() == m_linesAbout) << "whose details these are";
    ASSERT_TRUE(lines || presses.plan(PressButton::update).edits == 0) << "an edit out of sight";
    const auto& selected = rows().selection().rows();
    for (const std::size_t row : selected) ASSERT_LT(row, visible);
    ASSERT_EQ(rows().selection().count(), selected.size());
    for (const SentMessage& sent : host.control().sent)  // what left is noted with its change
        if (const Slot slot = changes.find(valueOf(sent, MNM_AUTHORIZATION_KEY));
            slot != kNoSlot && !valueOf(sent, MNM_STATUS).empty()) {
            ASSERT_NE(changes.states().of(slot).sent, SentDecision::none);
        }
}

// ---- What is done ----

const FieldTexts kUserAnswer{{MNM_USER, "ENT"},
                             {30001, "Asha " + kLong},
                             {30001, "A" + kLong},
                             {MNM_EXCHANGE, "nse_cm"},
                             {MNM_PRODUCTS, "|ML|" + kLong}};
const FieldTexts kClientAnswer{
    {MNM_ACCOUNT_ID, "C1"}, {30001, kLong}, {MNM_SEGMENTS, "nse_cm|mcx"}, {MNM_CLIENT_STATUS, "Y"}};
const FieldTexts kLimitsAnswer{{MNM_ACCOUNT_ID, "C1"}, {64031, "1500"}, {64031, "1200"},
                               {64210, "10"},          {64037, "yes"},  {MNM_LIMIT_REMARKS, kLong}};
const FieldTexts kRefused{{MNM_ERROR, kLong}};
const FieldTexts kRecovered{{MNM_PUBLICATION_STATUS, "auth pending"},
                            {MNM_AUTHORIZATION_KEY, "9"},
                            {MNM_FUNCTIONALITY, "340"},
                            {MNM_USER, kLong}};

struct Operation {
    const char* name;
    std::function<void(World&)> before;  // without faults
    std::function<void(World&)> run;
    bool whole = true;     // it happens, or nothing of it does
    bool again = true;     // once more afterwards gives the same as once,
    bool reopens = false;  // with what comes before it: details that could not be shown are closed
};
void nothing(World&) {}

void openThird(World& world) {
    world.open("3");
}
void limitsCome(World& world) {
    world.answer(kGetLimitsDetails, kLimitsAnswer);
}
void accept(World& world) {
    world.presses.accept(world.selected());
}
void openLimits(World& world) {
    world.open("2");
    limitsCome(world);
}
// As many as a block of rows holds.
void fillBlock(World& world) {
    for (std::size_t key = 100; key < 100 + SlotSequence::kBlockItems - 8; ++key)
        world.publish(std::to_string(key), "353", "C" + std::to_string(key % 7));
}
void openEdited(World& world) {
    openLimits(world);
    world.workbench.details().valueEdited(64031, "1600");
}

const Operation kOperations[] = {
    {"a change comes", nothing, [](World& w) { w.publish("9", "340", "NEW" + kLong); }},
    {"one comes to many", fillBlock, [](World& w) { w.publish("1000", "353", kLong); }},
    {"one comes sorted to many", [](World& w) { fillBlock(w), w.rows().unsort(); },
     [](World& w) { w.publish("1000", "353", kLong); }},
    {"an investor comes", nothing,
     [](World& w) { w.publish("9", "339", "INV" + kLong, "INVESTOR_CLIENT"); }},
    {"a change comes again", nothing,
     [](World& w) { w.publish("3", "353", "OTHER" + kLong, "RETAIL2"); }},
    {"the open change comes again", openThird,
     [](World& w) { w.publish("3", "340", "OTHER" + kLong); }, false},
    {"a change goes", nothing, [](World& w) { w.publish("8", "", "", "", "accepted"); }},
    {"the open change goes", openLimits, [](World& w) { w.publish("2", "", "", "", "rejected"); },
     false},
    {"opening", nothing, openThird, false},
    {"opening another", openEdited, openThird, false},
    {"opening the next", nothing, [](World& w) { w.workbench.openNext(); }, false, false},
    {"opening a neighbour", [](World& w) { w.open("1"); },
     [](World& w) { w.workbench.details().openNeighbour(); }, false, false},
    {"details of a user", openThird, [](World& w) { w.answer(kGetUserDetails, kUserAnswer); },
     false, true, true},
    {"details of a client", [](World& w) { w.open("8"); },
     [](World& w) { w.answer(kGetAccountDetails, kClientAnswer); }, false, true, true},
    {"limits", [](World& w) { w.open("2"); }, limitsCome, false, true, true},
    {"limits again, over an edit", openEdited, limitsCome, false, false},
    {"a filter", nothing,
     [](World& w) {
         w.rows().filters().set(kEntityColumn, "*" + kLong.substr(1));
         w.rows().filters().set(kKindColumn, "MODIFY~LIM");
         w.rows().filter();
     }},
    {"a quick filter", nothing,
     [](World& w) {
         w.workbench.changes().quickFilter().choose(QuickFilter::Kind::toPair);
         w.rows().filter();
     }},
    {"a drop-down", nothing, [](World& w) { w.rows().distinctValues(kBranchColumn); }},
    {"a sort by text", nothing, [](World& w) { w.sort(kMakerColumn, Comparison::text); }},
    {"a sort by number", nothing, [](World& w) { w.sort(kKeyColumn, Comparison::longInteger); }},
    {"a value is typed", openLimits,
     [](World& w) { w.workbench.details().valueEdited(64210, "12345678.9"); }},
    {"a reject", nothing, [](World& w) { w.presses.reject(w.selected(), [] { return kLong; }); },
     false},
    {"an accept of singles",
     [](World& w) {
         w.select({2, 3, 4});
     },
     accept, false},
    {"an accept of a pair", nothing, accept, false},
    {"an update", openEdited, [](World& w) { w.presses.update(); }, false},
    {"edits are dropped", openEdited, [](World& w) { w.workbench.details().dropEdits(); }, false},
    {"a recovery", openEdited, [](World& w) { w.presses.recover(); }, false},
    {"a recovery is answered", nothing,
     [](World& w) { w.answer(kGetFunctionalityDetails, kRecovered); }},
    {"details are refused", openThird, [](World& w) { w.answer(kGetUserDetails, kRefused); }, false,
     false},
    {"the end", openEdited, [](World& w) { w.workbench.close(); }, false, false},
};

bool runFailing(World& world, const Operation& operation, const Fault& fault, std::size_t first) {
    fault.arm(first);
    try {
        operation.run(world);
    } catch (const std::bad_alloc&) {  // as every way into the module does
    }
    return fault.end();
}

void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

class EachFault : public testing::TestWithParam<Operation> {
protected:
    void SetUp() override {
        World world;
        GetParam().before(world);
        m_before = world.sight();
        GetParam().run(world);
        m_after = world.sight();
    }

    // Returns whether there was a fault.
    bool tryOne(const Fault& fault, std::size_t first) {
        const int handles = otp_open_handles();
        World world;
        GetParam().before(world);
        const bool failed = runFailing(world, GetParam(), fault, first);
        world.check();
        const World::Sight now = world.sight();
        EXPECT_TRUE(!GetParam().whole || !fault.throws || now == m_before || now == m_after)
            << "done by half";
        if (GetParam().again) {
            if (GetParam().reopens) GetParam().before(world);
            GetParam().run(world);
            world.check();
            const World::Sight again = world.sight();
            EXPECT_TRUE(again.changes == m_after.changes) << "the same again gives the same";
            EXPECT_EQ(again.rows, m_after.rows);
            EXPECT_EQ(again.lines, m_after.lines);
        }
        world.workbench.close();
        EXPECT_EQ(world.host.controls.released, (std::vector<int>{3, 0}))
            << "the receive controls are released";
        EXPECT_EQ(otp_open_handles(), handles) << "the handles are closed";
        return failed;
    }

private:
    World::Sight m_before, m_after;
};
INSTANTIATE_TEST_SUITE_P(Faults, EachFault, testing::ValuesIn(kOperations), [](const auto& each) {
    std::string name = each.param.name;
    std::erase_if(name, [](char c) { return std::isalnum(c) == 0; });
    return name;
});

TEST_P(EachFault, LosesNothing) {
    std::size_t tried = 0;
    for (const Fault& fault : kFaults)
        for (std::size_t first = 1;; ++first, ++tried) {
            SCOPED_TRACE(testing::Message() << fault.name << ' ' << first);
            if (!tryOne(fault, first) || HasFailure()) break;
        }
    EXPECT_GT(tried, 0u) << "nothing could fail";
    RecordProperty("faults", static_cast<int>(tried));
}

}  // namespace
