#ifndef KOVRAN_BENCHMARKS_SEI_STREAM_H
#define KOVRAN_BENCHMARKS_SEI_STREAM_H

#include <kovran/h265/h265_nal_reader.h>

#include <vector>

#include "host.h"
#include "nal_units.h"
#include "parsing.h"
#include "require.h"
#include "stream_file.h"

namespace kovran::benchmarks {

// A stream with many kinds of SEI messages: its SEI units, and the parameter sets that they refer
// to.
struct sei_stream {
    bytes stream = stream_file("rich");
    std::vector<h265_nal_reader> parameter_sets;
    std::vector<h265_nal_reader> units;
    std::size_t size = 0;  // of the SEI units together

    sei_stream() {
        for (const h265_nal_reader& unit : nal_units(stream)) {
            const h265_nal_unit_type type = unit.nal.nal_unit_type;
            if (type == PREFIX_SEI_NUT || type == SUFFIX_SEI_NUT) {
                units.push_back(unit);
                size += size_of(unit);
            } else if (type >= VPS_NUT && type <= PPS_NUT) {
                parameter_sets.push_back(unit);
            }
        }
    }
};

inline const sei_stream& the_sei_stream() {
    static const sei_stream stream;
    return stream;
}

// A host that has read the parameter sets and all messages once: their types, and pic_struct, as
// the delays of picture timing are wider than the fields that GStreamer has for them.
template <class Host>
values values_of_messages(Host& reader) {
    const sei_stream& input = the_sei_stream();
    for (const h265_nal_reader& unit : input.parameter_sets) {
        require(reader.read(unit, look_away), "parameter sets of the SEI messages");
    }
    values all;
    for (const h265_nal_reader& unit : input.units) {
        const bool read = reader.read_sei(unit, [&](const h265_nal_sei_reader& message) {
            all.push_back(message.payload_type);
            if (message.payload_type == h265_nal_sei_payload_type_prefix_pic_timing) {
                all.push_back(reader.pic_timing.pic_struct);
            }
        });
        require(read, "SEI messages");
    }
    return all;
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_SEI_STREAM_H
