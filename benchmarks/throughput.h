#ifndef KOVRAN_BENCHMARKS_THROUGHPUT_H
#define KOVRAN_BENCHMARKS_THROUGHPUT_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace kovran::benchmarks {

// Registers one contender, called `job/input/contender` in the results: `run` does the job once,
// for `size` bytes, and its result is kept from being optimised away. `counters` are shown as they
// are.
template <class Run>
void contend(const std::string& name, std::size_t size, Run run,
             benchmark::UserCounters counters = {}) {
    benchmark::RegisterBenchmark(
        name.c_str(), [size, counters = std::move(counters),
                       run = std::move(run)](benchmark::State& state) mutable {
            for (auto _ : state) {
                benchmark::DoNotOptimize(run());
                benchmark::ClobberMemory();
            }
            state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                                    static_cast<std::int64_t>(size));
            state.counters.insert(counters.begin(), counters.end());
        });
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_THROUGHPUT_H
