#include "reading_elements.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>

namespace kovran::test {
namespace {

// In the standard's words.
std::string standard_name(const std::string& name) {
    static const std::map<std::string, std::string> other_names = {
        {"matrix_coefficients", "matrix_coeffs"},
        {"scaling_list_delta_coeff", "scaling_list_delta_coef"},
    };
    const std::string base = name.substr(0, name.find('['));
    const auto found = other_names.find(base);
    return found == other_names.end() ? name : found->second + name.substr(base.size());
}

// Reserved bits that are one element in the standard; there are several reserved_zero_2bits[i].
bool is_reserved(const std::string& name) {
    return name.find("reserved_zero") != std::string::npos && name != "reserved_zero_2bits";
}

}  // namespace

std::vector<expected_element> elements_of(const nlohmann::json& unit) {
    constexpr std::size_t header_bits = 16;
    std::vector<expected_element> all;
    std::int64_t reserved = 0;
    for (const nlohmann::json& each : unit.at("elements")) {
        const std::string name = standard_name(each.at(0));
        const auto value = each.at(1).get<std::int64_t>();
        const auto width = each.at(3).get<std::size_t>();
        if (is_reserved(name) && !all.empty() && all.back().name == name) {
            reserved = reserved << width | value;
            all.back().value = std::to_string(reserved);
            all.back().width += width;
        } else {
            reserved = value;
            all.push_back(
                {name, std::to_string(value), each.at(2).get<std::size_t>() - header_bits, width});
        }
    }
    return all;
}

bool is_extension_flag(const std::string& name) {
    return name == "vps_extension_flag" || name == "sps_extension_present_flag" ||
           name == "pps_extension_present_flag";
}

std::size_t index_of(const std::vector<expected_element>& all, const std::string& name,
                     std::size_t from) {
    const auto found =
        std::find_if(all.begin() + static_cast<std::ptrdiff_t>(from), all.end(),
                     [&](const expected_element& each) { return each.name == name; });
    return static_cast<std::size_t>(found - all.begin());
}

std::size_t first_of_a_chained_prediction(const std::vector<expected_element>& all) {
    const std::size_t end = index_of(all, "long_term_ref_pics_present_flag");
    const std::string flag = "inter_ref_pic_set_prediction_flag";
    bool predicted_before = false;
    for (std::size_t set = index_of(all, flag); set < end; set = index_of(all, flag, set + 1)) {
        const bool predicted = all[set].value != "0";
        const std::size_t second_pair = index_of(all, "used_by_curr_pic_flag[1]", set);
        if (predicted && predicted_before && second_pair < index_of(all, flag, set + 1)) {
            return second_pair;
        }
        predicted_before = predicted;
    }
    return all.size();
}

const std::set<std::string>& streams_with_chained_sets() {
    static const std::set<std::string> names = {
        "hm_2tids",         "hm_deblock_metric", "hm_depslices",     "hm_field",
        "hm_hash_csum",     "hm_hrd_subpic",     "hm_ld_b",          "hm_ra16",
        "hm_ra8_cra",       "hm_rext400",        "hm_rext444_all",   "hm_scaling_file444",
        "hm_slices_bytes",  "hm_tiles_nu",       "hm_tiles_u",       "hm_vui",
        "hm_wp_b",          "hmx_ext4bits",      "hmx_hrd_lowdelay", "hmx_ids",
        "hmx_listmod_b",    "hmx_listmod_p4",    "hmx_ltr1",         "hmx_ltr3_unused",
        "hmx_ltr_msb_part", "hmx_ltrsps5",       "hmx_pocbits16",    "hmx_sublevel_only",
        "hmx_vps_hrd1",     "hmx_vps_timing",    "scm_act",          "scm_ld420",
    };
    return names;
}

bool is_behind_list_modification(const std::string& name) {
    static const std::set<std::string> names = {
        "mvd_l1_zero_flag",   "cabac_init_flag",         "collocated_from_l0_flag",
        "collocated_ref_idx", "luma_log2_weight_denom",  "five_minus_max_num_merge_cand",
        "slice_qp_delta",     "num_entry_point_offsets", "alignment_bit_equal_to_one",
    };
    return names.count(name) == 1;
}

bool is_parsed_message(const std::string& payload_type) {
    return payload_type == "0" || payload_type == "1" || payload_type == "129";
}

bool is_sei_framing(const std::string& name) {
    return name.rfind("last_payload_", 0) == 0 || name.rfind("rbsp_", 0) == 0;
}

bool is_payload_padding(const std::string& name) {
    return name.rfind("bit_equal_to_", 0) == 0 || name == "reserved_payload_extension_data";
}

}  // namespace kovran::test
