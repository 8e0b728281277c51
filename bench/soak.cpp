// A long day: a million publications through the real DLL, with the pane on the screen. Changes
// come, are refreshed and are decided at random, some 20,000 of them pending at any time.
//
// Prints cost and memory as the day goes on, and fails when the last tenth of the messages costs
// more than 1.5 times the first tenth (the best block of each, as the machine is shared), or when
// memory has not returned at the end of the day to where it was when the first tenth was decided.
#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

#include "bench/host_messages.h"

namespace {

constexpr std::size_t kMessages = 1'000'000;
constexpr std::size_t kBlock = 10'000;
constexpr std::size_t kTenth = kMessages / kBlock / 10;  // blocks
constexpr std::size_t kStanding = 20'000;
constexpr double kMaxGrowth = 1.5;
constexpr double kMaxLeft = 1'000'000;  // bytes: a byte for each message

// What happens next, drawn at random: which change it is about, and what becomes of it.
class Day {
public:
    Fields next() {
        if (m_pending.size() < kStanding || m_random() % 3 == 0) {
            m_pending.push_back(m_next++);
            return change(m_pending.back());
        }
        std::size_t& any = m_pending[m_random() % m_pending.size()];
        if (m_random() % 2 == 0) return change(any);
        std::swap(any, m_pending.back());
        return decided();
    }

    // What is left is decided.
    Fields decided() {
        const std::string key = keyText(m_pending.back());
        m_pending.pop_back();
        return outcome(key, m_random() % 2 == 0 ? "accepted" : "rejected");
    }
    std::size_t pending() const { return m_pending.size(); }

private:
    std::mt19937 m_random{7};
    std::vector<std::size_t> m_pending;
    std::size_t m_next = 0;
};

}  // namespace

int main() {
    OpenWorkbench open;
    auto* publish = open.plugin.entry<HandlePublishMsgEntry>("HandlePublishMsg");
    Day day;
    double first = 1e9, last = 1e9, start = 0;
    std::printf("%9s %12s %14s %10s\n", "messages", "ns each", "private bytes", "pending");
    for (std::size_t block = 0; block < kMessages / kBlock; ++block) {
        const double cost =
            Messages(kBlock, [&](std::size_t) { return day.next(); }).publishTo(publish);
        if (block < kTenth) first = std::min(first, cost);
        if (block >= kMessages / kBlock - kTenth) last = std::min(last, cost);
        if (block % kTenth != kTenth - 1) continue;
        std::printf("%9zu %12.0f %14zu %10zu\n", (block + 1) * kBlock, cost, privateBytes(),
                    day.pending());
        if (block == kTenth - 1) {
            Messages(day.pending(), [&](std::size_t) { return day.decided(); }).publishTo(publish);
            start = static_cast<double>(privateBytes());
        }
    }
    Messages(day.pending(), [&](std::size_t) { return day.decided(); }).publishTo(publish);
    const double left = static_cast<double>(privateBytes()) - start;
    std::printf("cost at the end %.2f of the start's, memory left behind %.0f bytes\n",
                last / first, left);
    return last <= kMaxGrowth * first && left <= kMaxLeft ? 0 : 1;
}
