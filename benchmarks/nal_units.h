#ifndef KOVRAN_BENCHMARKS_NAL_UNITS_H
#define KOVRAN_BENCHMARKS_NAL_UNITS_H

#include <kovran/h265/h265_nal_reader.h>

#include <cstddef>
#include <vector>

#include "inputs.h"

namespace kovran::benchmarks {

// The NAL units of an Annex B stream, each ready to be decoded up to its own end, for what is
// measured of their content.
inline std::vector<h265_nal_reader> nal_units(bytes& stream) {
    std::vector<h265_nal_reader> units;
    unsigned char* const end = stream.data() + stream.size();
    h265_nal_reader next(nalfmt_annex_b);
    next.scan(stream.data(), end);
    while (next.found) {
        units.push_back(next);
        next.scan(next.cursor, end);
        units.back().decode_fence = next.found ? next.frame_begin - next.zero_count : end;
    }
    return units;
}

// Those of one type.
inline std::vector<h265_nal_reader> nal_units(bytes& stream, h265_nal_unit_type type) {
    std::vector<h265_nal_reader> chosen;
    for (const h265_nal_reader& unit : nal_units(stream)) {
        if (unit.nal.nal_unit_type == type) {
            chosen.push_back(unit);
        }
    }
    return chosen;
}

// With the header, without the start code.
inline std::size_t size_of(const h265_nal_reader& unit) {
    return static_cast<std::size_t>(unit.decode_fence - unit.nal_begin);
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_NAL_UNITS_H
