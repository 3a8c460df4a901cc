// The payloads of NAL units without their emulation prevention bytes, beside memcpy of the same
// bytes: the fastest that this machine copies.
#include <kovran/h265/h265_nal_reader.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "inputs.h"
#include "nal_units.h"
#include "require.h"
#include "stream_file.h"
#include "support/bytewise_framing.h"
#include "throughput.h"

namespace kovran::benchmarks {
namespace {

// A stream, its units, and room for their payloads one after the other.
struct decode_input {
    bytes stream;
    std::vector<h265_nal_reader> units;
    bytes out;
};

std::size_t decode_all(decode_input& input) {
    unsigned char* write = input.out.data();
    for (h265_nal_reader unit : input.units) {
        write += unit.block_decode(write, size_of(unit));
    }
    return static_cast<std::size_t>(write - input.out.data());
}

std::size_t decode_all_bytewise(decode_input& input) {
    unsigned char* write = input.out.data();
    for (const h265_nal_reader& unit : input.units) {
        test::bytewise_reader bytewise(nalfmt_annex_b);
        bytewise.decode_ptr = unit.decode_ptr;
        bytewise.decode_fence = unit.decode_fence;
        write += bytewise.block_decode(write, size_of(unit));
    }
    return static_cast<std::size_t>(write - input.out.data());
}

std::size_t copy_all(decode_input& input) {
    std::memcpy(input.out.data(), input.stream.data(), input.stream.size());
    return input.stream.size();
}

bytes payloads(decode_input& input, std::size_t (*decode)(decode_input&)) {
    const std::size_t size = decode(input);
    return {input.out.data(), input.out.data() + size};
}

void add_input(const std::string& name, bytes stream) {
    const auto input = std::make_shared<decode_input>();
    input->stream = std::move(stream);
    input->units = nal_units(input->stream);
    input->out.resize(input->stream.size());
    require(payloads(*input, decode_all) == payloads(*input, decode_all_bytewise),
            "block_decode of " + name);

    const std::string job = "decode/" + name + "/";
    const std::size_t size = input->stream.size();
    contend(job + "kovran", size, [input] { return decode_all(*input); });
    contend(job + "byte_loop", size, [input] { return decode_all_bytewise(*input); });
    contend(job + "memcpy", size, [input] { return copy_all(*input); });
}

// What a host that only looks at slice headers asks for; the rest of the unit should not count.
void add_first_bytes(const std::string& name, std::size_t unit_size) {
    constexpr std::size_t wanted = 128;
    const auto input = std::make_shared<decode_input>();
    input->stream = annex_b_stream(unit_size, unit_size);
    input->units = nal_units(input->stream);
    input->out.resize(wanted);
    contend("decode/" + name + "/kovran", wanted, [input] {
        h265_nal_reader unit = input->units.front();
        return unit.block_decode(input->out.data(), wanted);
    });
}

const bool registered = [] {
    add_input("clean_in_cache", annex_b_unit(noise(128 * kibibyte)));
    add_input("hi_from_memory", stream_file("hi"));
    add_input("lo_in_cache", stream_file("lo", in_cache));
    add_input("170_byte_units", annex_b_stream(170, in_cache));
    add_input("zero_pairs", annex_b_unit(bytes(in_cache / 2)));
    add_input("zero_pairs_twice_the_bytes", annex_b_unit(bytes(in_cache)));
    add_input("emulation_every_1024", annex_b_unit(noise_with_zero_pairs(in_cache, 1024)));
    add_input("emulation_every_61", annex_b_unit(noise_with_zero_pairs(in_cache, 61)));
    add_first_bytes("first_128_of_1_kb", kibibyte);
    add_first_bytes("first_128_of_500_kb", 500 * kibibyte);
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
