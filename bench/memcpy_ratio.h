#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <limits>
#include <vector>

namespace velko::bench {

using Clock = std::chrono::steady_clock;

// Seconds that one memcpy of `bytes` takes: the best of several rounds, so that a busy machine
// does not flatter the code under test.
inline double memcpySeconds(std::size_t bytes)
{
    constexpr int kRounds = 20;
    const std::size_t copies = std::max<std::size_t>(1, 4'000'000 / bytes);
    std::vector<std::byte> from(bytes, std::byte{1});
    std::vector<std::byte> to(bytes);
    double best = std::numeric_limits<double>::max();
    for (int round = 0; round < kRounds; ++round) {
        const auto start = Clock::now();
        for (std::size_t i = 0; i < copies; ++i) {
            std::memcpy(to.data(), from.data(), bytes);
            benchmark::DoNotOptimize(to.data());
            benchmark::ClobberMemory();
        }
        const std::chrono::duration<double> time = Clock::now() - start;
        best = std::min(best, time.count() / static_cast<double>(copies));
    }
    return best;
}

// Runs `work` for the benchmark and reports "memcpy_ratio": its time over that of a memcpy of the
// `bytes` it produces, both the best of this run.
template <typename Work>
void runAgainstMemcpy(benchmark::State& state, std::size_t bytes, Work work)
{
    double best = std::numeric_limits<double>::max();
    for (auto _ : state) {
        const auto start = Clock::now();
        work();
        benchmark::ClobberMemory();
        const std::chrono::duration<double> time = Clock::now() - start;
        best = std::min(best, time.count());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    state.counters["memcpy_ratio"] = best / memcpySeconds(bytes);
}

} // namespace velko::bench
