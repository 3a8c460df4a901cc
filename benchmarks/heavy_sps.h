#ifndef KOVRAN_BENCHMARKS_HEAVY_SPS_H
#define KOVRAN_BENCHMARKS_HEAVY_SPS_H

#include "inputs.h"

namespace kovran::benchmarks {

// The RBSP of an SPS with about as many elements as the standard allows: 64 short-term sets of 15
// pictures, all scaling lists, and HRD parameters of 7 sub-layers with 32 CPBs each, for NAL and
// VCL. It refers to VPS 0.
[[nodiscard]] bytes heavy_sps();

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_HEAVY_SPS_H
