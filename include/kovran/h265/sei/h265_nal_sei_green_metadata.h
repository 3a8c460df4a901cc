#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_GREEN_METADATA_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_GREEN_METADATA_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// green_metadata(), clause D.2.18. No stream with green_metadata_type 0 has been seen; it is read
// as encoders of HEVC are understood to write it.
struct h265_nal_sei_green_metadata {
    static constexpr unsigned int payload_type = 56;
    static constexpr const char* payload_name = "green_metadata";

    unsigned char green_metadata_type = 0;  // u(8)

    // When green_metadata_type is 0: how complex the pictures of a period are to decode.
    unsigned char period_type = 0;    // u(8)
    unsigned short num_seconds = 0;   // u(16), when period_type is 2
    unsigned short num_pictures = 0;  // u(16), when period_type is 3

    // Likewise. Portions are in units of 1 / 255.
    unsigned char portion_non_zero_blocks_area = 0;             // u(8)
    unsigned char portion_8x8_blocks_in_non_zero_area = 0;      // u(8), when that is not 0
    unsigned char portion_16x16_blocks_in_non_zero_area = 0;    // u(8), likewise
    unsigned char portion_32x32_blocks_in_non_zero_area = 0;    // u(8), likewise
    unsigned char portion_intra_predicted_blocks_area = 0;      // u(8)
    unsigned char portion_planar_blocks_in_intra_area = 0;      // u(8), when that is 255
    unsigned char portion_dc_blocks_in_intra_area = 0;          // u(8), likewise
    unsigned char portion_angular_hv_blocks_in_intra_area = 0;  // u(8), likewise
    unsigned char portion_blocks_a_c_d_n_filterings = 0;        // u(8), when it is not 255
    unsigned char portion_blocks_h_b_filterings = 0;            // u(8), likewise
    unsigned char portion_blocks_f_i_k_q_filterings = 0;        // u(8), likewise
    unsigned char portion_blocks_j_filterings = 0;              // u(8), likewise
    unsigned char portion_blocks_e_g_p_r_filterings = 0;        // u(8), likewise
    unsigned char portion_deblocking_instances = 0;             // u(8)

    // When green_metadata_type is 1: the quality of the last picture of a segment.
    unsigned char xsd_metric_type = 0;    // u(8)
    unsigned short xsd_metric_value = 0;  // u(16)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

// green_metadata_type in words, for display: "complexity metrics" for 0, "quality recovery metrics"
// for 1, clause D.3.18; "" for all others, never null.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_green_metadata_type_to_str(
    unsigned int green_metadata_type);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_GREEN_METADATA_H
