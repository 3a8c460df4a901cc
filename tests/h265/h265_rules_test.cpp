#include <kovran/h265/h265_rules.h>

#include <gtest/gtest.h>

#include <string_view>

namespace kovran {
namespace {

TEST(H265Rules, AreFoundByName) {
    const h265_rule* const rule = h265_find_rule("index_width");
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(std::string_view(rule->name), "index_width");
    EXPECT_EQ(std::string_view(rule->clause), "7.4.7.1");
    EXPECT_NE(std::string_view(rule->meaning), "");
    EXPECT_EQ(h265_find_rule("index"), nullptr);
    EXPECT_EQ(h265_find_rule(""), nullptr);
}

// Those that a trace can name, as docs/differences.md has them.
TEST(H265Rules, HaveAClauseAndASentence) {
    for (const char* const name : {"can_read_long_term_pics",
                                   "count_long_term_pics",
                                   "counts_current_picture",
                                   "cpb_cnt_minus1",
                                   "data_may_end",
                                   "end_predicted_scaling_list",
                                   "end_predicted_set",
                                   "has_decoding_unit_info",
                                   "has_named_set",
                                   "has_set",
                                   "has_temporal_mvp_flag",
                                   "index_width",
                                   "infer_common_information",
                                   "infer_first_cprms_present_flag",
                                   "is_dependent",
                                   "is_slice_type",
                                   "knows_extensions",
                                   "max_active_sps_ids",
                                   "max_decoding_units_minus1",
                                   "max_hrd_cpbs",
                                   "max_hrd_sub_layers",
                                   "max_layers_minus1",
                                   "max_log2_max_pic_order_cnt_lsb_minus4",
                                   "max_long_term_pics",
                                   "max_long_term_ref_pics_sps",
                                   "max_long_term_sps",
                                   "max_pics_in_one_direction",
                                   "max_pics_in_reference_set",
                                   "max_positive_pics",
                                   "max_pps_id",
                                   "max_profile_tier_level_sub_layers",
                                   "max_ref_idx_active_minus1",
                                   "max_short_term_ref_pic_sets",
                                   "max_sps_id",
                                   "max_tile_columns_minus1",
                                   "max_tile_rows_minus1",
                                   "max_vps_hrd_parameters",
                                   "max_vps_layer_sets",
                                   "pic_size_in_ctbs",
                                   "take_candidate",
                                   "trailing_bits_decide"}) {
        SCOPED_TRACE(name);
        const h265_rule* const rule = h265_find_rule(name);
        ASSERT_NE(rule, nullptr);
        EXPECT_NE(std::string_view(rule->clause), "");
        EXPECT_EQ(std::string_view(rule->meaning).back(), '.');
    }
}

}  // namespace
}  // namespace kovran
