#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_SHUTTER_INTERVAL_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_SHUTTER_INTERVAL_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// shutter_interval_info(), clause D.2.48.
struct h265_nal_sei_shutter_interval_info {
    static constexpr unsigned int payload_type = 205;
    static constexpr const char* payload_name = "shutter_interval_info";

    unsigned int sii_time_scale = 0;  // u(32): units in a second

    // The shutter is open for so many units: one number for all pictures, or one for each
    // sub-layer.
    bool fixed_shutter_interval_within_clvs_flag = false;  // u(1)
    unsigned int sii_num_units_in_shutter_interval = 0;    // u(32), when the flag is set

    // Otherwise: sii_max_sub_layers_minus1 + 1 entries.
    unsigned char sii_max_sub_layers_minus1 = 0;                        // u(3)
    std::vector<unsigned int> sub_layer_num_units_in_shutter_interval;  // u(32)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more sub-layers than the data can hold, the data ends, or there is
    // no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_SHUTTER_INTERVAL_INFO_H
