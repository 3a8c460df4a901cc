#ifndef KOVRAN_BENCHMARKS_SLICE_STREAMS_H
#define KOVRAN_BENCHMARKS_SLICE_STREAMS_H

#include <kovran/h265/h265_nal_reader.h>

#include <string>
#include <vector>

#include "host.h"
#include "nal_units.h"
#include "parsing.h"
#include "require.h"
#include "stream_file.h"

namespace kovran::benchmarks {

// A stream whose slice headers are read, one after the other.
struct slice_stream {
    std::string name;
    bytes stream;
    std::vector<h265_nal_reader> parameter_sets;
    std::vector<h265_nal_reader> slices;
};

inline slice_stream make_slice_stream(const std::string& name) {
    slice_stream made;
    made.name = name;
    made.stream = stream_file(name, in_cache);
    for (const h265_nal_reader& unit : nal_units(made.stream)) {
        if (unit.nal.nal_unit_type <= CRA_NUT) {
            made.slices.push_back(unit);
        } else if (unit.nal.nal_unit_type <= PPS_NUT) {
            made.parameter_sets.push_back(unit);
        }
    }
    return made;
}

inline std::vector<slice_stream>& slice_streams() {
    static std::vector<slice_stream> streams = [] {
        std::vector<slice_stream> made;
        made.push_back(make_slice_stream("lo"));
        made.push_back(make_slice_stream("rich"));
        return made;
    }();
    return streams;
}

// What kovran reads as the standard has it, up to the reference picture set.
inline void append_values_of(values& all, const h265_slice_segment_header& slice) {
    const values read =
        values_in(slice.first_slice_segment_in_pic_flag, slice.slice_pic_parameter_set_id,
                  slice.slice_type, slice.slice_pic_order_cnt_lsb);
    all.insert(all.end(), read.begin(), read.end());
}

// A host that has read the stream's parameter sets, and its slices once.
template <class Host>
values values_of_slices(Host& reader, const slice_stream& input) {
    for (const h265_nal_reader& unit : input.parameter_sets) {
        require(reader.read(unit, look_away), "parameter sets of " + input.name);
    }
    values all;
    for (const h265_nal_reader& unit : input.slices) {
        require(reader.read_slice(unit), "slice headers of " + input.name);
        append_values_of(all, reader.slice);
    }
    return all;
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_SLICE_STREAMS_H
