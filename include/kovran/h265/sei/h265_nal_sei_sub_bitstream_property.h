#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_SUB_BITSTREAM_PROPERTY_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_SUB_BITSTREAM_PROPERTY_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// sub_bitstream_property(), clause F.14.2.
struct h265_nal_sei_sub_bitstream_property {
    static constexpr unsigned int payload_type = 164;
    static constexpr const char* payload_name = "sub_bitstream_property";

    unsigned char sb_property_active_vps_id = 0;         // u(4)
    unsigned int num_additional_sub_streams_minus1 = 0;  // ue(v)

    // A sub-bitstream that can be extracted. Bit rates are as avg_bit_rate in a VPS.
    struct sub_stream_t {
        unsigned char sub_bitstream_mode = 0;         // u(2)
        unsigned int ols_idx_to_vps = 0;              // ue(v)
        unsigned char highest_sublayer_id = 0;        // u(3)
        unsigned short avg_sb_property_bit_rate = 0;  // u(16)
        unsigned short max_sb_property_bit_rate = 0;  // u(16)
    };
    std::vector<sub_stream_t> sub_streams;  // num_additional_sub_streams_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more sub-bitstreams than the data can hold; the data ends; or there
    // is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_SUB_BITSTREAM_PROPERTY_H
