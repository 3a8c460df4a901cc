// Scanning, decoding and encoding of NAL units, beside memchr and memcpy over the same bytes: the
// fastest that this machine passes over bytes and copies them.
#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstring>

#include "inputs.h"

namespace kovran::benchmarks {
namespace {

constexpr std::size_t in_cache = 256 << 10;
constexpr std::size_t from_memory = 128 << 20;

void count_bytes(benchmark::State& state, std::size_t size) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(size));
}

void memchr_absent(benchmark::State& state, const bytes& data) {
    bytes without = data;  // of the byte that is looked for
    for (unsigned char& byte : without) {
        byte = byte == 0xA5 ? 0xA4 : byte;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::memchr(without.data(), 0xA5, without.size()));
    }
    count_bytes(state, data.size());
}

void memcpy_all(benchmark::State& state, const bytes& data) {
    bytes out(data.size());
    for (auto _ : state) {
        std::memcpy(out.data(), data.data(), data.size());
        benchmark::ClobberMemory();
    }
    count_bytes(state, data.size());
}

void scan(benchmark::State& state, bytes stream) {
    std::size_t units = 0;
    for (auto _ : state) {
        h265_nal_reader reader(nalfmt_annex_b);
        unsigned char* const end = stream.data() + stream.size();
        for (reader.scan(stream.data(), end); reader.found; reader.scan(reader.cursor, end)) {
            ++units;
        }
    }
    count_bytes(state, stream.size());
    state.counters["units"] =
        benchmark::Counter(static_cast<double>(units), benchmark::Counter::kAvgIterations);
}

// The payloads of all units, one after the other.
void block_decode(benchmark::State& state, bytes stream) {
    bytes out(stream.size());
    std::vector<h265_nal_reader> units;
    unsigned char* const end = stream.data() + stream.size();
    h265_nal_reader reader(nalfmt_annex_b);
    for (reader.scan(stream.data(), end); reader.found; reader.scan(reader.cursor, end)) {
        units.push_back(reader);
    }
    for (auto _ : state) {
        unsigned char* write = out.data();
        for (h265_nal_reader unit : units) {
            write += unit.block_decode(write, stream.size());
        }
        benchmark::ClobberMemory();
    }
    count_bytes(state, stream.size());
}

void block_encode(benchmark::State& state, const bytes& data, std::size_t rbsp_size) {
    bytes out(h265_nal_writer::recommended_output_size(rbsp_size));
    h265_nal nal;
    nal.decode_header(0x0201);
    for (auto _ : state) {
        for (std::size_t at = 0; at + rbsp_size <= data.size(); at += rbsp_size) {
            h265_nal_writer writer(out.data(), out.data(), out.data() + out.size(), nalfmt_annex_b);
            benchmark::DoNotOptimize(
                writer.block_encode(data.data() + at, rbsp_size, nal, /*zero_bytes=*/1));
        }
    }
    count_bytes(state, data.size() / rbsp_size * rbsp_size);
}

void block_encode_whole(benchmark::State& state, const bytes& data) {
    block_encode(state, data, data.size());
}

void block_encode_small(benchmark::State& state, const bytes& data) {
    block_encode(state, data, 170);
}

const bool registered = [] {
    const bytes zeros = bytes(in_cache);
    const bytes emulation = repeated({0, 0, 3}, in_cache);
    bytes emulation_unit = {0, 0, 1, 2, 1};
    emulation_unit.insert(emulation_unit.end(), emulation.begin(), emulation.end());

    const auto add = [](const char* name, auto function, const bytes& data) {
        benchmark::RegisterBenchmark(name, function, data);
    };
    const bytes large_cached = annex_b_stream(128 << 10, in_cache);
    add("memchr/in_cache", memchr_absent, large_cached);
    add("memcpy/in_cache", memcpy_all, large_cached);
    add("scan/large_units/in_cache", scan, large_cached);
    add("scan/170_byte_units/in_cache", scan, annex_b_stream(170, in_cache));
    add("scan/zeros/in_cache", scan, zeros);
    add("scan/emulation_only/in_cache", scan, emulation);
    add("block_decode/large_units/in_cache", block_decode, large_cached);
    add("block_decode/170_byte_units/in_cache", block_decode, annex_b_stream(170, in_cache));
    add("block_decode/emulation_only/in_cache", block_decode, emulation_unit);
    add("block_encode/noise/in_cache", block_encode_whole, noise(in_cache));
    add("block_encode/170_byte_units/in_cache", block_encode_small, noise(in_cache));
    add("block_encode/zeros/in_cache", block_encode_whole, zeros);

    const bytes large = annex_b_stream(500 << 10, from_memory);
    add("memchr/from_memory", memchr_absent, large);
    add("memcpy/from_memory", memcpy_all, large);
    add("scan/large_units/from_memory", scan, large);
    add("block_decode/large_units/from_memory", block_decode, large);
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
