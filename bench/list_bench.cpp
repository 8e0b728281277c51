// The list's rules against their peers: each benchmark runs all sides in turn over the same rows
// and reports nanoseconds per row of each and how many times faster than them the list is
// ("x_qt" = 20: twenty times). "cold" includes reading all texts of the columns for the first time;
// "kept" is without it, where "ours" has it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <numeric>
#include <random>
#include <unordered_map>

#include "bench/list_peers.h"
#include "bench/sides.h"
#include "listctrl/model/table/record_store.h"

using namespace mc;

#ifndef MC_WITH_QT
std::unique_ptr<ListPeer> makeQtPeer(const Rows&) {
    return nullptr;
}
#endif
#ifndef MC_WITH_SQLITE
std::unique_ptr<ListPeer> makeSqlitePeer(const Rows&) {
    return nullptr;
}
#endif

namespace {

enum Column { entityName, authType, key, maker, branch, broker, amount = kAmount };

Rows makeRows(std::size_t count) {
    static constexpr const char* kTypes[] = {"Add User",      "Modify User", "Add Client",
                                             "Modify Client", "RMS Limits",  "Reset Password",
                                             "Unlock User"};
    std::mt19937 random(1);
    const auto numbered = [&](const char* front, unsigned first, unsigned end) {
        return front + std::to_string(first + random() % end);
    };
    std::vector<std::size_t> keys(count);
    std::iota(keys.begin(), keys.end(), 1'000'000);
    std::shuffle(keys.begin(), keys.end(), random);
    Rows rows(count);
    for (std::size_t i = 0; i < count; ++i)
        rows[i] = {numbered(i % 3 == 0   ? "DEALER"
                            : i % 3 == 1 ? "client"
                                         : "Broker - ",
                            0, 9999999),
                   kTypes[random() % std::size(kTypes)],
                   std::to_string(keys[i]),
                   numbered("MAKER", 100, 200),
                   numbered("BR", 1000, 500),
                   numbered("ZEK", 10, 50),
                   numbered("", 0, 1000000) + "." + numbered("", 10, 90)};
    return rows;
}

CellReader readerOf(const Rows& rows) {
    return [&rows](Slot row, ColumnId column) -> std::string_view {
        return rows[row][toIndex(column)];
    };
}

// A row is known to the store by its number.
void insertRows(RecordStore& store, std::size_t first, std::size_t end) {
    for (std::size_t row = first; row < end; ++row) store.insertItem(0, static_cast<Slot>(row));
}

// The same rows on every side; made once per size. As the owner of the main list does, the store's
// codes the columns with few different values as rows come.
struct ListSides {
    explicit ListSides(std::size_t count) : rows(makeRows(count)) {
        store.texts().setReader(readerOf(rows));
        for (const int column : {authType, maker, branch, broker})
            store.texts().share(ColumnId{column}, coded[column]);
        for (auto make : {makeQtPeer, makeSqlitePeer})
            if (auto peer = make(rows)) peers.push_back(std::move(peer));
    }

    void insertFrom(std::size_t first) {
        for (std::size_t i = first; i < rows.size(); ++i) {
            const auto row = static_cast<Slot>(i);
            for (auto& [column, texts] : coded)
                texts.set(row, rows[i][static_cast<std::size_t>(column)]);
            store.insertItem(0, row);
        }
    }

    Rows rows;
    std::map<int, ColumnTexts> coded;
    RecordStore store;
    std::vector<std::unique_ptr<ListPeer>> peers;

    // Of the size asked for last: a million rows on every side take a gigabyte.
    static ListSides& of(const benchmark::State& state) {
        static std::unique_ptr<ListSides> sides;
        const auto count = static_cast<std::size_t>(state.range(0));
        if (sides == nullptr || sides->rows.size() != count) {
            sides.reset();
            sides = std::make_unique<ListSides>(count);
        }
        sides->store.reset();
        sides->store.filters().clear();  // the benchmark's before
        sides->store.filter();
        sides->insertFrom(0);
        return *sides;
    }
};

// Each side's shortest time. A machine shared with others only ever adds to it.
class Times {
public:
    template <class Work>
    void measure(const std::string& side, Work work) {
        const auto start = Clock::now();
        work();
        const std::chrono::duration<double, std::nano> took = Clock::now() - start;
        const auto [at, fresh] = m_best.try_emplace(side, took.count());
        if (!fresh) at->second = std::min(at->second, took.count());
    }

    void report(benchmark::State& state, double units) const {
        const double ours = m_best.at("ours");
        for (const auto& [side, best] : m_best) {
            state.counters["ns_" + side] = best / units;
            if (side != "ours" && side != "cold" && side != "kept")
                state.counters["x_" + side] = best / ours;
        }
    }

private:
    std::map<std::string, double> m_best;
};

// ---- Filter ----

std::string filterText(const Question& question) {
    switch (question.asked) {
        case Asked::suffix:
            return "*" + question.text;
        case Asked::contains:
            return "*" + question.text + "*";
        case Asked::greater:
            return ">" + question.text;
        default:
            return question.text;
    }
}

void filter(benchmark::State& state, const std::vector<Question>& questions) {
    ListSides& sides = ListSides::of(state);
    RecordStore& store = sides.store;
    store.filters().clear();
    for (const Question& question : questions)
        store.filters().set(ColumnId{question.column}, filterText(question));
    Times times;
    for (auto _ : state) {
        store.texts().drop();
        times.measure("cold", [&] { store.filter(); });
        for (int i = 0; i < 5; ++i) times.measure("ours", [&] { store.filter(); });
        for (const auto& peer : sides.peers) {
            std::size_t passing = 0;
            times.measure(peer->name(), [&] { passing = peer->filter(questions); });
            if (passing != store.rowCount()) state.SkipWithError("the sides differ");
        }
    }
    times.report(state, static_cast<double>(state.range(0)));
    state.counters["passing"] = static_cast<double>(store.rowCount());
}

const Question kPrefix{entityName, Asked::prefix, "dealer12"};
const Question kSuffix{key, Asked::suffix, "77"};
const Question kContains{entityName, Asked::contains, "er - 12"};
const Question kAlternatives{entityName, Asked::alternatives, "dealer1~client2~broker - 3"};
const Question kGreater{amount, Asked::greater, "500000"};
const Question kMaker{maker, Asked::contains, "er1"};
const Question kMany{key, Asked::prefix, "1"};

#define SIZES \
    ->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(3)
BENCHMARK_CAPTURE(filter, prefix, {kPrefix}) SIZES;
BENCHMARK_CAPTURE(filter, suffix, {kSuffix}) SIZES;
BENCHMARK_CAPTURE(filter, contains, {kContains}) SIZES;
BENCHMARK_CAPTURE(filter, alternatives, {kAlternatives}) SIZES;
BENCHMARK_CAPTURE(filter, greater, {kGreater}) SIZES;
BENCHMARK_CAPTURE(filter, few_values, {kMaker}) SIZES;
BENCHMARK_CAPTURE(filter, most_pass, {kMany}) SIZES;
BENCHMARK_CAPTURE(filter, three_columns, {kContains, kMaker, kGreater}) SIZES;

// ---- Sort ----

template <class Key, class KeyOf>
void stableSort(Times& times, const Rows& rows, KeyOf keyOf) {
    std::vector<std::pair<Key, std::uint32_t>> keys;
    for (const Row& row : rows) keys.emplace_back(keyOf(row), keys.size());
    times.measure("stable_sort", [&] {
        std::stable_sort(keys.begin(), keys.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
    });
}

void sort(benchmark::State& state, int column, Comparison comparison) {
    ListSides& sides = ListSides::of(state);
    RecordStore& store = sides.store;
    Times times;
    for (auto _ : state) {
        store.unsort();
        store.texts().drop();
        times.measure("cold", [&] { store.sort({ColumnId{column}, comparison, -1}); });
        for (int i = 0; i < 3; ++i) {
            store.unsort();
            times.measure("ours", [&] { store.sort({ColumnId{column}, comparison, -1}); });
        }
        for (const auto& peer : sides.peers)
            if (peer->sort(column)) times.measure(peer->name(), [&] { peer->sort(column); });
        const auto cell = [&](const Row& row) { return row[static_cast<std::size_t>(column)]; };
        if (comparison == Comparison::text)
            stableSort<std::string>(times, sides.rows, cell);
        else if (comparison == Comparison::longInteger)
            stableSort<long long>(times, sides.rows,
                                  [&](const Row& row) { return std::atoll(cell(row).c_str()); });
        else
            stableSort<double>(times, sides.rows,
                               [&](const Row& row) { return std::atof(cell(row).c_str()); });
    }
    times.report(state, static_cast<double>(state.range(0)));
}
BENCHMARK_CAPTURE(sort, text, entityName, Comparison::text) SIZES;
BENCHMARK_CAPTURE(sort, text_of_few, branch, Comparison::text) SIZES;
BENCHMARK_CAPTURE(sort, whole_numbers, key, Comparison::longInteger) SIZES;
BENCHMARK_CAPTURE(sort, numbers, amount, Comparison::number) SIZES;

// ---- Rows that come and go ----

// A thousand rows arrive in a list of so many; growth is what counts.
void append(benchmark::State& state, bool filtered, bool sorted) {
    ListSides& sides = ListSides::of(state);
    RecordStore& store = sides.store;
    if (filtered) store.filters().set(ColumnId{maker}, "*1*");
    store.filter();
    if (sorted) store.sort({ColumnId{entityName}, Comparison::text, -1});
    const std::size_t stored = store.stored().size();
    for (Row& row : makeRows(1000)) sides.rows.push_back(std::move(row));
    Times times;
    for (auto _ : state) {
        times.measure("ours", [&] { insertRows(store, stored, stored + 1000); });
        while (store.stored().size() > stored) store.deleteStored(store.stored().size() - 1);
    }
    sides.rows.resize(stored);
    store.unsort();
    store.filters().clear();
    store.filter();
    times.report(state, 1000);
}
#define GROWTH                          \
    ->Arg(1000)                         \
        ->Arg(10'000)                   \
        ->Arg(100'000)                  \
        ->Arg(1'000'000)                \
        ->Unit(benchmark::kMillisecond) \
        ->Iterations(3)
BENCHMARK_CAPTURE(append, plain, false, false) GROWTH;
BENCHMARK_CAPTURE(append, filtered, true, false) GROWTH;
BENCHMARK_CAPTURE(append, sorted, false, true) GROWTH;

enum class Order { arrival, reverse, random };

// All rows go one by one, as their changes are decided; the owner knows their slots.
void remove(benchmark::State& state, Order order, bool sorted) {
    const Rows rows = makeRows(static_cast<std::size_t>(state.range(0)));
    std::mt19937 random(2);
    Times times;
    for (auto _ : state) {
        RecordStore store;
        store.texts().setReader(readerOf(rows));
        insertRows(store, 0, rows.size());
        std::vector<Slot> slots(rows.size());
        std::iota(slots.begin(), slots.end(), Slot{0});
        if (sorted) store.sort({ColumnId{entityName}, Comparison::text, -1});
        if (order == Order::reverse) std::reverse(slots.begin(), slots.end());
        if (order == Order::random) std::shuffle(slots.begin(), slots.end(), random);
        times.measure("ours", [&] {
            for (const Slot slot : slots) store.deleteRecord(slot);
        });
        if (store.rowCount() != 0) state.SkipWithError("rows are left");
    }
    times.report(state, static_cast<double>(state.range(0)));
}
BENCHMARK_CAPTURE(remove, arrival_order, Order::arrival, false) GROWTH;
BENCHMARK_CAPTURE(remove, reverse_order, Order::reverse, false) GROWTH;
BENCHMARK_CAPTURE(remove, random_order, Order::random, false) GROWTH;
BENCHMARK_CAPTURE(remove, random_order_sorted, Order::random, true) GROWTH;

// ---- Distinct values ----

void distinct(benchmark::State& state, int column) {
    ListSides& sides = ListSides::of(state);
    RecordStore& store = sides.store;
    store.filters().clear();
    store.filter();
    Times times;
    for (auto _ : state) {
        store.texts().drop();
        DistinctValues found;
        times.measure("ours", [&] { found = store.distinctValues(ColumnId{column}); });
        times.measure("kept", [&] { found = store.distinctValues(ColumnId{column}); });
        times.measure("alphabetical", [&] {
            found = store.distinctValues(ColumnId{column}, ValueOrder::alphabetical);
        });
        std::unordered_map<std::string_view, std::size_t> seen;
        times.measure("unordered_map", [&] {
            for (const Row& row : sides.rows) {
                const std::string_view text = row[static_cast<std::size_t>(column)];
                if (!text.empty()) ++seen[text];
            }
        });
        const bool same = std::ranges::all_of(found.values, [&](const DistinctValue& value) {
            return seen[value.text] == value.rows;
        });
        if (!same || found.values.size() != seen.size()) state.SkipWithError("the sides differ");
    }
    times.report(state, static_cast<double>(state.range(0)));
}
BENCHMARK_CAPTURE(distinct, two_hundred, maker) SIZES;
BENCHMARK_CAPTURE(distinct, all_different, key) SIZES;

}  // namespace

BENCHMARK_MAIN();
