// Two sides of a benchmark, timed in turn in the same run.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>

// The processor's time of this thread: what else runs on a shared machine does not count.
struct Clock {
    using duration = std::chrono::nanoseconds;
    static duration now() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    }
};

// The two sides' time, and what is reported of it.
struct Sides {
    Clock::duration ours{}, peer{};
    std::size_t messages = 0;  // or whatever is counted

    void report(benchmark::State& state) const {
        const auto each = [&](Clock::duration time) {
            return static_cast<double>(time.count()) / static_cast<double>(messages);
        };
        state.counters["ours_ns"] = each(ours);
        state.counters["peer_ns"] = each(peer);
        state.counters["ratio"] = each(ours) / each(peer);
    }
};

template <class Work>
Clock::duration timed(Work work) {
    const auto start = Clock::now();
    work();
    return Clock::now() - start;
}
