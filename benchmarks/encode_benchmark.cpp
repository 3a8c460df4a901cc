// Writing NAL units from their RBSPs, beside memcpy of the same bytes.
#include <kovran/h265/h265_nal_writer.h>

#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "inputs.h"
#include "require.h"
#include "support/bytewise_framing.h"
#include "throughput.h"

namespace kovran::benchmarks {
namespace {

// Bytes that are written as units of `rbsp_size` each, one after the other.
struct encode_input {
    bytes data;
    std::size_t rbsp_size = 0;
    bytes out;
    h265_nal nal;
};

template <class Writer>
std::size_t encode_all(encode_input& input, Writer writer) {
    for (std::size_t at = 0; at + input.rbsp_size <= input.data.size(); at += input.rbsp_size) {
        if (writer.block_encode(input.data.data() + at, input.rbsp_size, input.nal,
                                /*zero_bytes=*/1) == 0) {
            return 0;
        }
    }
    return static_cast<std::size_t>(writer.write - input.out.data());
}

std::size_t encode_all(encode_input& input) {
    unsigned char* const out = input.out.data();
    return encode_all(input, h265_nal_writer(out, out, out + input.out.size(), nalfmt_annex_b));
}

std::size_t encode_all_bytewise(encode_input& input) {
    unsigned char* const out = input.out.data();
    return encode_all(input, test::bytewise_writer(out, out + input.out.size(), nalfmt_annex_b));
}

std::size_t copy_all(encode_input& input) {
    std::memcpy(input.out.data(), input.data.data(), input.data.size());
    return input.data.size();
}

bytes written(encode_input& input, std::size_t (*encode)(encode_input&)) {
    const std::size_t size = encode(input);
    return {input.out.data(), input.out.data() + size};
}

void add_input(const std::string& name, bytes data, std::size_t rbsp_size) {
    const auto input = std::make_shared<encode_input>();
    input->data = std::move(data);
    input->rbsp_size = rbsp_size;
    input->out.resize(h265_nal_writer::recommended_output_size(rbsp_size) *
                      (input->data.size() / rbsp_size));
    input->nal.decode_header(0x0201);
    const bytes expected = written(*input, encode_all_bytewise);
    require(!expected.empty() && written(*input, encode_all) == expected,
            "block_encode of " + name);

    const std::string job = "encode/" + name + "/";
    const std::size_t size = input->data.size() / rbsp_size * rbsp_size;
    contend(job + "kovran", size, [input] { return encode_all(*input); });
    contend(job + "byte_loop", size, [input] { return encode_all_bytewise(*input); });
    contend(job + "memcpy", size, [input] { return copy_all(*input); });
}

const bool registered = [] {
    add_input("clean_in_cache", noise(128 * kibibyte), 128 * kibibyte);
    add_input("170_byte_units", noise(in_cache), 170);
    add_input("zeros", bytes(in_cache), in_cache);
    add_input("emulation_every_1024", noise_with_zero_pairs(in_cache, 1024), in_cache);
    add_input("emulation_every_61", noise_with_zero_pairs(in_cache, 61), in_cache);
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
