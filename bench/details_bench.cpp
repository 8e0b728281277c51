// From an answer to rows of details, against the plain way of doing the same: a map of captions and
// a heap row of strings per field. Nanoseconds per row for both sides, and their ratio. Both sides
// read the answer through the host's library; what that alone takes is told beside them.
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench/sides.h"
#include "console/model/owned_message.h"
#include "details/model/captions.h"
#include "details/model/details_builders.h"
#include "details/model/exchanges.h"
#include "link/model/mnemonics.h"

using namespace mc;

namespace {

struct PlainRow {
    std::string caption, value, oldValue, spare, otherSpare;
    int attribute = 6;
};
using PlainRows = std::vector<std::unique_ptr<PlainRow>>;

class PlainBuilder {
public:
    explicit PlainBuilder(const std::vector<int>& mnemonics) {
        for (const int each : mnemonics) m_captions[static_cast<unsigned>(each)] = captionOf(each);
    }

    void appendField(PlainRows& rows, const FieldReader& answer, int mnemonic) const {
        if (!answer.count(mnemonic)) return;
        auto row = std::make_unique<PlainRow>();
        const auto caption = m_captions.find(static_cast<unsigned>(mnemonic));
        if (caption != m_captions.end()) row->caption = caption->second;
        row->value = answer.text(mnemonic).value_or("NA");
        row->oldValue = answer.text(mnemonic, 1).value_or("");
        rows.push_back(std::move(row));
    }

    static void appendList(PlainRows& rows, const FieldReader& answer, int mnemonic) {
        const int count = answer.count(mnemonic).value_or(0);
        for (int i = 0; i < count; ++i) {
            auto row = std::make_unique<PlainRow>();
            row->value = answer.text(mnemonic, i).value_or("NA");
            rows.push_back(std::move(row));
        }
    }

private:
    std::unordered_map<unsigned, std::string> m_captions;
};

std::size_t rowsOf(const DetailGroups& groups) {
    std::size_t rows = 0;
    for (const DetailGroup& group : groups) rows += group.rows.size();
    return rows;
}

// Every field of a client's record with a row of its own, new and old value.
std::vector<int> clientFields() {
    std::vector<int> fields{54001, 54002, 64009, 50110};
    for (int ucc = 64840; ucc <= 64859; ++ucc) fields.push_back(ucc);
    for (const int each :
         {50111, 10046, 64950, 64952, 64951, 63216, 63215, 64765, 12007, 54003, 64807, 64935,
          64953, 64911, 64969, 64954, 64913, 64914, 64835, 64834, 49051, 49023, 64836, 64916,
          64956, 64959, 64957, 64958, 64961, 64964, 64962, 64963, 64979, 64982, 64980, 64981,
          64990, 64993, 64991, 64992, 64995, 64998, 64996, 64997, 64966, 64973, 64974, 64976,
          64977, 64978, 64902, 64919, 44513, 44514, 64826, 64827, 64923, 64949, 64903, 64833})
        fields.push_back(each);
    fields.insert(fields.end(), std::begin(kExchangeIds), std::end(kExchangeIds));
    return fields;
}

// Both sides, in turn first and second, and the reading that both need.
template <class Ours, class Plain, class Reading>
void race(benchmark::State& state, Ours ours, Plain plain, Reading reading) {
    Sides sides;
    Clock::duration read{};
    bool oursFirst = false;
    for (auto _ : state) {
        read += timed(reading);
        oursFirst = !oursFirst;
        if (oursFirst) sides.ours += timed([&] { sides.messages += ours(); });
        sides.peer += timed(plain);
        if (!oursFirst) sides.ours += timed([&] { sides.messages += ours(); });
    }
    sides.report(state);
    state.counters["reading_ns"] = std::chrono::duration<double, std::nano>(read).count() /
                                   static_cast<double>(sides.messages);
}

void allFieldsOfAClient(benchmark::State& state) {
    const std::vector<int> fields = clientFields();
    zek::OwnedMessage message;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (FieldReader(message.handle()).count(fields[i])) continue;  // 64704 stands twice
        message.add(fields[i], "new value " + std::to_string(i));
        message.add(fields[i], "old value " + std::to_string(i));
    }
    const FieldReader answer(message.handle());
    const PlainBuilder plain(fields);
    race(
        state, [&] { return rowsOf(BuildClientDetails(answer)); },
        [&] {
            PlainRows rows;
            for (const int field : fields) plain.appendField(rows, answer, field);
            benchmark::DoNotOptimize(rows.data());
        },
        [&] {
            for (const int field : fields) {
                benchmark::DoNotOptimize(answer.count(field));
                benchmark::DoNotOptimize(answer.text(field));
                benchmark::DoNotOptimize(answer.text(field, 1));
            }
        });
    state.counters["rows"] = static_cast<double>(rowsOf(BuildClientDetails(answer)));
}
BENCHMARK(allFieldsOfAClient);

void listOfOccurrences(benchmark::State& state) {
    zek::OwnedMessage message;
    message.add(MNM_USER, "DLR101");
    for (int i = 0; i < state.range(0); ++i)
        message.add(MNM_ATTRIBUTES, "attribute " + std::to_string(i));
    const FieldReader answer(message.handle());
    race(
        state, [&] { return rowsOf(BuildUserDetails(answer)); },
        [&] {
            PlainRows rows;
            PlainBuilder::appendList(rows, answer, MNM_ATTRIBUTES);
            benchmark::DoNotOptimize(rows.data());
        },
        [&] {
            for (int i = 0; i < state.range(0); ++i)
                benchmark::DoNotOptimize(answer.text(MNM_ATTRIBUTES, i));
        });
}
BENCHMARK(listOfOccurrences)->Arg(150)->Arg(10'000)->Arg(100'000);

}  // namespace

BENCHMARK_MAIN();
