#ifndef KOVRAN_BENCHMARKS_PARAMETER_SET_STREAMS_H
#define KOVRAN_BENCHMARKS_PARAMETER_SET_STREAMS_H

#include <kovran/h265/h265_nal_reader.h>

#include <string>
#include <vector>

#include "inputs.h"

namespace kovran::benchmarks {

// A VPS, an SPS and a PPS that go together.
struct parameter_set_stream {
    std::string name;
    bytes stream;
    h265_nal_reader vps;
    h265_nal_reader sps;
    h265_nal_reader pps;
};

// Those of an ordinary stream, of one with HRD and HDR, and of the heaviest that is legal.
[[nodiscard]] std::vector<parameter_set_stream>& parameter_set_streams();

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_PARAMETER_SET_STREAMS_H
