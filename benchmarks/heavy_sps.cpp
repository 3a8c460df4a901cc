#include "heavy_sps.h"

#include "support/bit_writer.h"

namespace kovran::benchmarks {
namespace {

constexpr unsigned int sub_layers = 7;
constexpr unsigned int cpbs = 32;
constexpr unsigned int short_term_sets = 64;
constexpr unsigned int pictures_before = 8;
constexpr unsigned int pictures_after = 7;

using test::bit_writer;

void profile_and_level(bit_writer& bits) {
    bits.u<2>(0).u<1>(1).u<5>(1);          // profile_space, tier_flag, profile_idc
    bits.u<32>(0x60000000);                // compatible with profiles 1 and 2
    bits.u<1>(1).u<1>(0).u<1>(1).u<1>(1);  // progressive, ..., frame only
    bits.u<43>(0).u<1>(0);                 //
    bits.u<8>(186);                        // level 6.2
}

void profile_tier_level(bit_writer& bits) {
    profile_and_level(bits);
    for (unsigned int i = 0; i < sub_layers - 1; ++i) {
        bits.u<1>(0).u<1>(1);  // sub_layer_profile_present_flag, sub_layer_level_present_flag
    }
    bits.u(2 * (8 - (sub_layers - 1)), 0);  // reserved_zero_2bits
    for (unsigned int i = 0; i < sub_layers - 1; ++i) {
        bits.u<8>(120 + i * 3);  // sub_layer_level_idc
    }
}

void scaling_lists(bit_writer& bits) {
    for (unsigned int size_id = 0; size_id < 4; ++size_id) {
        for (unsigned int matrix_id = 0; matrix_id < 6; matrix_id += size_id == 3 ? 3 : 1) {
            bits.u<1>(1);  // scaling_list_pred_mode_flag
            if (size_id > 1) {
                bits.se(8);  // scaling_list_dc_coef_minus8
            }
            bits.se(8);  // scaling_list_delta_coef
            for (unsigned int i = 1; i < (size_id == 0 ? 16 : 64); ++i) {
                bits.se(static_cast<int>((i + matrix_id) % 5) - 2);  // scaling_list_delta_coef
            }
        }
    }
}

void short_term_ref_pic_sets(bit_writer& bits) {
    bits.ue(short_term_sets);
    for (unsigned int i = 0; i < short_term_sets; ++i) {
        if (i != 0) {
            bits.u<1>(0);  // inter_ref_pic_set_prediction_flag
        }
        bits.ue(pictures_before).ue(pictures_after);
        for (unsigned int j = 0; j < pictures_before + pictures_after; ++j) {
            bits.ue((i + j) % 9).u<1>((i + j) % 2);  // delta_poc_minus1, used_by_curr_pic_flag
        }
    }
}

void sub_layer_hrd(bit_writer& bits, unsigned int sub_layer) {
    for (unsigned int cpb = 0; cpb < cpbs; ++cpb) {
        bits.ue(1000 * (sub_layer + 1) + 500 * cpb);    // bit_rate_value_minus1, ascending
        bits.ue(90000 + 1000 * sub_layer - 100 * cpb);  // cpb_size_value_minus1, descending
        bits.ue(45000 + 1000 * sub_layer - 100 * cpb);  // cpb_size_du_value_minus1
        bits.ue(500 * (sub_layer + 1) + 250 * cpb);     // bit_rate_du_value_minus1
        bits.u<1>(cpb % 2);                             // cbr_flag
    }
}

void hrd_parameters(bit_writer& bits) {
    bits.u<1>(1).u<1>(1);  // for NAL and for VCL
    bits.u<1>(1);          // sub_pic_hrd_params_present_flag
    bits.u<8>(98).u<5>(23).u<1>(1).u<5>(23);
    bits.u<4>(2).u<4>(2).u<4>(2);     // scales
    bits.u<5>(23).u<5>(23).u<5>(23);  // lengths
    for (unsigned int i = 0; i < sub_layers; ++i) {
        bits.u<1>(1);  // fixed_pic_rate_general_flag
        bits.ue(2);    // elemental_duration_in_tc_minus1
        bits.ue(cpbs - 1);
        sub_layer_hrd(bits, i);
        sub_layer_hrd(bits, i);
    }
}

void vui_parameters(bit_writer& bits) {
    bits.u<1>(1).u<8>(255).u<16>(40).u<16>(33);                     // sample aspect ratio
    bits.u<1>(1).u<1>(0);                                           // overscan
    bits.u<1>(1).u<3>(5).u<1>(0).u<1>(1).u<8>(9).u<8>(16).u<8>(9);  // video signal
    bits.u<1>(1).ue(2).ue(2);                                       // chroma location
    bits.u<1>(0).u<1>(0).u<1>(1);                         // frame_field_info_present_flag is set
    bits.u<1>(1).ue(1).ue(2).ue(3).ue(4);                 // default display window
    bits.u<1>(1).u<32>(1001).u<32>(60000).u<1>(1).ue(0);  // timing
    bits.u<1>(1);
    hrd_parameters(bits);
    bits.u<1>(1).u<1>(0).u<1>(1).u<1>(0).ue(0).ue(2).ue(1).ue(15).ue(15);  // restrictions
}

}  // namespace

bytes heavy_sps() {
    bit_writer bits;
    bits.u<4>(0).u<3>(sub_layers - 1).u<1>(1);  // sps_temporal_id_nesting_flag is set
    profile_tier_level(bits);
    bits.ue(0).ue(1);                      // sps_seq_parameter_set_id, 4:2:0
    bits.ue(7680).ue(4320);                // picture size
    bits.u<1>(1).ue(4).ue(4).ue(4).ue(4);  // conformance window
    bits.ue(0).ue(0).ue(12);               // bit depths, log2_max_pic_order_cnt_lsb_minus4
    bits.u<1>(1);
    for (unsigned int i = 0; i < sub_layers; ++i) {
        bits.ue(15).ue(i / 2).ue(i);  // sub-layer ordering
    }
    bits.ue(0).ue(3).ue(0).ue(3).ue(2).ue(2);  // block sizes and depths
    bits.u<1>(1).u<1>(1);
    scaling_lists(bits);
    bits.u<1>(1).u<1>(1);                              // amp, sample adaptive offset
    bits.u<1>(1).u<4>(7).u<4>(7).ue(0).ue(2).u<1>(1);  // pcm
    short_term_ref_pic_sets(bits);
    bits.u<1>(1).ue(32);
    for (unsigned int i = 0; i < 32; ++i) {
        bits.u<16>(i * 100).u<1>(i % 2);  // long-term pictures
    }
    bits.u<1>(1).u<1>(1);  // sps_temporal_mvp_enabled_flag, strong_intra_smoothing_enabled_flag
    bits.u<1>(1);
    vui_parameters(bits);
    bits.u<1>(0);  // sps_extension_flag
    return bits.trailing_bits().bytes();
}

}  // namespace kovran::benchmarks
