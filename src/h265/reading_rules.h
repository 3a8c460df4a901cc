#ifndef KOVRAN_SRC_H265_READING_RULES_H
#define KOVRAN_SRC_H265_READING_RULES_H

#include "h2645_common/ceil_log2.h"
#include "h2645_common/wrapping.h"
#include "h265/derived_pictures.h"
#include "h265/picture_size.h"
#include "h265/scaling_list_prediction.h"
#include "h265/slice_type.h"
#include "h265/start_afresh.h"
#include "h265/sub_layer_ordering.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kovran {

// For a value that may be whatever its code can hold.
inline constexpr unsigned int no_bound = 0xFFFFFFFF;

// The places where kovran reads otherwise than the standard says, on purpose. A description asks
// `Walker::rules` by name; docs/differences.md lists the same for hosts. What parse() goes by are
// these; hosts rely on them, so they do not change.
struct own_rules {
    // Differs from clause 7.3, where a structure has all its elements: reading goes on past the end
    // of the data, where bits are 0, and counts may announce more than the data can hold.
    static constexpr bool data_may_end = true;
    // Malformed rbsp_trailing_bits() lose the parameter set that they end. By the standard's rules
    // it is taken as read, and the fault is told.
    static constexpr bool trailing_bits_decide = true;
    // Differs from clause 7.4.2.4.2, where parameter sets are bound when they are activated: an SPS
    // needs its VPS before it, a PPS its SPS.
    static constexpr bool needs_named_set = true;
    template <class ParameterSet>
    static bool has_named_set(const ParameterSet* named_set) {
        return named_set != nullptr;
    }

    // Bounds. Each is what a count may be at most, and takes the place of the standard's; values
    // that size no array have none at all.

    // Differs from clause 7.4.4: maxNumSubLayersMinus1 is 6 at most there.
    static constexpr unsigned int max_profile_tier_level_sub_layers = 128;
    // Differs from clause E.3.2: 7 sub-layers, 32 CPB specifications (cpb_cnt_minus1 of 31).
    static constexpr unsigned int max_hrd_sub_layers = 128;
    static constexpr unsigned int max_hrd_cpbs = 128;
    // Differs from clause 7.4.3.1: 1024 layer sets, and as many HRD structures.
    static constexpr unsigned int max_vps_layer_sets = 128;
    static constexpr unsigned int max_vps_hrd_parameters = 128;
    // Differs from clause 7.4.3.2.1: 64 sets, 32 pictures.
    static constexpr unsigned int max_short_term_ref_pic_sets = 128;
    static constexpr unsigned int max_long_term_ref_pics_sps = 128;
    // Differs from clause 7.4.8: sps_max_dec_pic_buffering_minus1 pictures, 15 at most, in both
    // directions together.
    static constexpr unsigned int max_pics_in_one_direction = 128;
    static constexpr unsigned int max_pics_in_reference_set = 127;
    static unsigned int max_positive_pics(unsigned int /*num_negative_pics*/) { return no_bound; }
    // Differs from clause 7.4.3.3.1: as many as the picture has coding tree blocks, less one. Holds
    // only where widths and heights are coded, and there for the number less one.
    static constexpr unsigned int max_tile_columns_minus1 = 128;
    static constexpr unsigned int max_tile_rows_minus1 = 128;
    // Differs from clauses 7.4.3.2.1, 7.4.3.3.1 and 7.4.7.1: identifiers up to 15 and 63, 4 to 16
    // bits of picture order count, 15 reference indices in each list.
    static constexpr unsigned int max_sps_id = no_bound;
    static constexpr unsigned int max_pps_id = no_bound;
    static constexpr unsigned int max_log2_max_pic_order_cnt_lsb_minus4 = no_bound;
    static constexpr unsigned int max_ref_idx_active_minus1 = no_bound;

    // Differs from clauses 7.3.2.2.1 and 7.3.2.3.1: the extensions of an SPS and a PPS are skipped,
    // whatever they are.
    static bool knows_extensions() { return false; }

    // Absent elements.

    // A structure that the stream does not have keeps what its record held.
    template <class Structure>
    static void end_absent_structure(Structure&) {}
    // A reference picture set that is coded outright keeps the flags of one that was predicted.
    template <class Set>
    static void end_absent_prediction(Set&) {}

    // Differs from clause 7.4.4: the profile and the level of a sub-layer that has none in the
    // stream are not those of the layer above it; the host infers them.
    template <class Walker, class ProfileTierLevel>
    static bool infer_absent_sub_layers(Walker&, ProfileTierLevel&) {
        return true;
    }

    // Differs from clauses 7.4.3.1 and 7.4.3.2.1: without sub-layer ordering information only the
    // entry of the highest sub-layer is filled; the host infers the ones below.
    template <class Walker, class... Arrays>
    static void infer_ordering_info(Walker&, unsigned int, Arrays&...) {}

    // Differs from clause 7.4.3.1: the flag of the first HRD structure is not 1 but what the record
    // held, so that the first structure of a fresh record is read without common information. A
    // host that wants the standard's reading sets the entry before it parses.
    template <class Walker, class Flags>
    static void infer_first_cprms_present_flag(Walker&, Flags&) {}

    // Differs from clause 7.4.3.1: a structure without common information goes by what its record
    // held, not by the structure before it.
    template <class Walker, class Hrd>
    static void infer_common_information(Walker&, Hrd&, const Hrd* /*earlier*/) {}

    // Differs from clause E.3.2, where the length is 24 bits when it is absent.
    template <class Walker, class Hrd>
    static void infer_dpb_output_delay_length(Walker&, Hrd&) {}

    // Differs from clause E.3.2: where low_delay_hrd_flag is absent it keeps what the record held,
    // which decides whether cpb_cnt_minus1 is read.
    template <class Walker, class Flags>
    static void infer_low_delay_hrd_flag(Walker&, Flags&, unsigned int) {}

    // Differs from clause E.3.1: elements of the VUI that are absent have inferred values there,
    // not all of them 0.
    template <class Walker, class Vui>
    static void infer_vui_elements(Walker&, Vui&) {}
    template <class Walker, class Sps>
    static void infer_absent_vui(Walker&, Sps&) {}

    // Differs from clause 7.4.3.3.1: a picture of one tile is spaced uniformly there, and its loop
    // filters may cross tiles.
    template <class Walker, class Pps>
    static void infer_single_tile(Walker&, Pps&) {}

    // Differs from clause 7.4.5: a predicted matrix is not filled in from its reference.
    template <class Walker, class ScalingLists>
    static bool end_predicted_scaling_list(Walker&, ScalingLists&, unsigned int /*sizeId*/,
                                           unsigned int /*matrixId*/) {
        return true;
    }

    template <class ScalingLists>
    static void begin_scaling_lists(ScalingLists&) {}

    // Predicted sets.

    // Differs from clause 7.4.8: a predicted set ends without pictures. Equations 7-61 and 7-62 are
    // left to the host, and a set that is predicted from this one has one flag pair to read.
    struct reference_pictures {};
    template <class Set>
    static bool take_reference(const Set&, reference_pictures&) {
        return true;
    }
    template <class Walker, class Set>
    static bool end_predicted_set(Walker& walk, Set& set, const reference_pictures&) {
        walk.assign(set.NumDeltaPocs, set.num_negative_pics + set.num_positive_pics);
        return true;
    }

    // Slice segment headers.

    // Differs from equation 7-19 where sizes are absurd: its sums and products are modulo 2^32.
    template <class Sps>
    static unsigned int pic_size_in_ctbs(const Sps& sps) {
        return wrapping_pic_size_in_ctbs(sps);
    }

    // Differs from clauses 7.4.7.1 and 7.4.7.2, where it is Ceil(Log2(count)): the number of binary
    // digits of a count that is not 0, one more when the count is a power of two.
    static unsigned char index_width(unsigned int count) {
        unsigned char digits = 0;
        for (; count != 0; count >>= 1) {
            ++digits;
        }
        return digits;
    }

    // Differs from clause 7.4.7.1, where the flag is 0 unless it is read: in the first segment of a
    // picture it is what the record held.
    template <class Slice>
    static bool is_dependent(const Slice& slice) {
        return slice.dependent_slice_segment_flag;
    }

    // Differs from clause 7.4.7.1: a set or a candidate that the SPS does not have can be chosen,
    // and the number of long-term pictures has no bound.
    template <class Sps>
    static bool has_set(const Sps&, unsigned int /*short_term_ref_pic_set_idx*/) {
        return true;
    }
    template <class Sps>
    static unsigned int max_long_term_sps(const Sps&) {
        return no_bound;
    }
    static unsigned int max_long_term_pics(unsigned int /*num_long_term_sps*/) { return no_bound; }
    // Differs from equation 7-52: what the SPS says of a candidate is not taken over.
    template <class Walker, class Slice, class Sps>
    static bool take_candidate(Walker&, Slice&, const Sps&, unsigned int /*i*/) {
        return true;
    }
    // Differs from clause 7.4.7.1: a slice_type above 2 reads like an I slice.
    static bool is_slice_type(unsigned int /*slice_type*/) { return true; }

    // Differs from clause 7.3.6.1: where the SPS has no long-term candidates, a slice cannot have
    // long-term pictures of its own.
    template <class Sps>
    static bool can_read_long_term_pics(const Sps& sps) {
        return sps.num_long_term_ref_pics_sps != 0;
    }

    // Differs from clause 7.3.6.1: not read unless long-term pictures are.
    template <class Sps>
    static bool has_temporal_mvp_flag(const Sps& sps) {
        return sps.long_term_ref_pics_present_flag && sps.sps_temporal_mvp_enabled_flag;
    }

    // Differs from equation 7-55: the flags of the SPS are counted by the number of the long-term
    // entry, for entries that the slice itself codes as well as for those that it takes from the
    // SPS.
    template <class Slice, class Sps>
    static unsigned int count_long_term_pics(const Slice& slice, const Sps& sps) {
        const auto& flags = sps.used_by_curr_pic_lt_sps_flag;
        const std::size_t entries = wrapping_sum(slice.num_long_term_sps, slice.num_long_term_pics);
        return static_cast<unsigned int>(std::count(
            flags.begin(),
            flags.begin() + static_cast<std::ptrdiff_t>(std::min(entries, flags.size())), true));
    }

    // Differs from equation 7-55: the current picture is never counted.
    template <class Pps>
    static bool counts_current_picture(const Pps&) {
        return false;
    }

    // Differs from clause 7.3.6.1: a header is read up to ref_pic_lists_modification(), that of a
    // dependent slice segment up to its address.
    static constexpr bool stops_at_prediction = true;

    // SEI messages.

    // Differs from clause D.2.1, where it is 3 as among the prefix messages: the suffix payload
    // type that is called filler_payload.
    static constexpr unsigned int suffix_filler_payload = 0;

    // Differs from clause D.2.3, which asks for both flags.
    template <class Hrd>
    static bool has_decoding_unit_info(const Hrd& hrd) {
        return hrd.sub_pic_hrd_params_present_flag || hrd.sub_pic_cpb_params_in_pic_timing_sei_flag;
    }

    // Differs from clause D.3.3: an absent source_scan_type is not told from the profile's flags.
    template <class Walker, class PicTiming, class Sps>
    static void infer_source_scan_type(Walker&, PicTiming&, const Sps&) {}

    // Differs from clause D.3.2, where an absent irap_cpb_params_present_flag is 0: it is what the
    // record held.
    template <class Walker, class BufferingPeriod>
    static void infer_irap_cpb_params_present_flag(Walker&, BufferingPeriod&) {}

    // Differs from clause D.3.2, where it is that of the highest sub-layer: the CPB count of
    // sub-layer 0.
    template <class Hrd>
    static unsigned int cpb_cnt_minus1(const Hrd& hrd, unsigned int /*highest_sub_layer_plus1*/) {
        return hrd.cpb_cnt_minus1.front();
    }

    // Differs from clause D.3.3: as many as fit NumDecodingUnits, up to the picture's coding tree
    // blocks.
    template <class Sps>
    static std::int64_t max_decoding_units_minus1(const Sps&) {
        return 127;
    }
    // Differs from clause D.3.21: 16 SPS identifiers, and layers up to 62. No VPS that was parsed
    // has more than 64 layers; a record that a host made can.
    static constexpr unsigned int max_active_sps_ids = 128;
    static constexpr unsigned int max_active_layers = 128;
    template <class Vps>
    static unsigned int max_layers_minus1(const Vps& vps) {
        return vps.vps_max_layers_minus1;
    }
};

// H.265 as it stands: what parse_standard() goes by, in a record that starts afresh. Bounds are
// those of the clauses that own_rules names.
struct standard_rules {
    static constexpr bool data_may_end = false;
    static constexpr bool trailing_bits_decide = false;
    static constexpr bool needs_named_set = false;
    template <class ParameterSet>
    static bool has_named_set(const ParameterSet* /*named_set*/) {
        return true;
    }
    static constexpr unsigned int max_profile_tier_level_sub_layers = 6;
    static constexpr unsigned int max_hrd_sub_layers = 7;
    static constexpr unsigned int max_hrd_cpbs = 32;
    static constexpr unsigned int max_vps_layer_sets = 1024;
    static constexpr unsigned int max_vps_hrd_parameters = 1024;
    static constexpr unsigned int max_short_term_ref_pic_sets = 64;
    static constexpr unsigned int max_long_term_ref_pics_sps = 32;
    static constexpr unsigned int max_pics_in_one_direction = short_term_pictures::most;
    static constexpr unsigned int max_pics_in_reference_set = short_term_pictures::most;
    static unsigned int max_positive_pics(unsigned int num_negative_pics) {
        return short_term_pictures::most - num_negative_pics;
    }
    // Of whatever picture: a PPS is bound to its SPS when a slice activates it.
    static constexpr unsigned int max_tile_columns_minus1 = longest_side_in_ctbs - 1;
    static constexpr unsigned int max_tile_rows_minus1 = longest_side_in_ctbs - 1;
    static constexpr unsigned int max_sps_id = 15;
    static constexpr unsigned int max_pps_id = 63;
    static constexpr unsigned int max_log2_max_pic_order_cnt_lsb_minus4 = 12;
    static constexpr unsigned int max_ref_idx_active_minus1 = 14;

    static bool knows_extensions() { return true; }

    // Absent elements.

    template <class Structure>
    static void end_absent_structure(Structure& absent) {
        drop_entries(absent);
    }
    template <class Set>
    static void end_absent_prediction(Set& set) {
        drop_prediction_flags(set);
    }

    template <class Walker, class ProfileTierLevel>
    static bool infer_absent_sub_layers(Walker& walk, ProfileTierLevel& ptl) {
        for (std::size_t i = ptl.sub_layers.size(); i > 0; --i) {
            auto& layer = ptl.sub_layers[i - 1];
            const auto& above = i < ptl.sub_layers.size() ? ptl.sub_layers[i] : ptl.general;
            if (!layer.profile_present_flag && !infer_profile(walk, layer, above)) {
                return false;
            }
            if (!layer.level_present_flag) {
                walk.assign(layer.level_idc, above.level_idc);
            }
        }
        return true;
    }

    template <class Walker, class... Arrays>
    static void infer_ordering_info(Walker& walk, unsigned int highest, Arrays&... arrays) {
        for (unsigned int i = 0; i < highest; ++i) {
            (walk.assign(arrays[i], arrays[highest]), ...);
        }
    }

    template <class Walker, class Flags>
    static void infer_first_cprms_present_flag(Walker& walk, Flags& cprms_present_flag) {
        walk.set(cprms_present_flag[0]);
    }

    template <class Walker, class Hrd>
    static void infer_common_information(Walker& walk, Hrd& hrd, const Hrd* earlier) {
        if (earlier == nullptr) {
            return;
        }
        walk.assign(hrd.nal_hrd_parameters_present_flag, earlier->nal_hrd_parameters_present_flag);
        walk.assign(hrd.vcl_hrd_parameters_present_flag, earlier->vcl_hrd_parameters_present_flag);
        walk.assign(hrd.sub_pic_hrd_params_present_flag, earlier->sub_pic_hrd_params_present_flag);
        walk.assign(hrd.tick_divisor_minus2, earlier->tick_divisor_minus2);
        walk.assign(hrd.du_cpb_removal_delay_increment_length_minus1,
                    earlier->du_cpb_removal_delay_increment_length_minus1);
        walk.assign(hrd.sub_pic_cpb_params_in_pic_timing_sei_flag,
                    earlier->sub_pic_cpb_params_in_pic_timing_sei_flag);
        walk.assign(hrd.dpb_output_delay_du_length_minus1,
                    earlier->dpb_output_delay_du_length_minus1);
        walk.assign(hrd.bit_rate_scale, earlier->bit_rate_scale);
        walk.assign(hrd.cpb_size_scale, earlier->cpb_size_scale);
        walk.assign(hrd.cpb_size_du_scale, earlier->cpb_size_du_scale);
        walk.assign(hrd.initial_cpb_removal_delay_length_minus1,
                    earlier->initial_cpb_removal_delay_length_minus1);
        walk.assign(hrd.au_cpb_removal_delay_length_minus1,
                    earlier->au_cpb_removal_delay_length_minus1);
        walk.assign(hrd.dpb_output_delay_length_minus1, earlier->dpb_output_delay_length_minus1);
    }

    template <class Walker, class Hrd>
    static void infer_dpb_output_delay_length(Walker& walk, Hrd& hrd) {
        walk.assign(hrd.dpb_output_delay_length_minus1, 23);
    }

    template <class Walker, class Flags>
    static void infer_low_delay_hrd_flag(Walker& walk, Flags& low_delay_hrd_flag, unsigned int i) {
        walk.clear(low_delay_hrd_flag[i]);
    }

    template <class Walker, class Vui>
    static void infer_vui_elements(Walker& walk, Vui& vui) {
        constexpr unsigned int unspecified = 2;
        walk.assign(vui.video_format, 5);
        walk.assign(vui.colour_primaries, unspecified);
        walk.assign(vui.transfer_characteristics, unspecified);
        walk.assign(vui.matrix_coeffs, unspecified);
        walk.set(vui.motion_vectors_over_pic_boundaries_flag);
        walk.assign(vui.max_bytes_per_pic_denom, 2);
        walk.assign(vui.max_bits_per_min_cu_denom, 1);
        walk.assign(vui.log2_max_mv_length_horizontal, 15);
        walk.assign(vui.log2_max_mv_length_vertical, 15);
    }
    template <class Walker, class Sps>
    static void infer_absent_vui(Walker& walk, Sps& sps) {
        const auto& general = sps.profile_tier_level.general;
        infer_vui_elements(walk, sps.vui_parameters);
        walk.assign(sps.vui_parameters.frame_field_info_present_flag,
                    general.progressive_source_flag && general.interlaced_source_flag);
    }

    template <class Walker, class Pps>
    static void infer_single_tile(Walker& walk, Pps& pps) {
        walk.set(pps.uniform_spacing_flag);
        walk.set(pps.loop_filter_across_tiles_enabled_flag);
    }

    template <class ScalingLists>
    static void begin_scaling_lists(ScalingLists& lists) {
        start_matrices_afresh(lists);
    }
    template <class Walker, class ScalingLists>
    static bool end_predicted_scaling_list(Walker& walk, ScalingLists& lists, unsigned int sizeId,
                                           unsigned int matrixId) {
        return predict_scaling_list(walk, lists, sizeId, matrixId);
    }

    // Predicted sets.

    using reference_pictures = short_term_pictures;
    template <class Set>
    static bool take_reference(const Set& reference, reference_pictures& pictures) {
        return pictures_of(reference, pictures) && pictures.size() == reference.NumDeltaPocs;
    }
    template <class Walker, class Set>
    static bool end_predicted_set(Walker& walk, Set& set, const reference_pictures& reference) {
        short_term_pictures pictures;
        if (!predict_pictures(reference, set, pictures)) {
            return false;
        }
        const std::size_t negative = pictures.num_negative();
        const std::size_t positive = pictures.size() - negative;
        if (!walk.grow(negative, set.delta_poc_s0_minus1, set.used_by_curr_pic_s0_flag) ||
            !walk.grow(positive, set.delta_poc_s1_minus1, set.used_by_curr_pic_s1_flag)) {
            return false;
        }
        for (std::size_t i = 0; i < negative; ++i) {
            const std::int64_t nearer = i > 0 ? pictures[i - 1].delta_poc : 0;
            walk.assign(set.delta_poc_s0_minus1[i], nearer - pictures[i].delta_poc - 1);
            walk.assign(set.used_by_curr_pic_s0_flag[i], pictures[i].used_by_curr_pic);
        }
        for (std::size_t i = 0; i < positive; ++i) {
            const auto& picture = pictures[negative + i];
            const std::int64_t nearer = i > 0 ? pictures[negative + i - 1].delta_poc : 0;
            walk.assign(set.delta_poc_s1_minus1[i], picture.delta_poc - nearer - 1);
            walk.assign(set.used_by_curr_pic_s1_flag[i], picture.used_by_curr_pic);
        }
        walk.assign(set.num_negative_pics, negative);
        walk.assign(set.num_positive_pics, positive);
        walk.assign(set.NumDeltaPocs, pictures.size());
        return true;
    }

    // Slice segment headers.

    // 0, as for a size that makes no sense, from 2^32 blocks on.
    template <class Sps>
    static unsigned int pic_size_in_ctbs(const Sps& sps) {
        const std::uint64_t PicSizeInCtbsY = kovran::pic_size_in_ctbs(sps);
        return PicSizeInCtbsY >> 32 == 0 ? static_cast<unsigned int>(PicSizeInCtbsY) : 0;
    }

    static unsigned char index_width(unsigned int count) { return ceil_log2(count); }

    template <class Slice>
    static bool is_dependent(const Slice& slice) {
        return !slice.first_slice_segment_in_pic_flag && slice.dependent_slice_segment_flag;
    }

    template <class Sps>
    static bool has_set(const Sps& sps, unsigned int short_term_ref_pic_set_idx) {
        return short_term_ref_pic_set_idx < sps.num_short_term_ref_pic_sets;
    }
    template <class Sps>
    static unsigned int max_long_term_sps(const Sps& sps) {
        return std::min(max_dpb_size, sps.num_long_term_ref_pics_sps);
    }
    static unsigned int max_long_term_pics(unsigned int num_long_term_sps) {
        return max_dpb_size - num_long_term_sps;
    }
    template <class Walker, class Slice, class Sps>
    static bool take_candidate(Walker& walk, Slice& slice, const Sps& sps, unsigned int i) {
        const std::size_t candidate = slice.lt_idx_sps[i];
        if (candidate >= sps.lt_ref_pic_poc_lsb_sps.size() ||
            candidate >= sps.used_by_curr_pic_lt_sps_flag.size()) {
            return false;
        }
        walk.assign(slice.poc_lsb_lt[i], sps.lt_ref_pic_poc_lsb_sps[candidate]);
        walk.assign(slice.used_by_curr_pic_lt_flag[i], sps.used_by_curr_pic_lt_sps_flag[candidate]);
        return true;
    }
    static bool is_slice_type(unsigned int slice_type) { return slice_type <= slice_type_i; }

    template <class Sps>
    static bool can_read_long_term_pics(const Sps&) {
        return true;
    }

    template <class Sps>
    static bool has_temporal_mvp_flag(const Sps& sps) {
        return sps.sps_temporal_mvp_enabled_flag;
    }

    template <class Slice, class Sps>
    static unsigned int count_long_term_pics(const Slice& slice, const Sps&) {
        const auto& flags = slice.used_by_curr_pic_lt_flag;
        return static_cast<unsigned int>(std::count(flags.begin(), flags.end(), true));
    }

    template <class Pps>
    static bool counts_current_picture(const Pps& pps) {
        return pps.pps_scc_extension.pps_curr_pic_ref_enabled_flag;
    }

    static constexpr bool stops_at_prediction = false;

    // SEI messages.

    static constexpr unsigned int suffix_filler_payload = 3;

    template <class Hrd>
    static bool has_decoding_unit_info(const Hrd& hrd) {
        return hrd.sub_pic_hrd_params_present_flag && hrd.sub_pic_cpb_params_in_pic_timing_sei_flag;
    }

    template <class Walker, class PicTiming, class Sps>
    static void infer_source_scan_type(Walker& walk, PicTiming& timing, const Sps& sps) {
        constexpr unsigned int unknown = 2;
        const auto& general = sps.profile_tier_level.general;
        if (general.progressive_source_flag != general.interlaced_source_flag) {
            walk.assign(timing.source_scan_type, general.progressive_source_flag ? 1 : 0);
        } else {
            walk.assign(timing.source_scan_type, unknown);
        }
    }

    template <class Walker, class BufferingPeriod>
    static void infer_irap_cpb_params_present_flag(Walker& walk, BufferingPeriod& period) {
        walk.clear(period.irap_cpb_params_present_flag);
    }

    template <class Hrd>
    static unsigned int cpb_cnt_minus1(const Hrd& hrd, unsigned int highest_sub_layer_plus1) {
        const auto& counts = hrd.cpb_cnt_minus1;
        const bool is_limited =
            highest_sub_layer_plus1 != 0 && highest_sub_layer_plus1 <= counts.size();
        return is_limited ? counts[highest_sub_layer_plus1 - 1] : counts.back();
    }

    // -1 for a picture without blocks.
    template <class Sps>
    static std::int64_t max_decoding_units_minus1(const Sps& sps) {
        // The largest picture of table A.8 in the smallest coding tree blocks.
        constexpr std::uint64_t largest_picture = 35651584 / (16 * 16);
        return static_cast<std::int64_t>(std::min(kovran::pic_size_in_ctbs(sps), largest_picture)) -
               1;
    }
    static constexpr unsigned int max_active_sps_ids = 16;
    static constexpr unsigned int max_active_layers = 63;
    // MaxLayersMinus1, clause F.7.4.3.1.
    template <class Vps>
    static unsigned int max_layers_minus1(const Vps& vps) {
        return std::min<unsigned int>(62, vps.vps_max_layers_minus1);
    }

private:
    template <class Walker, class Layer>
    static bool infer_profile(Walker& walk, Layer& layer, const Layer& above) {
        if (!walk.grow(above.profile_compatibility_flag.size(), layer.profile_compatibility_flag)) {
            return false;
        }
        layer.profile_compatibility_flag = above.profile_compatibility_flag;  // by words
        walk.assign(layer.profile_space, above.profile_space);
        walk.assign(layer.profile_idc, above.profile_idc);
        walk.assign(layer.tier_flag, above.tier_flag);
        walk.assign(layer.progressive_source_flag, above.progressive_source_flag);
        walk.assign(layer.interlaced_source_flag, above.interlaced_source_flag);
        walk.assign(layer.non_packed_constraint_flag, above.non_packed_constraint_flag);
        walk.assign(layer.frame_only_constraint_flag, above.frame_only_constraint_flag);
        walk.assign(layer.max_12bit_constraint_flag, above.max_12bit_constraint_flag);
        walk.assign(layer.max_10bit_constraint_flag, above.max_10bit_constraint_flag);
        walk.assign(layer.max_8bit_constraint_flag, above.max_8bit_constraint_flag);
        walk.assign(layer.max_422chroma_constraint_flag, above.max_422chroma_constraint_flag);
        walk.assign(layer.max_420chroma_constraint_flag, above.max_420chroma_constraint_flag);
        walk.assign(layer.max_monochrome_constraint_flag, above.max_monochrome_constraint_flag);
        walk.assign(layer.intra_constraint_flag, above.intra_constraint_flag);
        walk.assign(layer.one_picture_only_constraint_flag, above.one_picture_only_constraint_flag);
        walk.assign(layer.lower_bit_rate_constraint_flag, above.lower_bit_rate_constraint_flag);
        walk.assign(layer.max_14bit_constraint_flag, above.max_14bit_constraint_flag);
        walk.assign(layer.inbld_flag, above.inbld_flag);
        return true;
    }
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_READING_RULES_H
