// The bit reader's fixed and variable reads, and the skipping of extension data bit by bit.
#include <kovran/h2645_common/h2645_common_bitreader.h>

#include <benchmark/benchmark.h>

#include <cstddef>

#include "inputs.h"

namespace kovran::benchmarks {
namespace {

constexpr std::size_t size = 64 << 10;

void count_bytes(benchmark::State& state, std::size_t bytes_read) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(bytes_read));
}

void get_flag(benchmark::State& state) {
    const bytes data = noise(size);
    for (auto _ : state) {
        h2645_common_bitreader reader(data.data(), data.data() + data.size());
        unsigned int ones = 0;
        for (std::size_t i = 0; i < 8 * size; ++i) {
            ones += reader.get<unsigned int>(1);
        }
        benchmark::DoNotOptimize(ones);
    }
    count_bytes(state, size);
}
BENCHMARK(get_flag);

void get_byte(benchmark::State& state) {
    const bytes data = noise(size);
    for (auto _ : state) {
        h2645_common_bitreader reader(data.data(), data.data() + data.size());
        unsigned int sum = 0;
        for (std::size_t i = 0; i < size; ++i) {
            sum += reader.get<unsigned int>(8);
        }
        benchmark::DoNotOptimize(sum);
    }
    count_bytes(state, size);
}
BENCHMARK(get_byte);

void ue(benchmark::State& state) {
    const bytes data = noise(size);
    for (auto _ : state) {
        h2645_common_bitreader reader(data.data(), data.data() + data.size());
        unsigned int sum = 0;
        while (reader.bit_position() < 8 * size) {
            sum += reader.ue();
        }
        benchmark::DoNotOptimize(sum);
    }
    count_bytes(state, size);
}
BENCHMARK(ue);

// The time for a byte must not depend on how much follows.
void skip_extension_bits(benchmark::State& state, unsigned char content) {
    const bytes data(static_cast<std::size_t>(state.range(0)), content);
    for (auto _ : state) {
        h2645_common_bitreader reader(data.data(), data.data() + data.size());
        while (h2645_common_more_rbsp_data(reader)) {
            reader.skip(1);
        }
        benchmark::DoNotOptimize(reader.current);
    }
    count_bytes(state, data.size());
}
BENCHMARK_CAPTURE(skip_extension_bits, ones, 0xFF)->Arg(64 << 10)->Arg(1 << 20);
BENCHMARK_CAPTURE(skip_extension_bits, zeros, 0x00)->Arg(64 << 10)->Arg(1 << 20);
BENCHMARK_CAPTURE(skip_extension_bits, one_bit_a_byte, 0x01)->Arg(64 << 10)->Arg(1 << 20);

}  // namespace
}  // namespace kovran::benchmarks
