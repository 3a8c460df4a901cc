#ifndef KOVRAN_BENCHMARKS_INPUTS_H
#define KOVRAN_BENCHMARKS_INPUTS_H

#include <kovran/h265/h265_nal_writer.h>

#include <cstddef>
#include <random>
#include <vector>

// Inputs that are made when a benchmark starts, the same at every run.
namespace kovran::benchmarks {

using bytes = std::vector<unsigned char>;

constexpr std::size_t kibibyte = 1024;
constexpr std::size_t in_cache = 256 * kibibyte;

// What coded slice data look like: every byte as likely as any other.
inline bytes noise(std::size_t size) {
    std::mt19937 random(265);
    bytes data(size);
    for (unsigned char& byte : data) {
        byte = static_cast<unsigned char>(random());
    }
    return data;
}

inline bytes repeated(const bytes& pattern, std::size_t size) {
    bytes data(size);
    for (std::size_t i = 0; i < size; ++i) {
        data[i] = pattern[i % pattern.size()];
    }
    return data;
}

// An RBSP that needs an emulation prevention byte at every `distance`, and none elsewhere.
inline bytes noise_with_zero_pairs(std::size_t size, std::size_t distance) {
    bytes data = noise(size);
    for (unsigned char& byte : data) {
        byte = byte == 0 ? 0x80 : byte;
    }
    for (std::size_t at = 0; at + 3 <= size; at += distance) {
        data[at] = 0;
        data[at + 1] = 0;
        data[at + 2] = 1;
    }
    return data;
}

// One NAL unit, TRAIL_R, with a four-byte start code.
inline bytes annex_b_unit(const bytes& rbsp) {
    h265_nal nal;
    nal.decode_header(0x0201);
    bytes unit(h265_nal_writer::recommended_output_size(rbsp.size()));
    h265_nal_writer writer(unit.data(), unit.data(), unit.data() + unit.size(), nalfmt_annex_b);
    unit.resize(writer.block_encode(rbsp.data(), rbsp.size(), nal, /*zero_bytes=*/1));
    return unit;
}

// An Annex B stream of at least `size` bytes, of units whose RBSP is noise of `rbsp_size` bytes.
inline bytes annex_b_stream(std::size_t rbsp_size, std::size_t size) {
    const bytes unit = annex_b_unit(noise(rbsp_size));
    bytes stream;
    stream.reserve(size + unit.size());
    while (stream.size() < size) {
        stream.insert(stream.end(), unit.begin(), unit.end());
    }
    return stream;
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_INPUTS_H
