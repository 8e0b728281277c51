// The real DLL in a host: intake, refresh and removal through HandlePublishMsg, with the pane on
// the screen. Prints a table; growth is the cost per message against that of the smallest count.
#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <numeric>
#include <random>

#include "sdk/connectvosk.h"
#include "tests/windows/test_host.h"

namespace {

using Clock = std::chrono::steady_clock;

std::size_t privateBytes() {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                         sizeof counters);
    return counters.PagefileUsage;  // private, committed; Wine leaves PrivateUsage empty
}

// Messages are made ahead, so that only the plug-in's side is timed.
class Messages {
public:
    Messages(std::size_t count, const std::function<Fields(std::size_t)>& fields) {
        for (std::size_t i = 0; i < count; ++i) {
            void* message = nullptr;
            void* scratch = nullptr;
            otp_ctor_primecb(&message, nullptr);
            otp_open_scratch(&scratch, 256, nullptr);
            otp_start_msg(message, scratch, nullptr);
            for (const auto& [id, text] : fields(i))
                otp_add_data_as_cstring(message, id, 1, text.c_str(), nullptr);
            m_made.emplace_back(message, scratch);
        }
    }
    ~Messages() {
        for (const auto& [message, scratch] : m_made) {
            otp_dtor_primecb(message, nullptr);
            otp_close_scratch(scratch, nullptr);
        }
    }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    // Nanoseconds per message. The one paint that follows is not in it.
    double publishTo(HandlePublishMsgEntry* publish) const {
        const auto start = Clock::now();
        for (const auto& [message, scratch] : m_made) publish(message);
        const std::chrono::duration<double, std::nano> time = Clock::now() - start;
        pump();
        return time.count() / static_cast<double>(m_made.size());
    }

private:
    std::vector<std::pair<void*, void*>> m_made;
};

Fields change(std::size_t key) {
    const std::string text = std::to_string(1000000 + key);
    return pending(text, "340",
                   {{54036, "DEALER"},
                    {54247, "MAKER01"},
                    {64056, "ZEKB"},
                    {64053, "MUM01"},
                    {31003, "DEALER" + text}});
}

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
        const Messages outcomes(count, [&](std::size_t i) {
            return outcome(std::to_string(1000000 + keys[i]), "accepted");
        });
        result.removal[order] = outcomes.publishTo(publish);
    }
    return result;
}

}  // namespace

int main() {
    std::printf("%9s %12s %12s %14s %14s %14s %12s %8s\n", "changes", "intake ns", "refresh ns",
                "accepted ns", "reversed ns", "shuffled ns", "bytes each", "growth");
    double first = 0;
    measure(1000);  // the first pane of a process pays for its fonts
    for (const std::size_t count : {1000u, 10000u, 100000u}) {
        const Result r = measure(count);
        if (first == 0) first = r.intake;
        std::printf("%9zu %12.0f %12.0f %14.0f %14.0f %14.0f %12.0f %8.2f\n", count, r.intake,
                    r.refresh, r.removal[0], r.removal[1], r.removal[2], r.bytes, r.intake / first);
    }
    return 0;
}
