#ifndef KOVRAN_SRC_H265_NOTING_RULES_H
#define KOVRAN_SRC_H265_NOTING_RULES_H

#include "h2645_common/rule_notes.h"
#include "h265/reading_rules.h"

#include <algorithm>

namespace kovran {

// own_rules that note where standard_rules would have decided otherwise. Rules that only give
// values to absent elements, and do not change what is read, are not noted.
struct noting_rules : own_rules, rule_notes {
    using bound = noted_bound<unsigned int>;

    static constexpr bound max_profile_tier_level_sub_layers = {
        "max_profile_tier_level_sub_layers", own_rules::max_profile_tier_level_sub_layers,
        standard_rules::max_profile_tier_level_sub_layers};
    static constexpr bound max_hrd_sub_layers = {
        "max_hrd_sub_layers", own_rules::max_hrd_sub_layers, standard_rules::max_hrd_sub_layers};
    static constexpr bound max_hrd_cpbs = {"max_hrd_cpbs", own_rules::max_hrd_cpbs,
                                           standard_rules::max_hrd_cpbs};
    static constexpr bound max_vps_layer_sets = {
        "max_vps_layer_sets", own_rules::max_vps_layer_sets, standard_rules::max_vps_layer_sets};
    static constexpr bound max_vps_hrd_parameters = {"max_vps_hrd_parameters",
                                                     own_rules::max_vps_hrd_parameters,
                                                     standard_rules::max_vps_hrd_parameters};
    static constexpr bound max_short_term_ref_pic_sets = {
        "max_short_term_ref_pic_sets", own_rules::max_short_term_ref_pic_sets,
        standard_rules::max_short_term_ref_pic_sets};
    static constexpr bound max_long_term_ref_pics_sps = {
        "max_long_term_ref_pics_sps", own_rules::max_long_term_ref_pics_sps,
        standard_rules::max_long_term_ref_pics_sps};
    static constexpr bound max_pics_in_one_direction = {"max_pics_in_one_direction",
                                                        own_rules::max_pics_in_one_direction,
                                                        standard_rules::max_pics_in_one_direction};
    static constexpr bound max_pics_in_reference_set = {"max_pics_in_reference_set",
                                                        own_rules::max_pics_in_reference_set,
                                                        standard_rules::max_pics_in_reference_set};
    bound max_positive_pics(unsigned int num_negative_pics) {
        return {"max_positive_pics", own_rules::max_positive_pics(num_negative_pics),
                standard_rules::max_positive_pics(
                    std::min<unsigned int>(num_negative_pics, short_term_pictures::most))};
    }
    static constexpr bound max_tile_columns_minus1 = {"max_tile_columns_minus1",
                                                      own_rules::max_tile_columns_minus1,
                                                      standard_rules::max_tile_columns_minus1};
    static constexpr bound max_tile_rows_minus1 = {"max_tile_rows_minus1",
                                                   own_rules::max_tile_rows_minus1,
                                                   standard_rules::max_tile_rows_minus1};
    static constexpr bound max_sps_id = {"max_sps_id", own_rules::max_sps_id,
                                         standard_rules::max_sps_id};
    static constexpr bound max_pps_id = {"max_pps_id", own_rules::max_pps_id,
                                         standard_rules::max_pps_id};
    static constexpr bound max_log2_max_pic_order_cnt_lsb_minus4 = {
        "max_log2_max_pic_order_cnt_lsb_minus4", own_rules::max_log2_max_pic_order_cnt_lsb_minus4,
        standard_rules::max_log2_max_pic_order_cnt_lsb_minus4};
    static constexpr bound max_ref_idx_active_minus1 = {"max_ref_idx_active_minus1",
                                                        own_rules::max_ref_idx_active_minus1,
                                                        standard_rules::max_ref_idx_active_minus1};
    template <class Sps>
    noted_bound<std::int64_t> max_decoding_units_minus1(const Sps& sps) {
        return {"max_decoding_units_minus1", own_rules::max_decoding_units_minus1(sps),
                standard_rules::max_decoding_units_minus1(sps)};
    }
    static constexpr bound max_active_sps_ids = {
        "max_active_sps_ids", own_rules::max_active_sps_ids, standard_rules::max_active_sps_ids};

    bool knows_extensions() {
        return decide("knows_extensions", own_rules::knows_extensions(),
                      standard_rules::knows_extensions());
    }

    template <class ParameterSet>
    bool has_named_set(const ParameterSet* named_set) {
        return decide("has_named_set", own_rules::has_named_set(named_set),
                      standard_rules::has_named_set(named_set));
    }

    template <class Walker, class Flags>
    void infer_first_cprms_present_flag(Walker&, Flags& cprms_present_flag) {
        decide<bool>("infer_first_cprms_present_flag", cprms_present_flag[0], /*standard=*/true);
    }

    template <class Walker, class Hrd>
    void infer_common_information(Walker&, Hrd& hrd, const Hrd* earlier) {
        const auto is_present = [](const Hrd* any) {
            return any != nullptr &&
                   (any->nal_hrd_parameters_present_flag || any->vcl_hrd_parameters_present_flag);
        };
        decide("infer_common_information", is_present(&hrd), is_present(earlier));
    }

    template <class Walker, class ScalingLists>
    bool end_predicted_scaling_list(Walker&, ScalingLists& lists, unsigned int sizeId,
                                    unsigned int matrixId) {
        const unsigned int delta = lists.scaling_list_pred_matrix_id_delta[sizeId][matrixId];
        return decide("end_predicted_scaling_list", /*own=*/true,
                      delta <= matrixId / (sizeId == 3 ? 3 : 1));
    }

    template <class Walker, class Set>
    bool end_predicted_set(Walker& walk, Set& set, const reference_pictures& reference) {
        const auto& flags = set.use_delta_flag;
        decide("end_predicted_set", /*own=*/false,
               std::find(flags.begin(), flags.end(), true) != flags.end());
        return own_rules::end_predicted_set(walk, set, reference);
    }

    template <class Sps>
    unsigned int pic_size_in_ctbs(const Sps& sps) {
        return decide("pic_size_in_ctbs", own_rules::pic_size_in_ctbs(sps),
                      standard_rules::pic_size_in_ctbs(sps));
    }

    unsigned char index_width(unsigned int count) {
        return decide("index_width", own_rules::index_width(count),
                      standard_rules::index_width(count));
    }

    template <class Slice>
    bool is_dependent(const Slice& slice) {
        return decide("is_dependent", own_rules::is_dependent(slice),
                      standard_rules::is_dependent(slice));
    }

    template <class Sps>
    bool has_set(const Sps& sps, unsigned int short_term_ref_pic_set_idx) {
        return decide("has_set", own_rules::has_set(sps, short_term_ref_pic_set_idx),
                      standard_rules::has_set(sps, short_term_ref_pic_set_idx));
    }

    template <class Sps>
    bound max_long_term_sps(const Sps& sps) {
        return {"max_long_term_sps", own_rules::max_long_term_sps(sps),
                standard_rules::max_long_term_sps(sps)};
    }
    bound max_long_term_pics(unsigned int num_long_term_sps) {
        return {"max_long_term_pics", own_rules::max_long_term_pics(num_long_term_sps),
                standard_rules::max_long_term_pics(std::min(num_long_term_sps, max_dpb_size))};
    }

    template <class Walker, class Slice, class Sps>
    bool take_candidate(Walker&, Slice& slice, const Sps& sps, unsigned int i) {
        return decide("take_candidate", /*own=*/true,
                      slice.lt_idx_sps[i] < sps.lt_ref_pic_poc_lsb_sps.size());
    }

    bool is_slice_type(unsigned int slice_type) {
        return decide("is_slice_type", own_rules::is_slice_type(slice_type),
                      standard_rules::is_slice_type(slice_type));
    }

    template <class Sps>
    bool can_read_long_term_pics(const Sps& sps) {
        return decide("can_read_long_term_pics", own_rules::can_read_long_term_pics(sps),
                      standard_rules::can_read_long_term_pics(sps));
    }

    template <class Sps>
    bool has_temporal_mvp_flag(const Sps& sps) {
        return decide("has_temporal_mvp_flag", own_rules::has_temporal_mvp_flag(sps),
                      standard_rules::has_temporal_mvp_flag(sps));
    }

    template <class Slice, class Sps>
    unsigned int count_long_term_pics(const Slice& slice, const Sps& sps) {
        return decide("count_long_term_pics", own_rules::count_long_term_pics(slice, sps),
                      used_long_term_pics(slice, sps));
    }

    template <class Pps>
    bool counts_current_picture(const Pps& pps) {
        return decide("counts_current_picture", own_rules::counts_current_picture(pps),
                      standard_rules::counts_current_picture(pps));
    }

    template <class Hrd>
    bool has_decoding_unit_info(const Hrd& hrd) {
        return decide("has_decoding_unit_info", own_rules::has_decoding_unit_info(hrd),
                      standard_rules::has_decoding_unit_info(hrd));
    }

    template <class Hrd>
    unsigned int cpb_cnt_minus1(const Hrd& hrd, unsigned int highest_sub_layer_plus1) {
        return decide("cpb_cnt_minus1", own_rules::cpb_cnt_minus1(hrd, highest_sub_layer_plus1),
                      standard_rules::cpb_cnt_minus1(hrd, highest_sub_layer_plus1));
    }

    template <class Vps>
    unsigned int max_layers_minus1(const Vps& vps) {
        return decide("max_layers_minus1", own_rules::max_layers_minus1(vps),
                      standard_rules::max_layers_minus1(vps));
    }

private:
    template <class Decision>
    Decision decide(const char* rule, Decision own, Decision standard) {
        if (own != standard) {
            note(rule);
        }
        return own;
    }

    // As by the standard's rules, in a slice that was read by the library's own: what the SPS says
    // of its candidates is not in the record.
    template <class Slice, class Sps>
    unsigned int used_long_term_pics(const Slice& slice, const Sps& sps) {
        unsigned int used = 0;
        for (std::size_t i = 0; i < slice.used_by_curr_pic_lt_flag.size(); ++i) {
            const bool is_candidate = i < slice.num_long_term_sps &&
                                      slice.lt_idx_sps[i] < sps.used_by_curr_pic_lt_sps_flag.size();
            const bool is_used = is_candidate
                                     ? sps.used_by_curr_pic_lt_sps_flag[slice.lt_idx_sps[i]]
                                     : slice.used_by_curr_pic_lt_flag[i];
            used += is_used ? 1U : 0U;
        }
        return used;
    }
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_NOTING_RULES_H
