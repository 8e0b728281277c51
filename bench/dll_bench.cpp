// The real DLL in a host: intake, refresh and removal through HandlePublishMsg, with the pane on
// the screen. Prints lines for bench/table, nanoseconds a message; growth is the cost of intake
// against that of the smallest count.
#include <algorithm>
#include <numeric>
#include <random>

#include "bench/host_messages.h"
#include "bench/lines.h"

namespace {

struct Result {
    double intake, refresh, bytes, removal[3];
};

Result measure(std::size_t count) {
    OpenWorkbench open;
    auto* publish = open.plugin.entry<HandlePublishMsgEntry>("HandlePublishMsg");
    Result result{};
    const Messages changes(count, change);
    const std::size_t before = privateBytes();
    result.intake = changes.publishTo(publish);
    result.bytes = static_cast<double>(privateBytes() - before) / static_cast<double>(count);
    result.refresh = changes.publishTo(publish);

    std::vector<std::size_t> keys(count);
    std::iota(keys.begin(), keys.end(), std::size_t{0});
    for (int order = 0; order < 3; ++order) {
        if (order == 1) std::reverse(keys.begin(), keys.end());
        if (order == 2) std::shuffle(keys.begin(), keys.end(), std::mt19937(7));
        if (order > 0) changes.publishTo(publish);
        const Messages outcomes(
            count, [&](std::size_t i) { return outcome(keyText(keys[i]), "accepted"); });
        result.removal[order] = outcomes.publishTo(publish);
    }
    return result;
}

}  // namespace

int main() {
    double first = 0;
    measure(1000);  // the first pane of a process pays for its fonts
    for (const std::size_t count : {1000u, 10000u, 100000u}) {
        const Result r = measure(count);
        if (first == 0) first = r.intake;
        const std::string name = "dll/" + std::to_string(count);
        figure(name, "intake_ns", r.intake);
        figure(name, "refresh_ns", r.refresh);
        figure(name, "removal_ns", r.removal[0]);
        figure(name, "removal_reversed_ns", r.removal[1]);
        figure(name, "removal_shuffled_ns", r.removal[2]);
        figure(name, "bytes", r.bytes);
        figure(name, "growth", r.intake / first);
    }
    return 0;
}
