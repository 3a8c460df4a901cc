#ifndef KOVRAN_TESTS_SUPPORT_PARAMETER_SETS_H
#define KOVRAN_TESTS_SUPPORT_PARAMETER_SETS_H

#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_profile_tier_level.h>
#include <kovran/h265/h265_scaling_list_data.h>
#include <kovran/h265/h265_vui_parameters.h>

#include <cstddef>
#include <vector>

#include "support/bit_writer.h"

// Parameter sets to parse: the smallest ones, of which a test replaces the group of elements that
// it is about, and full ones, beside the records that they make of fresh records.
namespace kovran::test {

bit_writer& append(bit_writer& bits, const bit_writer& more);
bit_writer first_bits(const bit_writer& bits, std::size_t count);
std::vector<bool> flags_of(const bit_writer& bits);

// Profile 1 with its compatibility flag, level 3.1.
bit_writer minimal_profile_tier_level();

// video_parameter_set_rbsp(), by groups of elements in coded order.
struct vps_syntax {
    bit_writer header = bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(0).u<3>(0).u<1>(1).u<16>(0xFFFF);
    bit_writer profile_tier_level = minimal_profile_tier_level();
    bit_writer sub_layer_ordering_info = bit_writer().u<1>(1).ue(0).ue(0).ue(0);
    bit_writer layer_sets = bit_writer().u<6>(0).ue(0);
    bit_writer timing_info = bit_writer().u<1>(0);
    bit_writer extension = bit_writer().u<1>(0);

    bit_writer payload() const;
    bit_writer rbsp() const { return payload().trailing_bits(); }
};

// seq_parameter_set_rbsp(), likewise.
struct sps_syntax {
    bit_writer header = bit_writer().u<4>(0).u<3>(0).u<1>(1);
    bit_writer profile_tier_level = minimal_profile_tier_level();
    bit_writer sps_seq_parameter_set_id = bit_writer().ue(0);
    bit_writer chroma_format = bit_writer().ue(1);
    bit_writer picture_size = bit_writer().ue(64).ue(64);
    bit_writer conformance_window = bit_writer().u<1>(0);
    bit_writer bit_depths = bit_writer().ue(0).ue(0);
    bit_writer log2_max_pic_order_cnt_lsb_minus4 = bit_writer().ue(4);
    bit_writer sub_layer_ordering_info = bit_writer().u<1>(1).ue(0).ue(0).ue(0);
    bit_writer block_sizes = bit_writer().ue(0).ue(3).ue(0).ue(3).ue(0).ue(0);
    bit_writer scaling_list = bit_writer().u<1>(0);
    bit_writer amp_and_sao = bit_writer().u<1>(0).u<1>(0);
    bit_writer pcm = bit_writer().u<1>(0);
    bit_writer short_term_ref_pic_sets = bit_writer().ue(0);
    bit_writer long_term_ref_pics = bit_writer().u<1>(0);
    bit_writer motion_and_smoothing = bit_writer().u<1>(0).u<1>(0);
    bit_writer vui = bit_writer().u<1>(0);
    bit_writer extension = bit_writer().u<1>(0);

    bit_writer payload() const;
    bit_writer rbsp() const { return payload().trailing_bits(); }
};

// pic_parameter_set_rbsp(), likewise.
struct pps_syntax {
    bit_writer identifiers = bit_writer().ue(0).ue(0);
    bit_writer slice_header = bit_writer().u<1>(0).u<1>(0).u<3>(0).u<1>(0).u<1>(0);
    bit_writer reference_indices = bit_writer().ue(0).ue(0);
    bit_writer init_qp_minus26 = bit_writer().se(0);
    bit_writer intra_and_transform_skip = bit_writer().u<1>(0).u<1>(0);
    bit_writer cu_qp_delta = bit_writer().u<1>(0);
    bit_writer chroma_qp_offsets = bit_writer().se(0).se(0).u<1>(0);
    bit_writer weighting_and_bypass = bit_writer().u<1>(0).u<1>(0).u<1>(0);
    bit_writer tiles = bit_writer().u<1>(0).u<1>(0);  // with entropy_coding_sync_enabled_flag
    bit_writer loop_filter_across_slices = bit_writer().u<1>(0);
    bit_writer deblocking = bit_writer().u<1>(0);
    bit_writer scaling_list = bit_writer().u<1>(0);
    bit_writer lists_and_merge_level = bit_writer().u<1>(0).ue(0).u<1>(0);
    bit_writer extension = bit_writer().u<1>(0);

    bit_writer payload() const;
    bit_writer rbsp() const { return payload().trailing_bits(); }
};

// A structure in which every element of its syntax is present, and what a fresh record holds after
// it has been read.
template <class Record, class Syntax = bit_writer>
struct sample {
    Syntax syntax;
    Record record;
};

// All are of streams with three sub-layers.
constexpr unsigned int sample_max_sub_layers_minus1 = 2;

sample<h265_profile_tier_level> full_profile_tier_level();
sample<h265_hrd_parameters> full_hrd_parameters();           // with common information
sample<h265_hrd_parameters> hrd_parameters_of_sub_layers();  // without
sample<h265_scaling_list_data> full_scaling_list_data();
sample<h265_st_ref_pic_set> explicit_st_ref_pic_set();   // set 0, with three pictures
sample<h265_st_ref_pic_set> predicted_st_ref_pic_set();  // set 1, from set 0
sample<h265_vui_parameters> full_vui_parameters();

// With two HRD structures, of which the first is read without common information.
sample<h265_nal_vps, vps_syntax> full_vps();
// With four short-term sets: set 0, set 1 from set 0, set 2 from set 1, and an empty one.
sample<h265_nal_sps, sps_syntax> full_sps();
sample<h265_nal_pps, pps_syntax> full_pps();

// The extension of each full parameter set: its flag, then these bits.
constexpr unsigned int extension_data_bits = 7;
constexpr unsigned int extension_data = 0b0010110;

// Where the first 1 bit of the extension stands, from the flag on.
constexpr std::size_t extension_first_one = 3;

// Stores that hold what the full and the minimal parameter sets refer to.
h2645_common_base_store<h265_nal_vps> vps_store_with(unsigned int id);
h2645_common_base_store<h265_nal_sps> sps_store_with(unsigned int id);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_PARAMETER_SETS_H
