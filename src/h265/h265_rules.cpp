#include <kovran/h265/h265_rules.h>

#include <array>
#include <string_view>

namespace kovran {
namespace {

constexpr std::array rules = {
    h265_rule{"can_read_long_term_pics", "7.3.6.1",
              "A slice cannot have long-term pictures when its SPS lists none; by the standard it "
              "can."},
    h265_rule{"count_long_term_pics", "7-55",
              "Long-term pictures are counted by the flags of the SPS in order, not by those that "
              "the slice has or names."},
    h265_rule{"counts_current_picture", "7-55",
              "The current picture is never counted among its reference pictures; by the standard "
              "it is where the PPS says so."},
    h265_rule{"cpb_cnt_minus1", "D.3.2",
              "A buffering period has the CPB count of sub-layer 0; by the standard, that of the "
              "highest sub-layer."},
    h265_rule{
        "data_may_end", "7.3",
        "Reading goes on past the end of the data, where bits are 0; by the standard the data "
        "has all elements."},
    h265_rule{"end_predicted_scaling_list", "7.4.5",
              "A scaling list may be predicted from one that does not exist; by the standard this "
              "is an error."},
    h265_rule{
        "end_predicted_set", "7.4.8",
        "A predicted reference picture set ends without pictures, and the sets predicted from "
        "it are read accordingly; by the standard it has the pictures that it is predicted "
        "to have."},
    h265_rule{"has_decoding_unit_info", "D.2.3",
              "Picture timing has decoding unit information when one of two flags is set; by the "
              "standard, both."},
    h265_rule{"has_named_set", "7.4.2.4.2",
              "An SPS needs its VPS before it, and a PPS its SPS; by the standard they are bound "
              "when a slice activates them."},
    h265_rule{
        "has_set", "7.4.7.1",
        "A slice may name a reference picture set that its SPS does not have; by the standard "
        "this is an error."},
    h265_rule{"has_temporal_mvp_flag", "7.3.6.1",
              "slice_temporal_mvp_enabled_flag is read only where long-term pictures are allowed; "
              "by the standard, wherever the SPS enables it."},
    h265_rule{"index_width", "7.4.7.1",
              "An index into n entries has as many bits as n has binary digits; by the standard it "
              "has Ceil(Log2(n)) bits, one less where n is a power of two."},
    h265_rule{"infer_common_information", "7.4.3.1",
              "HRD parameters without common information go by what the record held; by the "
              "standard, by the structure before."},
    h265_rule{
        "infer_first_cprms_present_flag", "7.4.3.1",
        "The first HRD structure of a VPS is read without common information; by the standard "
        "it has it."},
    h265_rule{
        "is_dependent", "7.4.7.1",
        "The first slice segment of a picture can be left dependent by the segment before; by "
        "the standard it never is."},
    h265_rule{"is_slice_type", "7.4.7.1",
              "A slice_type above 2 reads like an I slice; by the standard it is an error."},
    h265_rule{"knows_extensions", "7.3.2",
              "The extensions of an SPS and a PPS are skipped; by the standard they are read."},
    h265_rule{"max_active_sps_ids", "D.3.21",
              "Active parameter sets may name 128 SPSs; by the standard, 16."},
    h265_rule{"max_decoding_units_minus1", "D.3.3",
              "A picture has at most 128 decoding units; by the standard, as many as it has coding "
              "tree blocks."},
    h265_rule{"max_hrd_cpbs", "E.3.2", "A CPB count may be up to 128; by the standard, 32."},
    h265_rule{"max_hrd_sub_layers", "E.3.2",
              "HRD parameters may have 128 sub-layers; by the standard, 7."},
    h265_rule{"max_layers_minus1", "F.7.4.3.1",
              "vps_max_layers_minus1 counts layers up to 63; by the standard, up to 62."},
    h265_rule{"max_log2_max_pic_order_cnt_lsb_minus4", "7.4.3.2.1",
              "log2_max_pic_order_cnt_lsb_minus4 has no bound; by the standard it is 12 at most."},
    h265_rule{"max_long_term_pics", "7.4.7.1",
              "The number of long-term pictures has no bound; by the standard it is 16 at most."},
    h265_rule{"max_long_term_ref_pics_sps", "7.4.3.2.1",
              "An SPS may list 128 long-term pictures; by the standard, 32."},
    h265_rule{"max_long_term_sps", "7.4.7.1",
              "A slice may take any number of long-term pictures from its SPS; by the standard, no "
              "more than the SPS lists."},
    h265_rule{
        "max_pics_in_one_direction", "7.4.8",
        "A reference picture set may have 128 pictures in each direction; by the standard, 16 "
        "in all."},
    h265_rule{"max_pics_in_reference_set", "7.4.8",
              "A set that others are predicted from may have 127 pictures; by the standard, 16."},
    h265_rule{"max_positive_pics", "7.4.8",
              "The two directions of a reference picture set are bounded one by one; by the "
              "standard, together."},
    h265_rule{"max_pps_id", "7.4.3.3.1",
              "A PPS may have any identifier; by the standard, up to 63."},
    h265_rule{"max_profile_tier_level_sub_layers", "7.4.4",
              "There may be 7 sub-layers above the lowest one; by the standard, 6."},
    h265_rule{"max_ref_idx_active_minus1", "7.4.7.1",
              "The number of reference indices has no bound; by the standard it is 15 at most."},
    h265_rule{"max_short_term_ref_pic_sets", "7.4.3.2.1",
              "An SPS may have 128 reference picture sets; by the standard, 64."},
    h265_rule{"max_sps_id", "7.4.3.2.1",
              "An SPS may have any identifier; by the standard, up to 15."},
    h265_rule{"max_tile_columns_minus1", "7.4.3.3.1",
              "There may be up to 128 tile column widths; by the standard, one less than the "
              "picture has coding tree blocks across."},
    h265_rule{"max_tile_rows_minus1", "7.4.3.3.1",
              "There may be up to 128 tile row heights; by the standard, one less than the picture "
              "has coding tree blocks down."},
    h265_rule{"max_vps_hrd_parameters", "7.4.3.1",
              "A VPS may have 128 HRD structures; by the standard, 1024."},
    h265_rule{"max_vps_layer_sets", "7.4.3.1",
              "A VPS may have 128 layer sets; by the standard, 1024."},
    h265_rule{"pic_size_in_ctbs", "7-19",
              "The number of coding tree blocks is counted modulo 2^32."},
    h265_rule{"take_candidate", "7-52",
              "lt_idx_sps may name a long-term picture that the SPS does not list; by the standard "
              "this is an error."},
    h265_rule{"trailing_bits_decide", "7.3.2.11",
              "A parameter set with malformed trailing bits is lost; the standard's reading takes "
              "it and reports the fault."},
};

}  // namespace

const h265_rule* h265_find_rule(const char* name) {
    for (const h265_rule& rule : rules) {
        if (std::string_view(rule.name) == name) {
            return &rule;
        }
    }
    return nullptr;
}

}  // namespace kovran
