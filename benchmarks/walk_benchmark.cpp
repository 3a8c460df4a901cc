// From a stream's bytes to its headers: units found, parameter sets, SEI messages and the first
// bytes of slices decoded and parsed.
#include "walk.h"

#include <utility>

#include "host.h"
#include "stream_file.h"

namespace kovran::benchmarks {
namespace {

constexpr unsigned int intra = 2;

template <rules read_by>
stream_seen walk(bytes& stream) {
    host_by<read_by> reader;
    stream_seen seen;
    unsigned char* const end = stream.data() + stream.size();
    h265_nal_reader next(nalfmt_annex_b);
    next.scan(stream.data(), end);
    while (next.found) {
        h265_nal_reader unit = next;
        next.scan(next.cursor, end);
        unit.decode_fence = next.found ? next.frame_begin - next.zero_count : end;

        const bool read =
            reader.read(unit, [&seen](const h265_nal_sei_reader&) { ++seen.messages; });
        ++seen.units;
        if (!read || unit.nal.nal_unit_type > CRA_NUT) {
            continue;
        }
        seen.sum_of_pic_order_cnt_lsb += reader.slice.slice_pic_order_cnt_lsb;
        if (reader.slice.first_slice_segment_in_pic_flag) {
            seen.add_picture(/*is_intra=*/reader.slice.slice_type == intra);
        }
    }
    return seen;
}

const bool registered = [] {
    add_walk_contender("kovran", walk<rules::standard>, [](stream_seen&) {});
    add_walk_contender("kovran_parse", walk<rules::own>, [](stream_seen&) {});
    return true;
}();

}  // namespace

std::vector<walk_input>& walk_inputs() {
    static std::vector<walk_input> inputs = [] {
        std::vector<walk_input> made;
        for (const char* name : {"lo", "rich"}) {
            bytes stream = stream_file(name);
            const stream_seen seen = walk<rules::standard>(stream);
            made.push_back({name, std::move(stream), seen});
        }
        return made;
    }();
    return inputs;
}

}  // namespace kovran::benchmarks
