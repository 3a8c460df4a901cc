#ifndef KOVRAN_H265_H265_HRD_RATES_H
#define KOVRAN_H265_H265_HRD_RATES_H

#include <kovran/export.h>
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>

#include <cstddef>
#include <cstdint>

namespace kovran {

// The rates and buffers of a CPB that sub_layer_hrd_parameters() lists, clause E.3.3. Those of
// decoding units are 0 without sub-picture parameters.
struct h265_hrd_rates {
    std::uint64_t BitRate = 0;    // bits in a second
    std::uint64_t CpbSize = 0;    // bits
    std::uint64_t BitRateDu = 0;  // bits in a second, for decoding units
    std::uint64_t CpbSizeDu = 0;  // bits, likewise
    bool cbr_flag = false;        // the rate is constant
};

// Of entry `cpb` of a structure in `hrd`; all 0 where the structure has no such entry.
[[nodiscard]] KOVRAN_API h265_hrd_rates
h265_hrd_rates_of(const h265_hrd_parameters& hrd,
                  const h265_nal_sub_layer_hrd_parameters& sub_layer, std::size_t cpb);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_HRD_RATES_H
