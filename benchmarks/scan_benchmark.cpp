// Finding the NAL units of a stream, beside memchr for a byte that is not there: the fastest that
// this machine passes over bytes.
#include "scan.h"

#include <kovran/h265/h265_nal_reader.h>

#include <cstring>
#include <utility>

#include "stream_file.h"
#include "support/bytewise_framing.h"

namespace kovran::benchmarks {
namespace {

template <class Reader>
units_found scan_with(bytes& stream) {
    units_found units;
    Reader reader(nalfmt_annex_b);
    unsigned char* const end = stream.data() + stream.size();
    for (reader.scan(stream.data(), end); reader.found; reader.scan(reader.cursor, end)) {
        units.add(static_cast<std::size_t>(reader.nal_begin - stream.data()));
    }
    return units;
}

// Over a copy, from which the byte that is looked for is gone.
void add_memchr(const scan_input& input) {
    bytes without = input.stream;
    for (unsigned char& byte : without) {
        byte = byte == 0xA5 ? 0xA4 : byte;
    }
    contend("scan/" + input.name + "/memchr", input.stream.size(), [without = std::move(without)] {
        return std::memchr(without.data(), 0xA5, without.size());
    });
}

const bool registered = [] {
    add_scan_contender("kovran", /*only_whole_units=*/false, scan_with<h265_nal_reader>);
    add_scan_contender("byte_loop", /*only_whole_units=*/false, scan_with<test::bytewise_reader>);
    for (const scan_input& input : scan_inputs()) {
        add_memchr(input);
    }
    return true;
}();

}  // namespace

std::vector<scan_input>& scan_inputs() {
    static std::vector<scan_input> inputs = [] {
        std::vector<scan_input> made;
        const auto add = [&made](const char* name, bool whole_units, bytes stream) {
            const units_found units = scan_with<test::bytewise_reader>(stream);
            made.push_back({name, std::move(stream), units, whole_units});
        };
        add("hi_from_memory", true, stream_file("hi"));
        add("hi_in_cache", true, stream_file("hi", in_cache));
        add("lo_from_memory", true, stream_file("lo"));
        add("lo_in_cache", true, stream_file("lo", in_cache));
        add("170_byte_units", true, annex_b_stream(170, in_cache));
        add("zeros", false, bytes(in_cache));
        add("emulation_only", false, repeated({0, 0, 3}, in_cache));
        add("noise", false, noise(in_cache));
        add("emulation_every_1024", true, annex_b_unit(noise_with_zero_pairs(in_cache, 1024)));
        add("emulation_every_61", true, annex_b_unit(noise_with_zero_pairs(in_cache, 61)));
        return made;
    }();
    return inputs;
}

}  // namespace kovran::benchmarks
