#ifndef KOVRAN_H265_H265_COLOUR_MAPPING_TABLE_H
#define KOVRAN_H265_H265_COLOUR_MAPPING_TABLE_H

#include <array>
#include <vector>

namespace kovran {

// colour_mapping_table(), clause F.7.3.2.3.5, with its colour_mapping_octants(), clause
// F.7.3.2.3.6, as h265_nal_pps::parse_standard() reads it. Without the table all fields are 0,
// false or empty.
struct h265_colour_mapping_table {
    unsigned int num_cm_ref_layers_minus1 = 0;   // ue(v)
    std::vector<unsigned char> cm_ref_layer_id;  // u(6), num_cm_ref_layers_minus1 + 1 entries

    unsigned char cm_octant_depth = 0;     // u(2)
    unsigned char cm_y_part_num_log2 = 0;  // u(2)

    unsigned int luma_bit_depth_cm_input_minus8 = 0;     // ue(v)
    unsigned int chroma_bit_depth_cm_input_minus8 = 0;   // ue(v)
    unsigned int luma_bit_depth_cm_output_minus8 = 0;    // ue(v)
    unsigned int chroma_bit_depth_cm_output_minus8 = 0;  // ue(v)

    unsigned char cm_res_quant_bits = 0;         // u(2)
    unsigned char cm_delta_flc_bits_minus1 = 0;  // u(2)

    int cm_adapt_threshold_u_delta = 0;  // se(v), when cm_octant_depth is 1
    int cm_adapt_threshold_v_delta = 0;  // se(v), likewise

    bool split_octant_flag = false;  // u(1), when cm_octant_depth is 1

    // A part of an octant, and where it stands. Coefficients have the index of a vertex, then that
    // of a colour component; they are 0 without coded_res_flag.
    struct part_t {
        unsigned char idxShiftY = 0;
        unsigned char idxCb = 0;
        unsigned char idxCr = 0;
        std::array<bool, 4> coded_res_flag{};                      // u(1)
        std::array<std::array<unsigned int, 3>, 4> res_coeff_q{};  // ue(v)
        std::array<std::array<unsigned int, 3>, 4> res_coeff_r{};  // u(v)
        std::array<std::array<bool, 3>, 4> res_coeff_s{};          // u(1), unless both are 0
    };
    // In coded order: 1 << cm_y_part_num_log2 of each octant, of which split_octant_flag makes 8.
    std::vector<part_t> parts;
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_COLOUR_MAPPING_TABLE_H
