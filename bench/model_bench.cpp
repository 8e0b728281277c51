// The rules against the plain way of doing the same: each benchmark runs both sides in turn and
// reports nanoseconds per message for both and their ratio (ours / peer).
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <new>
#include <numeric>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench/sides.h"
#include "details/model/intake.h"
#include "sdk/connectvosk.h"
#include "workbench/model/press_line.h"
#include "workbench/model/records/pending_changes.h"

using namespace mc;

// Counts what is allocated and not freed while a benchmark measures memory, with the allocator's
// own eight bytes a block.
static bool g_counting = false;
static std::ptrdiff_t g_bytes = 0;

// Not inline: a compiler that sees them takes them for a pair that does not match.
[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr) throw std::bad_alloc();
    if (g_counting) g_bytes += static_cast<std::ptrdiff_t>(malloc_usable_size(block)) + 8;
    return block;
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
    if (g_counting && block != nullptr)
        g_bytes -= static_cast<std::ptrdiff_t>(malloc_usable_size(block)) + 8;
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}

namespace {

class QuietHost final : public Host {
public:
    const std::string& peerBrokerId() const override { return m_id; }
    const std::string& peerUserId() const override { return m_id; }
    int privilegeLevel() const override { return 0; }
    PuGetFindMenuItemInRoles* menuItemService() override {
        return [](int) { return 1; };
    }
    PuGetMakerCheckerModifyRight* modifyRightService() override { return nullptr; }
    GetQuonRxControlService* receiveControlService() override { return nullptr; }
    void reportToUser(std::string_view, int) override {}
    void showMessage(const std::string&) override {}
    bool confirm(const std::string&) override { return false; }
    void beep() override {}

private:
    std::string m_id = "CHECKER";
};

class QuietView final : public RecordsView {
    void rowsChanged() override {}
    void statesChanged() override {}
};

// One message, its fields read by both sides.
class Publication {
public:
    Publication() {
        otp_ctor_primecb(&m_message, nullptr);
        otp_open_scratch(&m_scratch, 4096, nullptr);
    }
    ~Publication() {
        otp_dtor_primecb(m_message, nullptr);
        otp_close_scratch(m_scratch, nullptr);
    }
    Publication(const Publication&) = delete;
    Publication& operator=(const Publication&) = delete;

    // A change of one of 200 makers, 500 branches and 50 brokers: of users, dealers mostly, and
    // every fourth an investor's client.
    void* fill(std::size_t key) {
        const std::string text = std::to_string(1000000 + key);
        const std::size_t any = key * 2654435761U >> 7;
        const auto numbered = [&](const char* front, std::size_t first, std::size_t end) {
            return front + std::to_string(first + any % end);
        };
        const bool client = key % 4 == 0;
        otp_start_msg(m_message, m_scratch, nullptr);
        add(54211, "auth pending");
        add(51803, text);
        add(63713, client ? "353" : key % 4 == 1 ? "339" : "340");
        add(54036, client ? "INVESTOR_CLIENT" : "DEALER");
        add(54247, numbered("MAKER", 100, 200));
        add(64056, numbered("ZEK", 10, 50));
        add(64053, numbered("BR", 1000, 500));
        add(31003, "DEALER" + text);
        if (client) add(54001, "CL" + text);
        return m_message;
    }

private:
    void add(int id, const std::string& text) {
        otp_add_data_as_cstring(m_message, id, 1, text.c_str(), nullptr);
    }
    void* m_message = nullptr;
    void* m_scratch = nullptr;
};

// The plain way: a structure of strings in a map of strings, a vector of pointers for the rows.
struct PlainRecord {
    std::string key, maker, entity, spare, code, broker, branch, linked, type;
};
class PlainList {
public:
    void take(const FieldReader& message) {
        std::string status, key;
        if (!message.read(54211, status) || status != "auth pending" || !message.read(51803, key))
            return;
        auto [at, fresh] = m_index.try_emplace(key, nullptr);
        if (fresh) at->second = std::make_unique<PlainRecord>();
        PlainRecord& record = *at->second;
        record.key = key;
        message.read(63713, record.code);
        message.read(54036, record.type);
        if (record.code == "353") {
            message.read(54001, record.entity);
            message.read(31003, record.linked);
        } else {
            message.read(31003, record.entity);
        }
        message.read(54247, record.maker);
        message.read(64056, record.broker);
        message.read(64053, record.branch);
        if (fresh) m_rows.push_back(&record);
    }
    void remove(const std::string& key) {
        const auto found = m_index.find(key);
        m_rows.erase(std::find(m_rows.begin(), m_rows.end(), found->second.get()));
        m_index.erase(found);
    }

private:
    std::unordered_map<std::string, std::unique_ptr<PlainRecord>> m_index;
    std::vector<PlainRecord*> m_rows;
};

struct NoListener final : IntakeListener {
    void publishedAgain(const std::string&) override {}
    void changeEnded(const std::string&) override {}
};

// Both sides hold the same records. They take the messages in batches, in turn first and second;
// the time to fill a batch counts on neither side.
struct Bed {
    QuietHost host;
    QuietView view;
    PendingChanges changes{view};
    NoListener listener;
    Intake intake{host, changes, listener};
    PlainList plain;
    std::array<Publication, 200> batch;
    bool oursFirst = false;

    // Takes in `count` messages; `key` tells the key of each.
    template <class Key>
    void take(std::size_t count, Key key, Sides& sides) {
        for (std::size_t done = 0; done < count; done += batch.size()) {
            std::vector<FieldReader> messages;
            for (std::size_t i = 0; i < std::min(batch.size(), count - done); ++i)
                messages.emplace_back(batch[i].fill(key(done + i)));
            const auto ours = [&] {
                sides.ours += timed([&] {
                    for (const FieldReader& message : messages) intake.handle(message);
                });
            };
            oursFirst = !oursFirst;
            if (oursFirst) ours();
            sides.peer += timed([&] {
                for (const FieldReader& message : messages) plain.take(message);
            });
            if (!oursFirst) ours();
            sides.messages += messages.size();
        }
    }
};

constexpr auto kInOrder = [](std::size_t i) { return i; };

void intakeOfNewChanges(benchmark::State& state) {
    Sides sides;
    for (auto _ : state) {
        Bed bed;
        bed.take(static_cast<std::size_t>(state.range(0)), kInOrder, sides);
    }
    sides.report(state);
}
BENCHMARK(intakeOfNewChanges)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000);

void refreshOfKnownChanges(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    Bed bed;
    Sides filling, sides;
    bed.take(count, kInOrder, filling);
    std::size_t key = 0;
    for (auto _ : state)
        bed.take(
            1000, [&](std::size_t) { return key = (key + 7919) % count; }, sides);
    sides.report(state);
}
BENCHMARK(refreshOfKnownChanges)->Arg(1000)->Arg(10000)->Arg(100000);

// Bytes that a pending change takes, its row, its place in the index and its texts included.
void memoryOfAChange(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        QuietHost host;
        QuietView view;
        PendingChanges changes(view);
        NoListener listener;
        Intake intake(host, changes, listener);
        Publication message;
        g_bytes = 0;
        g_counting = true;
        for (std::size_t key = 0; key < count; ++key) intake.handle(FieldReader(message.fill(key)));
        const auto each = [count] {
            return static_cast<double>(g_bytes) / static_cast<double>(count);
        };
        state.counters["bytes"] = each();
        // A question about neighbours completes their index.
        const Clock::duration asking =
            timed([&] { changes.related().aboutTheSame(changes.at(0)); });
        state.counters["bytes_indexed"] = each();
        state.counters["first_question_ms"] =
            std::chrono::duration<double, std::milli>(asking).count();
        g_counting = false;
    }
}
BENCHMARK(memoryOfAChange)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000)->Iterations(1);

enum Order { arrival, reverse, shuffled };

// Removes 1,000 of the records, in an order; the peer finds each row by walking.
void removal(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    std::vector<std::size_t> keys(count);
    std::iota(keys.begin(), keys.end(), std::size_t{0});
    if (state.range(1) == reverse) std::reverse(keys.begin(), keys.end());
    if (state.range(1) == shuffled) std::shuffle(keys.begin(), keys.end(), std::mt19937(7));
    Sides sides;
    for (auto _ : state) {
        Bed bed;
        Sides filling;
        bed.take(count, kInOrder, filling);
        std::vector<std::string> going;
        for (std::size_t i = 0; i < std::min<std::size_t>(count, 1000); ++i)
            going.push_back(std::to_string(1000000 + keys[i]));
        sides.ours += timed([&] {
            for (const std::string& key : going) bed.changes.removeRecord(key);
        });
        sides.peer += timed([&] {
            for (const std::string& key : going) bed.plain.remove(key);
        });
        sides.messages += going.size();
    }
    sides.report(state);
}
BENCHMARK(removal)
    ->ArgsProduct({{1000, 10000, 100000}, {arrival, reverse, shuffled}})
    ->ArgNames({"rows", "order"});

// The plan and the line of a press with every row selected; of the changes, a half are those of
// pairs, or halves whose other half is not selected. Its goal is 5 ms.
enum Halves { noHalves, wholePairs, lonelyHalves };
void planOfAPress(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    QuietView view;
    PendingChanges changes(view);
    for (std::size_t key = 0; key < count; ++key) {
        const bool half = state.range(1) != noHalves && key % 2 == 0, client = key % 4 == 0;
        const std::string user = "INV" + std::to_string(key / 4);
        changes.addRecord(std::to_string(1000000 + key),
                          {.entityName = client ? "C" + user : user,
                           .functionalityCode = client ? "353" : "339",
                           .linkedUser = user,
                           .type = half ? "INVESTOR_CLIENT" : "DEALER"});
    }
    RecordStore& rows = changes.rows();
    for (std::size_t row = 0; row < count; ++row)
        if (state.range(1) != lonelyHalves || row % 4 != 0) rows.selection().select(row, true);
    for (auto _ : state) {
        const auto selected = changes.selectedRecords();
        const PressPlan plan = planPress(PressButton::accept, selected, changes, {});
        benchmark::DoNotOptimize(describePress(plan, changes));
    }
}
BENCHMARK(planOfAPress)
    ->ArgsProduct({{1, 100000}, {noHalves, wholePairs, lonelyHalves}})
    ->ArgNames({"rows", "halves"})
    ->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
