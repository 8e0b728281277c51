// What a benchmark under Wine reports: a line for each figure, as bench/table reads them.
#pragma once

#include <cstdio>
#include <string>

inline void figure(const std::string& benchmark, const char* measure, double value) {
    std::printf("%s\t%s\t%.6g\n", benchmark.c_str(), measure, value);
}

// Two sides in the same unit, and their ratio.
inline void figures(const std::string& benchmark, double ours, double peer) {
    figure(benchmark, "ours_us", ours);
    figure(benchmark, "peer_us", peer);
    figure(benchmark, "ratio", ours / peer);
}
